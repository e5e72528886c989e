// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/AlignCommand.h"

#include "align/Alignment.h"
#include "apps/panohost/Interrupt.h"
#include "apps/panohost/ProgressLine.h"
#include "apps/panohost/ProjectCommand.h"

namespace {

class AlignCommand final : public ProjectCommand {
public:
    QString name() const override { return QStringLiteral("align"); }
    QString description() const override
    {
        return QStringLiteral("Makes a project in which the pictures fit together.");
    }

    void takeOptions(OptionReader &reader) override
    {
        ProjectCommand::takeOptions(reader);
        m_json = reader.isSet("json");
        m_keep = reader.isSet("keep");
        m_options.fresh = reader.isSet("fresh");
        m_options.cacheFolder = output() + QStringLiteral(".matches");
    }

    ExitCode run(const ProjectRecord &record, const PictureTable &pictures) override
    {
        QString problem;
        const auto alignment = align(record, pictures, &problem);
        if (!alignment) {
            console::complain(problem.isEmpty()
                    ? QStringLiteral("interrupted; what was found so far is kept in %1, and the "
                                     "same command goes on from there")
                          .arg(m_options.cacheFolder)
                    : problem);
            return ExitCode::Failed;
        }
        if (!write(alignment->project, record))
            return ExitCode::Failed;
        if (!m_keep)
            forgetMatches(m_options.cacheFolder);
        console::print(
            m_json ? QString::fromUtf8(alignment->report.toJson()) : alignment->report.toText());
        return ExitCode::Done;
    }

protected:
    const char *outputText() const override { return "where the aligned project is written"; }
    std::vector<OptionText> ownOptions() const override
    {
        return {{"json", nullptr, "print the report as JSON"},
            {"keep", nullptr, "keep the matches beside the project for later runs"},
            {"fresh", nullptr, "forget the matches of earlier runs"}};
    }

private:
    std::optional<Alignment> align(
        const ProjectRecord &record, const PictureTable &pictures, QString *problem) const
    {
        const Interrupt interrupt;
        ProgressLine line;
        return alignRecord(record, pictures, m_options, line.untilInterrupted(), problem);
    }

    bool m_json = false;
    bool m_keep = false;
    AlignOptions m_options;
};

} // namespace

ExitCode runAlign(const QStringList &arguments)
{
    AlignCommand command;
    return runHeadCommand(command, arguments);
}
