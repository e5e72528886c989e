// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/CommandLine.h"

#include "apps/panohost/ImportCommand.h"
#include "apps/panohost/MapCommand.h"
#include "apps/panohost/heads/Head.h"

#include <QCoreApplication>

namespace {

QString help()
{
    return QStringLiteral(
               "panohost starts panorama projects from what a motorised head knows.\n\n"
               "  panohost [FILE...]        open the window, with these files\n"
               "  panohost import HEAD ...  make a project of a head's file and pictures\n"
               "  panohost map RECORD ...   draw where a record's pictures lie\n"
               "  panohost heads            list the heads\n"
               "  panohost --help           show this\n"
               "  panohost --version        show the version\n\n")
        + importHelp();
}

constexpr int kNameColumn = 12;

QString listOfHeads()
{
    QString list;
    for (const HeadEntry &entry : headEntries())
        list += QString::fromLatin1(entry.name).leftJustified(kNameColumn)
            + QLatin1String(entry.description) + QLatin1Char('\n');
    return list;
}

} // namespace

bool isCommand(const QString &word)
{
    static const QStringList commands{
        QStringLiteral("import"), QStringLiteral("map"), QStringLiteral("heads")};
    return word.startsWith(QLatin1Char('-')) || commands.contains(word);
}

ExitCode runCommandLine(const QStringList &arguments)
{
    const QString &command = arguments.first();
    const QStringList rest = arguments.mid(1);
    if (command == QLatin1String("import"))
        return runImport(rest);
    if (command == QLatin1String("map"))
        return runMap(rest);

    const QHash<QString, QString> answers{
        {QStringLiteral("heads"), listOfHeads()},
        {QStringLiteral("--help"), help()},
        {QStringLiteral("-h"), help()},
        {QStringLiteral("--version"),
            QStringLiteral("panohost %1\n").arg(QCoreApplication::applicationVersion())},
    };
    const auto answer = answers.constFind(command);
    if (answer == answers.constEnd() || !rest.isEmpty()) {
        console::complain(answer == answers.constEnd()
                ? QStringLiteral("there is no command \"%1\"").arg(command)
                : QStringLiteral("%1 takes nothing behind it").arg(command));
        console::complain(QStringLiteral("panohost --help tells how it is used"));
        return ExitCode::WrongUsage;
    }
    console::print(*answer);
    return ExitCode::Done;
}
