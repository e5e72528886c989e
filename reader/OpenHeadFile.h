// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFile>
#include <QFileInfo>

/// Opens a head's file for reading. Empty when that is done, else the reason why not. Anything but
/// a regular file is refused: a pipe or device could keep its reader waiting for ever; so is one of
/// more than \a largest bytes, which would take memory and time without end.
inline QString openHeadFile(QFile &file, qint64 largest)
{
    if (file.fileName().isEmpty())
        return QStringLiteral("No file name");
    const QFileInfo info(file);
    if (info.exists() && !info.isFile())
        return QStringLiteral("Not a regular file");
    if (info.size() > largest)
        return QStringLiteral("Larger than any head writes it");
    return file.open(QIODevice::ReadOnly) ? QString() : file.errorString();
}
