// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/OutputFile.h"
#include "align/PictureFacts.h"
#include "apps/panohost/Console.h"
#include "apps/panohost/Options.h"
#include "host/ProjectRecord.h"

#include <optional>
#include <vector>

/// A command that begins with an import: "panohost NAME HEAD ...", or, where it takes them, with
/// the record of an earlier one: "panohost NAME --record-in RECORD.json ...".
class HeadCommand {
public:
    virtual ~HeadCommand() = default;

    virtual QString name() const = 0;
    /// The command's own options, the output's first. "force" and "help" are everybody's.
    virtual std::vector<OptionText> options() const = 0;
    /// One sentence for the help, with its full stop.
    virtual QString description() const = 0;
    virtual bool takesRecords() const { return true; }

    /// Takes the values of options().
    virtual void takeOptions(OptionReader &reader) = 0;
    /// The files that run() will write; none of them is written over unasked.
    virtual QStringList outputs() const = 0;
    virtual OutputGuard::Writes writes() const { return OutputGuard::Writes::Projects; }

    /// Does what is to be done with what was imported.
    virtual ExitCode run(const ProjectRecord &record, const PictureTable &pictures) = 0;
};

/// \a arguments are those behind the command's name.
ExitCode runHeadCommand(HeadCommand &command, const QStringList &arguments);

/// How \a command is called: all options, with the heads that know them.
QString helpOf(const HeadCommand &command);

/// The record in the file at \a path; nothing, and in \a problem a sentence that names the file,
/// when there is none.
std::optional<ProjectRecord> readRecord(const QString &path, QString *problem);

/// What to do about a file that exists already, in words that follow that it does.
constexpr char kForceHint[] = "; --force writes over it";

/// Complains of what stands against \a command's outputs, given the files it reads; false when
/// something does.
bool mayWrite(const HeadCommand &command, const QStringList &inputs, bool force);

/// Complains of \a problems; false when there are some.
bool isClear(const QStringList &problems);
