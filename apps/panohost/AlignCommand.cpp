// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/AlignCommand.h"

#include "align/Alignment.h"
#include "align/RecordJson.h"
#include "apps/panohost/HeadCommand.h"
#include "apps/panohost/Interrupt.h"
#include "apps/panohost/ProgressLine.h"

#include <QFileInfo>

namespace {

class AlignCommand final : public HeadCommand {
public:
    QString name() const override { return QStringLiteral("align"); }
    std::vector<OptionText> options() const override
    {
        return {{"output", "FILE.pto", "where the aligned project is written"},
            {"record", "FILE.json", "where the project record is written too"},
            {"json", nullptr, "print the report as JSON"},
            {"keep", nullptr, "keep the matches beside the project for later runs"},
            {"fresh", nullptr, "forget the matches of earlier runs"}};
    }
    QString description() const override
    {
        return QStringLiteral("Makes a project in which the pictures fit together.");
    }

    void takeOptions(OptionReader &reader) override
    {
        m_output = reader.text("output");
        m_record = reader.text("record");
        m_json = reader.isSet("json");
        m_options.keep = reader.isSet("keep");
        m_options.fresh = reader.isSet("fresh");
        if (m_output.isEmpty())
            reader.refuse(QStringLiteral("--output FILE.pto is missing"));
        if (reader.isSet("record") && m_record.isEmpty())
            reader.refuse(QStringLiteral("--record wants a file"));
        if (!m_record.isEmpty() && isSameFile(m_record, m_output))
            reader.refuse(QStringLiteral("--output and --record name the same file"));
        m_options.cacheFolder = m_output + QStringLiteral(".matches");
    }

    QStringList outputs() const override
    {
        return m_record.isEmpty() ? QStringList(m_output) : QStringList{m_output, m_record};
    }

    ExitCode run(const ProjectRecord &record, const PictureTable &pictures) override
    {
        QString problem;
        const auto alignment = align(record, pictures, &problem);
        if (!alignment) {
            console::complain(problem.isEmpty() ? QStringLiteral("interrupted") : problem);
            return ExitCode::Failed;
        }
        QVector<OutputFile> files{
            {m_output, projectText(alignment->project, QFileInfo(m_output).absolutePath())}};
        if (!m_record.isEmpty())
            files.append({m_record, recordToJson(record)});
        problem = writeWhole(files);
        if (!problem.isEmpty()) {
            console::complain(problem);
            return ExitCode::Failed;
        }
        console::print(
            m_json ? QString::fromUtf8(alignment->report.toJson()) : alignment->report.toText());
        return ExitCode::Done;
    }

private:
    std::optional<Alignment> align(
        const ProjectRecord &record, const PictureTable &pictures, QString *problem) const
    {
        const Interrupt interrupt;
        ProgressLine line;
        const auto progress = [&line](const QString &step, int done, int total) {
            line.show(step, done, total);
            return !Interrupt::isAsked();
        };
        return alignRecord(record, pictures, m_options, progress, problem);
    }

    QString m_output;
    QString m_record;
    bool m_json = false;
    AlignOptions m_options;
};

} // namespace

ExitCode runAlign(const QStringList &arguments)
{
    AlignCommand command;
    return runHeadCommand(command, arguments);
}
