// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/Module.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QStringList modulePlaces(const QString &programFolder)
{
    const QString chosen = qEnvironmentVariable("ZPANOHEAD_MODULE");
    if (!chosen.isEmpty())
        return {QFileInfo(chosen).absoluteFilePath()};
    const QDir folder(programFolder);
    QStringList places;
    for (const char *place :
        {"../lib/libZPanoHead.so", "../" PANOHOST_LIBRARY_FOLDER "/zpanohead/libZPanoHead.so",
            PANOHOST_INSTALLED_LIBRARY_FOLDER "/zpanohead/libZPanoHead.so"})
        places.append(QDir::cleanPath(folder.absoluteFilePath(QString::fromUtf8(place))));
    return places;
}

QString findModule()
{
    const QStringList places = modulePlaces(QCoreApplication::applicationDirPath());
    for (const QString &place : places) {
        if (QFileInfo(place).isFile())
            return place;
    }
    return places.first();
}
