// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>
#include <QString>

/// A long task's progress: on a terminal a bar with step and time left, in a log a line at each
/// step and now and then.
class ProgressLine {
public:
    ProgressLine();
    ~ProgressLine();
    ProgressLine(const ProgressLine &) = delete;
    ProgressLine &operator=(const ProgressLine &) = delete;

    /// As a Progress is told.
    void show(const QString &step, int done, int total);

private:
    QString timeLeft(double part);

    bool m_watched;
    bool m_shown = false;
    QString m_step;
    /// How far the task was when its present run of parts began, for the time left.
    double m_firstPart = 0;
    int m_total = 0;
    QElapsedTimer m_sinceFirst;
    QElapsedTimer m_sinceShown;
};
