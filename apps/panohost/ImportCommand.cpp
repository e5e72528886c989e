// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/ImportCommand.h"

#include "align/PtoProject.h"
#include "align/RecordJson.h"
#include "apps/panohost/HeadCommand.h"

#include <QFileInfo>
#include <numeric>

namespace {

class ImportCommand final : public HeadCommand {
public:
    QString name() const override { return QStringLiteral("import"); }
    std::vector<OptionText> options() const override
    {
        return {{"output", "FILE.pto", "where the project is written"},
            {"record", "FILE.json", "where the project record is written too"}};
    }
    QString description() const override
    {
        return QStringLiteral("Makes a project of a head's file and pictures.");
    }
    bool takesRecords() const override { return false; }

    void takeOptions(OptionReader &reader) override
    {
        m_output = reader.text("output");
        m_record = reader.text("record");
        if (m_output.isEmpty())
            reader.refuse(QStringLiteral("--output FILE.pto is missing"));
        if (reader.isSet("record") && m_record.isEmpty())
            reader.refuse(QStringLiteral("--record wants a file"));
        if (!m_record.isEmpty() && isSameFile(m_record, m_output))
            reader.refuse(QStringLiteral("--output and --record name the same file"));
    }

    QStringList outputs() const override
    {
        return m_record.isEmpty() ? QStringList(m_output) : QStringList{m_output, m_record};
    }

    ExitCode run(const ProjectRecord &record, const PictureTable &pictures) override
    {
        QString problem;
        const auto project = projectOf(record, pictures, &problem);
        if (!project) {
            console::complain(problem);
            return ExitCode::Failed;
        }
        QVector<OutputFile> files{
            {m_output, projectText(*project, QFileInfo(m_output).absolutePath())}};
        if (!m_record.isEmpty())
            files.append({m_record, recordToJson(record)});
        problem = writeWhole(files);
        if (!problem.isEmpty()) {
            console::complain(problem);
            return ExitCode::Failed;
        }
        const auto used = std::accumulate(record.groups.begin(), record.groups.end(), 0,
            [](int sum, const QStringList &stack) { return sum + stack.size(); });
        console::print(QStringLiteral("%1: %2 locations, %3 pictures, %4 links\n")
                           .arg(m_output)
                           .arg(record.groups.size())
                           .arg(used)
                           .arg(record.links.size()));
        return ExitCode::Done;
    }

private:
    QString m_output;
    QString m_record;
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
