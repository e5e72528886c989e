// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFile>
#include <QFileInfo>

/// Opens a head's file for reading. Empty when that is done, else the reason why not. Anything but
/// a regular file is refused: a pipe or device could keep its reader waiting for ever.
inline QString openHeadFile(QFile &file)
{
    if (file.fileName().isEmpty())
        return QStringLiteral("No file name");
    const QFileInfo info(file);
    if (info.exists() && !info.isFile())
        return QStringLiteral("Not a regular file");
    return file.open(QIODevice::ReadOnly) ? QString() : file.errorString();
}
