// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QPair>
#include <QSet>
#include <QStringList>
#include <QVector>

/// Says where an import may write.
class OutputGuard {
public:
    /// What is written: where it is a picture itself, other pictures are written over, too.
    enum class Writes { Projects, Pictures };

    /// \a inputs are the files that the import reads: never written over, by whatever name (links
    /// included) they are called, and neither is any other picture or head's file. About other
    /// files that exist the user is to be asked.
    explicit OutputGuard(const QStringList &inputs, Writes writes = Writes::Projects);

    /// Why \a path must not be written, in words that follow its name and a colon; empty when it
    /// may.
    QString objection(const QString &path) const;

private:
    using FileId = QPair<quint64, quint64>;
    QSet<FileId> m_inputs;
    Writes m_writes;
};

/// Whether \a a and \a b are one file, or would be once written, by whatever names.
bool isSameFile(const QString &a, const QString &b);

struct OutputFile {
    QString path;
    QByteArray content;
};

/// That \a path cannot be written, and the \a reason where it is known.
QString unwritable(const QString &path, const QString &reason = {});

/// Makes the folder at \a path, with those above it. Empty when done, else what went wrong, a
/// sentence.
QString makeFolder(const QString &path);

/// Gives the file or folder \a from the name \a to on the same disk; a file is put in the place of
/// an earlier one. Empty when done, else what went wrong, a sentence.
QString moveFile(const QString &from, const QString &to);

/// Writes \a files, each whole or not at all, and none before all could be written. Empty when
/// done, else the path and what went wrong.
QString writeWhole(const QVector<OutputFile> &files);
