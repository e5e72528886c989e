// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/StitchOptions.h"

#include <QFileInfo>
#include <QThread>
#include <algorithm>

OutputFormat formatOf(const QString &output)
{
    const QString suffix = QFileInfo(output).suffix().toLower();
    if (suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg"))
        return OutputFormat::Jpeg;
    if (suffix == QLatin1String("tif") || suffix == QLatin1String("tiff"))
        return OutputFormat::Tiff;
    return suffix == QLatin1String("exr") ? OutputFormat::Exr : OutputFormat::Unknown;
}

int jobsOf(const StitchOptions &options)
{
    return options.jobs > 0 ? options.jobs : std::max(1, QThread::idealThreadCount());
}
