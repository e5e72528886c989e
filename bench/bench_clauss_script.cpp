// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Clauss scripts: the reader against the format's regular expression, line by line.

#include "bench/Bench.h"
#include "clauss/ClaussScript.h"
#include "tests/clauss/LiteralScript.h"

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

} // namespace

int main()
{
    const QByteArray script = makeScript();
    QVector<HeadShot> byExpression;
    QVector<HeadShot> byReader;
    const bench::Pair times = bench::sideBySide(
        kRuns, [&] { byExpression = literal::read(script).shots; },
        [&] { byReader = readClaussScript(script).shots; });
    if (byExpression.size() != byReader.size())
        qFatal("The shots differ");

    bench::Table table;
    table.note(
        QStringLiteral("Clauss script of 70,000 lines: by regular expression; by the reader"),
        QStringLiteral("%1 ms; %2 ms").arg(bench::number(times.plain), bench::number(times.quick)));
    table.row(QStringLiteral("Clauss script of 70,000 lines: reader against regular expression"),
        times.plain / times.quick, bench::Bar::AtLeast, 20, " times");
    return table.exitCode();
}
