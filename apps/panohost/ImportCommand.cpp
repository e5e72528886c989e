// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/ImportCommand.h"

#include "apps/panohost/ProjectCommand.h"

#include <numeric>

namespace {

class ImportCommand final : public ProjectCommand {
public:
    QString name() const override { return QStringLiteral("import"); }
    QString description() const override
    {
        return QStringLiteral("Makes a project of a head's file and pictures.");
    }
    bool takesRecords() const override { return false; }

    ExitCode run(const ProjectRecord &record, const PictureTable &pictures) override
    {
        QString problem;
        const auto project = projectOf(record, pictures, &problem);
        if (!project) {
            console::complain(problem);
            return ExitCode::Failed;
        }
        if (!write(*project, record))
            return ExitCode::Failed;
        const auto used = std::accumulate(record.groups.begin(), record.groups.end(), 0,
            [](int sum, const QStringList &stack) { return sum + stack.size(); });
        console::print(QStringLiteral("%1: %2 locations, %3 pictures, %4 links\n")
                           .arg(output())
                           .arg(record.groups.size())
                           .arg(used)
                           .arg(record.links.size()));
        return ExitCode::Done;
    }

protected:
    const char *outputText() const override { return "where the project is written"; }
};

} // namespace

ExitCode runImport(const QStringList &arguments)
{
    ImportCommand command;
    return runHeadCommand(command, arguments);
}

QString importHelp()
{
    return helpOf(ImportCommand());
}
