// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "geometry/HeadShot.h"
#include "tests/support/Table.h"

namespace {

constexpr float kMax = std::numeric_limits<float>::max();
constexpr float kInf = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

QVector<HeadShot> shotsAt(const QVector<float> &angles)
{
    QVector<HeadShot> shots(angles.size());
    for (int i = 0; i < angles.size(); ++i) {
        shots[i].yaw = angles[i];
        shots[i].pitch = -angles[i];
    }
    return shots;
}

QString text(const AngleRange &range)
{
    return range.isUnknown()
        ? QStringLiteral("unknown")
        : QStringLiteral("%1,%2").arg(double(range.min)).arg(double(range.max));
}

} // namespace

Q_DECLARE_METATYPE(QVector<float>)

class tst_HeadShot : public QObject {
    Q_OBJECT

private slots:
    void ranges_data()
    {
        const Table<QVector<float>, QString, QString> row("yaws", "yaw", "pitch");
        row("no shots is not unknown", {}, "3.40282e+38,-3.40282e+38", "3.40282e+38,-3.40282e+38");
        row("one", {10}, "10,10", "-10,-10");
        row("mixed", {-144, 180, 0}, "-144,180", "-180,144");
        row("not a number widens nothing", {kNaN, 3, kNaN, 1}, "1,3", "-3,-1");
        row("not a number alone", {kNaN}, "3.40282e+38,-3.40282e+38", "3.40282e+38,-3.40282e+38");
        row("infinite", {0, kInf}, "0,inf", "-inf,0");
        row("largest looks unknown", {0, kMax}, "unknown", "unknown");
    }
    void ranges()
    {
        QFETCH(QVector<float>, yaws);
        QFETCH(QString, yaw);
        QFETCH(QString, pitch);

        const ShotRanges ranges = rangesOf(shotsAt(yaws));
        QCOMPARE(text(ranges.yaw), yaw);
        QCOMPARE(text(ranges.pitch), pitch);
        // Mirroring the range is ranging the mirrored shots.
        QCOMPARE(text(ranges.yaw.mirrored()), pitch);
        QCOMPARE(text(ranges.pitch.mirrored()), yaw);
    }

    void invertsAndBack()
    {
        QVector<HeadShot> shots = shotsAt({0, 12.5F, kInf});
        invertPitches(shots);
        QCOMPARE(shots[1].pitch, 12.5F);
        QCOMPARE(shots[2].pitch, kInf);
        QCOMPARE(shots[1].yaw, 12.5F);
        invertPitches(shots);
        QCOMPARE(shots[1].pitch, -12.5F);
        QCOMPARE(text(AngleRange().mirrored()), QStringLiteral("unknown"));
    }

    void rollsPileUp()
    {
        QVector<HeadShot> shots = shotsAt({1, 2});
        shots[1].roll = 1e9F;
        for (int i = 0; i < 5; ++i)
            turnRolls(shots, 90);
        QCOMPARE(shots[0].roll, 450.0F);
        // 90 is more than half the 64 between neighbouring floats here, and each turn rounds to one
        // step.
        QCOMPARE(shots[1].roll, 1e9F + 5 * 64);
        turnRolls(shots, -90);
        QCOMPARE(shots[0].roll, 360.0F);
    }
};

QTEST_GUILESS_MAIN(tst_HeadShot)
#include "tst_HeadShot.moc"
