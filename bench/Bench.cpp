// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/Bench.h"

#include <QFile>
#include <QTextStream>
#include <QVector>
#include <algorithm>
#include <cmath>
#include <ctime>

namespace {

void print(const QString &line)
{
    QTextStream(stdout) << line << '\n';
}

/// In milliseconds.
double processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

double medianOf(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

/// A line of /proc/self/status, which is in kB.
double status(const char *name)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(name))
            return line.mid(line.indexOf(':') + 1).trimmed().split(' ').first().toDouble() * 1024;
    }
    return 0;
}

} // namespace

void bench::Table::row(
    const QString &measure, double figure, Bar kind, double bar, const char *unit)
{
    const bool met = kind == Bar::AtMost ? figure <= bar : figure >= bar;
    const auto text = [&](double value) { return number(value) + QLatin1String(unit); };
    const QString limit
        = kind == Bar::AtMost ? QStringLiteral("at most ") : QStringLiteral("at least ");
    row(measure, text(figure), limit + text(bar), met);
}

void bench::Table::row(const QString &measure, const QString &figure, const QString &bar, bool met)
{
    print(QStringLiteral("| %1 | %2 | %3 | %4 |")
              .arg(measure, figure, bar, met ? QStringLiteral("met") : QStringLiteral("missed")));
    m_missed = m_missed || !met;
}

void bench::Table::note(const QString &measure, const QString &figure)
{
    print(QStringLiteral("| %1 | %2 | | |").arg(measure, figure));
}

double bench::milliseconds(const std::function<void()> &work)
{
    const double start = processorTime();
    work();
    return processorTime() - start;
}

bench::Pair bench::sideBySide(
    int rounds, const std::function<void()> &plain, const std::function<void()> &quick)
{
    QVector<double> plainTimes;
    QVector<double> quickTimes;
    for (int round = 0; round < rounds; ++round) {
        plainTimes.append(milliseconds(plain));
        quickTimes.append(milliseconds(quick));
    }
    return {medianOf(plainTimes), medianOf(quickTimes)};
}

double bench::median(int rounds, const std::function<void()> &work)
{
    QVector<double> times;
    for (int round = 0; round < rounds; ++round)
        times.append(milliseconds(work));
    return medianOf(times);
}

double bench::growth(double smallSize, double smallTime, double largeSize, double largeTime)
{
    return std::log(largeTime / smallTime) / std::log(largeSize / smallSize);
}

double bench::peakMemory()
{
    return status("VmHWM");
}

double bench::memory()
{
    return status("VmRSS");
}

QString bench::number(double value)
{
    const double size = std::abs(value);
    const int decimals = size >= 100 || size == 0 ? 0 : size >= 10 ? 1 : size >= 1 ? 2 : 3;
    return QString::number(value, 'f', decimals);
}
