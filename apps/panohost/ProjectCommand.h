// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PtoProject.h"
#include "apps/panohost/HeadCommand.h"

/// A command that writes a project and, when asked to, the record it was made of.
class ProjectCommand : public HeadCommand {
public:
    std::vector<OptionText> options() const override;
    void takeOptions(OptionReader &reader) override;
    QStringList outputs() const override;

protected:
    /// What the help says of --output.
    virtual const char *outputText() const = 0;
    /// The options beside --output and --record.
    virtual std::vector<OptionText> ownOptions() const { return {}; }

    QString output() const { return m_output; }
    /// Writes what was asked for, all of it or nothing; complains and returns false when it cannot.
    bool write(const PtoProject &project, const ProjectRecord &record) const;

private:
    QString m_output;
    QString m_record;
};
