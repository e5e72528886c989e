// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "geometry/Angle.h"
#include "geometry/DirectionLinks.h"

#include <QRandomGenerator>
#include <QTest>
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

/// The rule, word for word, with no thought of speed. Every way to find the links must agree.
QVector<ProjectLink> linksByRule(const Directions &positions, float focal)
{
    const float twice = 2 * focal;
    const double T = std::atan(43.266615305567875 / double(twice));
    QVector<ProjectLink> links;
    for (int i = 0; i < positions.size(); ++i) {
        for (int j = 0; j < positions.size(); ++j) {
            if (i == j)
                continue;
            const float y1 = positions[i].yaw;
            const float p1 = positions[i].pitch;
            const float y2 = positions[j].yaw;
            const float p2 = positions[j].pitch;
            const double d = std::acos(std::sin(double(p1)) * std::sin(double(p2))
                + std::cos(double(p1)) * std::cos(double(p2)) * std::cos(double(y2) - double(y1)));
            const bool neighbours = T > 0.6499999761581421 * d;
            if (!neighbours)
                continue;
            float dy = y2 - y1;
            if (dy > 3.141592653589793)
                dy -= 6.2831855F;
            else if (dy < -3.141592653589793)
                dy += 6.2831855F;
            const float dp = p2 - p1;
            const double a = std::atan2(double(dp), double(dy));
            if (a > -0.7853981633974483 && a <= 0.7853981633974483)
                links.append({2, {i, j}});
            else if (a > -2.356194490192345 && a <= -0.7853981633974483)
                links.append({1, {i, j}});
        }
    }
    return links;
}

double between(QRandomGenerator &random, double low, double high)
{
    return low + random.generateDouble() * (high - low);
}

/// Places as heads take them, with everything that is awkward among them.
Directions randomPlaces(QRandomGenerator &random)
{
    Directions places;
    const double step = between(random, 2, 40);
    const double start = 360 * random.bounded(-2, 2);
    const double noise = random.bounded(2) * 0.3;
    for (int i = random.bounded(60); i > 0; --i) {
        switch (random.bounded(12)) {
        case 0:
            places += at(between(random, -720, 720), between(random, -100, 100));
            break;
        case 1:
            places += at(random.bounded(8) * 45, random.bounded(2) ? 90 : -90);
            break;
        case 2:
            places += places.isEmpty() ? at(0, 0) : places[random.bounded(places.size())];
            break;
        case 3:
            if (random.bounded(4) == 0) {
                const float odd[]{kNaN, kInf, -kInf, 1e30F, -0.0F};
                places += {odd[random.bounded(5)], odd[random.bounded(5)]};
            }
            break;
        default:
            places += at(start + random.bounded(36) * step + between(random, -noise, noise),
                (random.bounded(9) - 4) * step + between(random, -noise, noise));
        }
    }
    return places;
}

/// A focal that puts two of the places on the border of linking, as nearly as floats allow.
float borderFocal(QRandomGenerator &random, const Directions &places)
{
    const double d = geometry::distance(
        places[random.bounded(places.size())], places[random.bounded(places.size())]);
    return static_cast<float>(43.266615305567875 / (2 * std::tan(0.6499999761581421 * d)));
}

} // namespace

Q_DECLARE_METATYPE(Directions)

class tst_DirectionLinks : public QObject {
    Q_OBJECT
private slots:
    void links_data();
    void links();
    void reach_data();
    void reach();
    void agreesWithRule();
};

// With a focal of 20 mm, which reaches 72.6 degrees.
void tst_DirectionLinks::links_data()
{
    QTest::addColumn<Directions>("places");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const Directions &places, const char *expected) {
        QTest::newRow(name) << places << QString::fromLatin1(expected);
    };
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

void tst_DirectionLinks::links()
{
    QFETCH(Directions, places);
    QFETCH(QString, expected);
    QCOMPARE(text(geometry::directionLinks(places, 20)), expected);
}

void tst_DirectionLinks::reach_data()
{
    QTest::addColumn<float>("focal");
    QTest::addColumn<double>("distance");
    QTest::addColumn<bool>("linked");
    QTest::newRow("50 mm, near") << 50.0F << 35.9 << true;
    QTest::newRow("50 mm, far") << 50.0F << 36.1 << false;
    QTest::newRow("0 is as wide as can be") << 0.0F << 138.0 << true;
    QTest::newRow("0, behind") << 0.0F << 139.0 << false;
    QTest::newRow("minus 0 sees nothing") << -0.0F << 1.0 << false;
    QTest::newRow("negative sees nothing") << -50.0F << 1.0 << false;
    QTest::newRow("not a number sees nothing") << kNaN << 1.0 << false;
    QTest::newRow("infinite sees nothing") << kInf << 1e-30 << false;
    QTest::newRow("twice it is infinite") << 3e38F << 1.0 << false;
}

void tst_DirectionLinks::reach()
{
    QFETCH(float, focal);
    QFETCH(double, distance);
    QFETCH(bool, linked);
    QCOMPARE(text(geometry::directionLinks({at(0, 0), at(0, -distance)}, focal)),
        linked ? QStringLiteral("1: 0 1") : QString());
}

void tst_DirectionLinks::agreesWithRule()
{
    QRandomGenerator random(4326);
    int links = 0;
    for (int round = 0; round < 2000; ++round) {
        const Directions places = randomPlaces(random);
        const bool onBorder = places.size() > 1 && random.bounded(2) == 0;
        const float focal
            = onBorder ? borderFocal(random, places) : static_cast<float>(between(random, -1, 200));
        const QVector<ProjectLink> found = geometry::directionLinks(places, focal);
        QCOMPARE(text(found), text(linksByRule(places, focal)));
        links += found.size();
    }
    QVERIFY(links > 10000);
}

QTEST_GUILESS_MAIN(tst_DirectionLinks)
#include "tst_DirectionLinks.moc"
