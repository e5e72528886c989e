// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/CommandLine.h"

#include <QGuiApplication>
#include <memory>
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#endif

namespace {

/// Most commands need no more than the core, and no platform plug-in either.
std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv)
{
    if (argc < 2 || qstrcmp(argv[1], "map") != 0)
        return std::make_unique<QCoreApplication>(argc, argv);
    // Letters are drawn without a display, too.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int main(int argc, char **argv)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    // Names of files are UTF-8 also where no language is set, as in a scheduled job.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
#endif
    QCoreApplication::setApplicationName(QStringLiteral("panohost"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PANOHOST_VERSION));

    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    return static_cast<int>(
        runCommandLine(arguments.isEmpty() ? QStringList(QStringLiteral("--help")) : arguments));
}
