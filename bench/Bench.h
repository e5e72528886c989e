// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <functional>

/// What the measuring programs share. Each prints rows of one table on standard output.
namespace bench {

/// Whether a figure is to stay below its bar or to reach it.
enum class Bar { AtMost, AtLeast };

/// Prints rows `| measure | figure | bar | met or missed |`.
class Table {
public:
    /// \a unit follows figure and bar, "x" or " ms" for instance.
    void row(const QString &measure, double figure, Bar kind, double bar, const char *unit);
    /// For what is known only as a yes or a no; \a figure says what was seen.
    void row(const QString &measure, const QString &figure, const QString &bar, bool met);
    /// A figure without a bar.
    void note(const QString &measure, const QString &figure);

    /// What the program exits with: 1 when a bar was missed.
    int exitCode() const { return m_missed ? 1 : 0; }

private:
    bool m_missed = false;
};

/// Processor time that \a work takes in this thread, in milliseconds: what it takes on a machine
/// that does nothing else. All times below are such.
double milliseconds(const std::function<void()> &work);

/// Medians of two ways' times in milliseconds, measured turn by turn so that what else the machine
/// does falls on both.
struct Pair {
    double plain = 0;
    double quick = 0;
};
Pair sideBySide(int rounds, const std::function<void()> &plain, const std::function<void()> &quick);

/// Median time of \a work, in milliseconds.
double median(int rounds, const std::function<void()> &work);

/// How a time grows with the size: the exponent between two measurements.
double growth(double smallSize, double smallTime, double largeSize, double largeTime);

/// Most memory that this process has held so far, in bytes.
double peakMemory();
/// Memory that this process holds, in bytes.
double memory();

/// A figure in a table, with three significant digits.
QString number(double value);

} // namespace bench
