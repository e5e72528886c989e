// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reader/Finding.h"

#include <QMap>
#include <QString>
#include <utility>

/// How a run of the command line ends.
enum class ExitCode {
    Done = 0,
    /// The import was refused, or something went wrong.
    Failed = 1,
    WrongUsage = 2,
};

/// Where the command line speaks: results on standard output, everything else on standard error.
namespace console {

/// Keeps back what Qt's decoders write to standard error of pictures: they name no file, and what
/// comes of it is told elsewhere. Warnings of a category still appear. To be called once.
void muteDecoders();
/// Like everything here, with control characters spelt out; but line breaks count.
void print(const QString &text);
/// Whether all that was printed could be written.
bool isPrinted();
/// A line that begins with the program's name.
void complain(const QString &sentence);
/// Whether someone watches the complaints.
bool isWatched();
/// Shows \a sentence in place of the one shown so before; an empty one takes it away.
void showPassing(const QString &sentence);

} // namespace console

/// Complains of what is found in a head's file, each with file, line and value; of what a file may
/// be full of only once, with its number.
class FindingReport {
public:
    explicit FindingReport(QString file)
        : m_file(std::move(file))
    {
    }

    void add(const Finding &finding);
    /// To be called when the file has been read.
    void finish() const;

    bool isEmpty() const { return m_kinds.isEmpty(); }
    bool has(Finding::Cause cause) const { return m_kinds.contains(cause); }

private:
    struct Kind {
        Finding first;
        int count = 0;
    };
    void complain(const Finding &finding, const QString &more = {}) const;

    QString m_file;
    QMap<Finding::Cause, Kind> m_kinds;
};
