// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/window/HeadFile.h"

#include <QStringList>

/// What an import stands at, as its page publishes it and the host counts.
struct ImportState {
    /// Whether the head has a file at all.
    bool wantsFile = false;
    /// The page's file; its path is empty while none is chosen.
    HeadFile file;
    /// Why what was dropped last was left out, a sentence; empty as a rule.
    QString refusal;
    int pictures = 0;
    /// Names that the pictures' numbers skip.
    QStringList skipped;
    int read = 0;
    int unreadable = 0;
    /// What the page itself says.
    bool isComplete = false;

    bool isReading() const { return read + unreadable < pictures; }
    /// Whether all is there without what cannot be read. Only a file can tell: in a mere grid all
    /// that comes later would move up.
    bool isWholeWithoutUnreadable() const
    {
        return !isReading() && unreadable > 0 && read > 0 && wantsFile && file.shots == read;
    }
};

struct ImportAdvice {
    enum class Kind {
        NextStep,
        /// Pictures are being read.
        Busy,
        /// The import cannot go on like this.
        Problem,
        /// The page may be accepted.
        Ready,
    };
    Kind kind = Kind::NextStep;
    /// One or two sentences.
    QString text;
};

/// What to do next, in words that a photographer understands.
ImportAdvice adviceFor(const ImportState &state);

/// The names that the numbers in those of \a pictures skip, "IMG_0002.jpg" between IMG_0001.jpg and
/// IMG_0003.jpg. None where names differ in more than a number, or more than \a most are skipped.
QStringList skippedNames(const QStringList &pictures, int most);

/// How long reading will still take.
class ReadingPace {
public:
    /// Begins anew at \a time, in milliseconds.
    void start(qint64 time);
    /// \a done pictures of all have been read at \a time.
    void update(qint64 time, int done);
    /// Milliseconds that \a left more pictures will take; -1 while that cannot be said.
    qint64 timeFor(int left) const;

private:
    qint64 m_start = 0;
    qint64 m_elapsed = 0;
    int m_done = 0;
};

/// "about 20 seconds left"; empty for a negative time.
QString timeLeftText(qint64 milliseconds);
