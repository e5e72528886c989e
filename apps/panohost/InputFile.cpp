// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/InputFile.h"

#include <QFile>
#include <QFileInfo>
#include <cstdio>

std::optional<QByteArray> readFile(const QString &path, QString *problem)
{
    if (QFileInfo(path).isDir()) {
        *problem = QStringLiteral("is a folder");
        return std::nullopt;
    }
    QFile file(path);
    const bool isOpen = path == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly)
                                                   : file.open(QIODevice::ReadOnly);
    if (isOpen) {
        const QByteArray content = file.readAll();
        if (file.error() == QFileDevice::NoError)
            return content;
    }
    *problem = QStringLiteral("cannot be opened: %1").arg(file.errorString());
    return std::nullopt;
}
