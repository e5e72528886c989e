// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/CommandLine.h"
#include "apps/panohost/Console.h"
#include "apps/panohost/Module.h"
#include "apps/panohost/window/HeadModule.h"
#include "apps/panohost/window/HostApplication.h"
#include "apps/panohost/window/MainWindow.h"

#include <QFileInfo>
#include <QLocale>
#include <algorithm>
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

/// Without a command the window opens, with the files that are named.
bool wantsWindow(int argc, char **argv)
{
    if (argc < 2)
        return true;
    const QString first = QFile::decodeName(argv[1]);
    return !isCommand(first) && QFileInfo::exists(first);
}

bool hasDisplay()
{
#ifdef Q_OS_LINUX
    const auto names = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return !std::all_of(names.begin(), names.end(), qEnvironmentVariableIsEmpty);
#else
    return true;
#endif
}

int showWindow(int &argc, char **argv)
{
    if (!hasDisplay()) {
        console::complain(QStringLiteral(
            "there is no display for the window; panohost --help tells what works without"));
        return static_cast<int>(ExitCode::Failed);
    }
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    HostApplication application(argc, argv);
    const HeadModule module(findModule());
    MainWindow window(application, module);
    window.show();
    QStringList paths;
    for (const QString &argument : QCoreApplication::arguments().mid(1))
        paths += QFileInfo(argument).absoluteFilePath();
    window.takeFiles(paths);
    return HostApplication::exec();
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

    QCoreApplication::setOrganizationName(QStringLiteral("panohost"));

    console::muteDecoders();
    if (wantsWindow(argc, argv))
        return showWindow(argc, argv);
    // Programs read what the command line says.
    QLocale::setDefault(QLocale::c());
    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
    return static_cast<int>(runCommandLine(QCoreApplication::arguments().mid(1)));
}
