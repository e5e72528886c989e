// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/ProjectCommand.h"

#include "align/RecordJson.h"

#include <QFileInfo>

std::vector<OptionText> ProjectCommand::options() const
{
    std::vector<OptionText> options{{"output", "FILE.pto", outputText()},
        {"record", "FILE.json", "where the project record is written too"}};
    const std::vector<OptionText> own = ownOptions();
    options.insert(options.end(), own.begin(), own.end());
    return options;
}

void ProjectCommand::takeOptions(OptionReader &reader)
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

QStringList ProjectCommand::outputs() const
{
    return m_record.isEmpty() ? QStringList(m_output) : QStringList{m_output, m_record};
}

bool ProjectCommand::write(const PtoProject &project, const ProjectRecord &record) const
{
    QVector<OutputFile> files{{m_output, projectText(project, QFileInfo(m_output).absolutePath())}};
    if (!m_record.isEmpty())
        files.append({m_record, recordToJson(record)});
    const QString problem = writeWhole(files);
    if (!problem.isEmpty())
        console::complain(problem);
    return problem.isEmpty();
}
