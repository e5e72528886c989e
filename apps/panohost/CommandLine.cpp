// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/CommandLine.h"

#include "apps/panohost/AlignCommand.h"
#include "apps/panohost/ImportCommand.h"
#include "apps/panohost/MapCommand.h"
#include "apps/panohost/Options.h"
#include "apps/panohost/StitchCommand.h"
#include "apps/panohost/heads/Head.h"

#include <QCoreApplication>

namespace {

QString help()
{
    return QStringLiteral(
               "panohost starts panorama projects from what a motorised head knows.\n\n"
               "  panohost [FILE...]        open the window, with these files\n"
               "  panohost import HEAD ...  make a project of a head's file and pictures\n"
               "  panohost align HEAD ...   make one in which the pictures fit together\n"
               "  panohost stitch HEAD ...  make a finished panorama of them\n"
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

using Command = ExitCode (*)(const QStringList &arguments);

const QHash<QString, Command> &commands()
{
    static const QHash<QString, Command> commands{
        {QStringLiteral("align"), runAlign},
        {QStringLiteral("import"), runImport},
        {QStringLiteral("map"), runMap},
        {QStringLiteral("stitch"), runStitch},
    };
    return commands;
}

/// What is printed for words that take nothing behind them.
QHash<QString, QString> answers()
{
    return {
        {QStringLiteral("heads"), listOfHeads()},
        {QStringLiteral("--help"), help()},
        {QStringLiteral("-h"), help()},
        {QStringLiteral("--version"),
            QStringLiteral("panohost %1\n").arg(QCoreApplication::applicationVersion())},
    };
}

ExitCode run(const QString &command, const QStringList &arguments)
{
    if (const Command run = commands().value(command))
        return run(arguments);
    const QString answer = answers().value(command);
    if (answer.isEmpty())
        return wrongUsage(QStringLiteral("there is no command \"%1\"").arg(command), {});
    if (!arguments.isEmpty())
        return wrongUsage(QStringLiteral("%1 takes nothing behind it").arg(command), {});
    console::print(answer);
    return ExitCode::Done;
}

} // namespace

bool isCommand(const QString &word)
{
    return word.startsWith(QLatin1Char('-')) || commands().contains(word)
        || answers().contains(word);
}

ExitCode runCommandLine(const QStringList &arguments)
{
    const ExitCode code = run(arguments.first(), arguments.mid(1));
    if (code != ExitCode::Done || console::isPrinted())
        return code;
    console::complain(QStringLiteral("standard output cannot be written"));
    return ExitCode::Failed;
}
