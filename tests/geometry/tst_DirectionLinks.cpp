// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "geometry/Angle.h"
#include "geometry/DirectionLinks.h"
#include "tests/support/Table.h"

#include <cmath>
#include <limits>

using geometry::Direction;

namespace {

constexpr float kInf = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

using Directions = QVector<Direction>;

/// In degrees.
Direction at(double yaw, double pitch)
{
    return {geometry::toRadians(static_cast<float>(yaw)),
        geometry::toRadians(static_cast<float>(pitch))};
}

QString text(const QVector<ProjectLink> &links)
{
    QStringList all;
    for (const ProjectLink &link : links) {
        if (link.indices.size() != 2)
            return QStringLiteral("not a pair");
        all += QStringLiteral("%1: %2 %3").arg(link.kind).arg(link.indices[0]).arg(link.indices[1]);
    }
    return all.join(QStringLiteral(", "));
}

} // namespace

Q_DECLARE_METATYPE(Directions)

class tst_DirectionLinks : public QObject {
    Q_OBJECT

private slots:
    // With a focal of 20 mm, which reaches 72.6 degrees.
    void links_data()
    {
        const Table<Directions, QString> row("places", "expected");
        row("nothing", {}, "");
        row("one", {at(0, 0)}, "");
        row("left to right", {at(0, 0), at(30, 0)}, "2: 0 1");
        row("right to left is told from the left", {at(30, 0), at(0, 0)}, "2: 1 0");
        row("down", {at(0, 30), at(0, 0)}, "1: 0 1");
        row("up is told from above", {at(0, 0), at(0, 30)}, "1: 1 0");
        row("a serpentine column by column", {at(0, 20), at(0, -20), at(50, -20), at(50, 20)},
            "1: 0 1, 2: 0 2, 2: 0 3, 2: 1 2, 2: 1 3, 1: 3 2");
        row("exactly 45 degrees up is to the right", {at(0, 0), at(16, 16)}, "2: 0 1");
        row("exactly 45 degrees down is down", {at(0, 16), at(16, 0)}, "1: 0 1");
        row("too far", {at(0, 0), at(73, 0)}, "");
        row("over 360", {at(350, 0), at(10, 0)}, "2: 0 1");
        row("over -180", {at(-170, 0), at(170, 0)}, "2: 1 0");
        row("over 360, down", {at(355, 30), at(5, 0)}, "1: 0 1");
        row("opposite sides of the pole", {at(0, 80), at(180, 80)}, "2: 1 0");
        row("two turns apart come one turn nearer, not two", {at(0, 0), at(730, 0)}, "2: 0 1");
        row("same place links both ways", {at(0, 0), at(0, 0)}, "2: 0 1, 2: 1 0");
        row("beyond the pole", {at(0, 91.2), at(0, 60)}, "1: 0 1");
        row("not a number", {{kNaN, 0}, {0, kNaN}, at(0, 0), {kInf, 0}, {0, -kInf}, at(10, 0)},
            "2: 2 5");
    }
    void links()
    {
        QFETCH(Directions, places);
        QFETCH(QString, expected);
        QCOMPARE(text(geometry::directionLinks(places, 20)), expected);
    }

    void reach_data()
    {
        const Table<float, double, bool> row("focal", "distance", "linked");
        row("50 mm, near", 50.0F, 35.9, true);
        row("50 mm, far", 50.0F, 36.1, false);
        row("0 is as wide as can be", 0.0F, 138.0, true);
        row("0, behind", 0.0F, 139.0, false);
        row("minus 0 sees nothing", -0.0F, 1.0, false);
        row("negative sees nothing", -50.0F, 1.0, false);
        row("not a number sees nothing", kNaN, 1.0, false);
        row("infinite sees nothing", kInf, 1e-30, false);
        row("twice it is infinite", 3e38F, 1.0, false);
    }
    void reach()
    {
        QFETCH(float, focal);
        QFETCH(double, distance);
        QFETCH(bool, linked);
        QCOMPARE(text(geometry::directionLinks({at(0, 0), at(0, -distance)}, focal)),
            linked ? QStringLiteral("1: 0 1") : QString());
    }
};

QTEST_GUILESS_MAIN(tst_DirectionLinks)
#include "tst_DirectionLinks.moc"
