// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Progress.h"

#include <QElapsedTimer>

/// A long task's progress: on a terminal a bar with step and time left, in a log a line at each
/// step and now and then.
class ProgressLine {
public:
    enum class Start {
        AtOnce,
        Later, ///< nothing is shown of what is done within a second, in a log within ten
    };
    explicit ProgressLine(Start start = Start::AtOnce);
    ~ProgressLine();
    ProgressLine(const ProgressLine &) = delete;
    ProgressLine &operator=(const ProgressLine &) = delete;

    /// As a Progress is told.
    void show(const QString &step, int done, int total);
    /// The same, as a Progress: false once an interruption is asked for.
    Progress untilInterrupted();

private:
    QString timeLeft(double part);

    bool m_watched;
    bool m_shown = false;
    /// Milliseconds before anything is shown.
    int m_patience;
    QString m_step;
    /// How far the task was when its present run of parts began, for the time left.
    double m_firstPart = 0;
    int m_total = 0;
    QElapsedTimer m_sinceFirst;
    QElapsedTimer m_sinceShown;
};
