// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clauss/ClaussScript.h"
#include "tests/clauss/LiteralScript.h"

#include <QElapsedTimer>
#include <QTextStream>
#include <functional>

namespace {

constexpr int kLines = 70'000;
constexpr int kRuns = 9;

/// Three lines a shot and some of other kinds, as a head's software writes them.
QByteArray makeScript()
{
    QByteArray script;
    for (int line = 0; line < kLines;) {
        const int shot = line / 4;
        script += "op_h-angle=" + QByteArray::number(shot % 72 * 5) + "\r\n";
        script += "op_v-angle=" + QByteArray::number(shot / 72 % 19 * 10 - 90) + "\r\n";
        script += "op_wait=500\r\n";
        script += "op_shoot\r\n";
        line += 4;
    }
    return script;
}

/// Shortest of some runs, in milliseconds.
double milliseconds(const std::function<void()> &work)
{
    qint64 shortest = std::numeric_limits<qint64>::max();
    for (int run = 0; run < kRuns; ++run) {
        QElapsedTimer timer;
        timer.start();
        work();
        shortest = qMin(shortest, timer.nsecsElapsed());
    }
    return double(shortest) / 1e6;
}

} // namespace

/// Reads the same script by regular expression, line by line, and by the reader.
int main()
{
    const QByteArray script = makeScript();
    QVector<HeadShot> byExpression;
    QVector<HeadShot> byReader;
    const double expression = milliseconds([&] { byExpression = literal::read(script).shots; });
    const double reader = milliseconds([&] { byReader = readClaussScript(script).shots; });

    QTextStream out(stdout);
    out << script.count('\n') << " lines, " << byReader.size() << " shots, best of " << kRuns
        << " runs\n"
        << "literal: " << expression << " ms\n"
        << "reader:  " << reader << " ms\n"
        << "ratio:   " << expression / reader << '\n';
    return byExpression.size() == byReader.size() ? 0 : 1;
}
