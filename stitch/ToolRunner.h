// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>

/// One run of another program.
struct ToolCall {
    /// A name, found along PATH, or a path.
    QString program;
    QStringList arguments;
    /// The file that the program makes: it counts as failed when that is missing or empty
    /// afterwards, whatever its exit code says. Several of the tools exit with 0 then.
    QString result;
};

/// How a number of runs ended.
struct ToolOutcome {
    enum class End { Done, Cancelled, Failed };
    End end = End::Done;
    /// When failed: a sentence with the program's name, what became of it, its last line and the
    /// log's place.
    QString problem;
};

/// Runs other programs, with arguments and never by a shell, and waits for them without being
/// deaf: it hears their lines, may be told to stop, and notices when one hangs. All that they say
/// goes to a log. What they start ends with them, and they end with this process.
///
/// Works in any thread; needs a QCoreApplication.
class ToolRunner {
public:
    struct Settings {
        /// Appended to.
        QString log;
        /// For the programs' own temporary files.
        QString temporaryFolder;
        /// How many run at a time; each is told to use its share of the cores.
        int jobs = 1;
        /// A program that for so many milliseconds neither says a word nor computes hangs.
        int patience = 120000;
        /// How often keepOn is asked, in milliseconds.
        int pulse = 100;
    };
    struct Listener {
        /// Asked regularly; false stops everything.
        std::function<bool()> keepOn;
        /// A line, without its end, of the call at that place.
        std::function<void(int call, const QByteArray &line)> line;
        /// The call at that place has ended well. A sentence stops everything as failed.
        std::function<QString(int call)> done;
    };

    explicit ToolRunner(Settings settings)
        : m_settings(std::move(settings))
    {
    }

    /// Runs \a calls, beginning in their order. When it returns none of them is running.
    ToolOutcome run(const QVector<ToolCall> &calls, const Listener &listener) const;

private:
    Settings m_settings;
};

/// A sentence that names those of \a programs that are not installed, and how to get them; empty
/// when all are there.
QString missingTools(const QStringList &programs);
