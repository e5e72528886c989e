// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/CommandLine.h"

#include <QCoreApplication>
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#endif

int main(int argc, char **argv)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    // Names of files are UTF-8 also where no language is set, as in a scheduled job.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
#endif
    QCoreApplication::setApplicationName(QStringLiteral("panohost"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PANOHOST_VERSION));

    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    return static_cast<int>(
        runCommandLine(arguments.isEmpty() ? QStringList(QStringLiteral("--help")) : arguments));
}
