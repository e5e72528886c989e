// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "geometry/Angle.h"
#include "geometry/AngleOfView.h"
#include "geometry/LinkLimit.h"
#include "tests/geometry/PlainLinks.h"
#include "tests/support/Table.h"

#include <QRandomGenerator>
#include <cmath>
#include <limits>

using geometry::Direction;
using geometry::View;

namespace {

using Links = QVector<ProjectLink>;
using Places = QVector<Direction>;

constexpr float kInf = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

double between(QRandomGenerator &random, double low, double high)
{
    return low + random.generateDouble() * (high - low);
}

Direction inDegrees(double yaw, double pitch)
{
    return {geometry::toRadians(float(yaw)), geometry::toRadians(float(pitch))};
}

/// Rows as heads take them, across the seam at 360 degrees, with whole steps or a little off.
Places rows(QRandomGenerator &random, int count)
{
    const double step = between(random, 1, 30);
    const double noise = random.bounded(2) * 0.3;
    const int turn = 360 * random.bounded(-2, 3);
    Places places;
    for (int k = 0; k < count; ++k) {
        places += inDegrees(turn + random.bounded(72) * step + between(random, -noise, noise),
            (random.bounded(9) - 4) * step + between(random, -noise, noise));
    }
    return places;
}

/// So narrow that rounding decides: sights a few ten thousandths of a degree apart.
Places tele(QRandomGenerator &random, int count)
{
    const double step = std::exp(between(random, std::log(1e-6), std::log(1e-3)));
    const double pitch = random.bounded(2) * between(random, -1.5, 1.5);
    Places places;
    for (int k = 0; k < count; ++k) {
        places += {float(random.bounded(20) * step * (1 + 1e-6 * random.bounded(3))),
            float(pitch + random.bounded(20) * step)};
    }
    return places;
}

Places sphere(QRandomGenerator &random, int count)
{
    Places places;
    for (int k = 0; k < count; ++k) {
        places += {
            float(between(random, 0, 2 * geometry::kPi)), float(std::asin(between(random, -1, 1)))};
    }
    return places;
}

Places poles(QRandomGenerator &random, int count)
{
    Places places;
    for (int k = 0; k < count; ++k) {
        const double off = random.bounded(4) * between(random, -2, 2);
        places += inDegrees(random.bounded(16) * 22.5, (random.bounded(2) ? 90 : -90) + off);
    }
    return places;
}

/// What no head writes, among what one may write.
Places absurd(QRandomGenerator &random, int count)
{
    const QVector<float> odd = {kNaN, kInf, -kInf, 1e30F, -1e30F, 3e9F, 3.00001e9F, 5e5F, -0.0F,
        499.9F, 500.1F, std::numeric_limits<float>::denorm_min()};
    Places places = rows(random, count);
    for (Direction &at : places) {
        if (random.bounded(3) == 0)
            at.yaw = odd[random.bounded(odd.size())];
        if (random.bounded(9) == 0)
            at.pitch = odd[random.bounded(odd.size())];
    }
    return places;
}

void addDuplicates(QRandomGenerator &random, Places &places)
{
    for (int k = 1; k < places.size(); ++k) {
        if (random.bounded(5) == 0)
            places[k] = places[random.bounded(k)];
    }
}

/// The distance of two of the places: a lens that reaches just as far has border pairs.
double someDistance(QRandomGenerator &random, const Places &places)
{
    return geometry::distance(
        places[random.bounded(places.size())], places[random.bounded(places.size())]);
}

float focalReaching(double halfAngle)
{
    return float(geometry::kFrameDiagonal / 2 / std::tan(halfAngle));
}

float oddFocal(QRandomGenerator &random)
{
    const QVector<float> odd
        = {0.0F, -0.0F, -24.0F, kNaN, kInf, -kInf, 1e-30F, 1e30F, 3e38F, 1, 8, 1e5F};
    return odd[random.bounded(odd.size())];
}

float someFocal(QRandomGenerator &random, const Places &places, double share)
{
    if (random.bounded(8) == 0)
        return oddFocal(random);
    return random.bounded(3) ? focalReaching(share * someDistance(random, places))
                             : float(between(random, 5, 800));
}

/// Most pictures with one lens, now and then a second one and odd ones among them.
QVector<View> views(QRandomGenerator &random, const Places &places)
{
    const float first = someFocal(random, places, 0.7);
    const float second = someFocal(random, places, 0.7);
    const int seconds = random.bounded(3) * 40;
    const int odds = random.bounded(3) * 2;
    QVector<View> views;
    for (const Direction &at : places) {
        float focal = random.bounded(100) < seconds ? second : first;
        if (random.bounded(100) < odds)
            focal = oddFocal(random);
        views += {at.yaw, at.pitch, float(geometry::halfDiagonalAngle(focal))};
    }
    return views;
}

QString text(const ProjectLink &link)
{
    QString text = QString::number(link.kind);
    for (const int index : link.indices)
        text += QLatin1Char(' ') + QString::number(index);
    return text;
}

/// Where two lists first differ; empty when they are equal.
QString difference(const Links &found, const Links &expected)
{
    for (int k = 0; k < qMin(found.size(), expected.size()); ++k) {
        if (found[k].kind != expected[k].kind || found[k].indices != expected[k].indices)
            return QStringLiteral("link %1 is %2, not %3")
                .arg(QString::number(k), text(found[k]), text(expected[k]));
    }
    return found.size() == expected.size()
        ? QString()
        : QStringLiteral("%1 links, not %2").arg(found.size()).arg(expected.size());
}

Links proximityLinks(const QVector<View> &views)
{
    Links links;
    geometry::appendProximityLinks(views, links);
    return links;
}

} // namespace

using MakePlaces = Places (*)(QRandomGenerator &, int);
Q_DECLARE_METATYPE(MakePlaces)

class tst_NeighbourSearch : public QObject {
    Q_OBJECT

private slots:
    void findsWhatEveryPairGives_data()
    {
        const Table<MakePlaces> row("make");
        row("rows", MakePlaces(rows));
        row("tele", MakePlaces(tele));
        row("sphere", MakePlaces(sphere));
        row("poles", MakePlaces(poles));
        row("absurd", MakePlaces(absurd));
    }
    void findsWhatEveryPairGives()
    {
        QFETCH(const MakePlaces, make);
        QRandomGenerator random(4326);
        qint64 links = 0;
        qint64 pairs = 0;
        for (int round = 0; round < 80; ++round) {
            const int count = round % 40 == 0 ? 1000 : 1 + random.bounded(120);
            Places places = make(random, count);
            if (random.bounded(2))
                addDuplicates(random, places);

            const float focal = someFocal(random, places, 0.65);
            const Links directions = plain::directionLinks(places, focal);
            QCOMPARE(difference(geometry::directionLinks(places, focal), directions), QString());
            QCOMPARE(geometry::estimateDirectionLinks(places, focal), qint64(directions.size()));

            const QVector<View> pictures = views(random, places);
            const Links proximities = plain::proximityLinks(pictures);
            QCOMPARE(difference(proximityLinks(pictures), proximities), QString());
            QCOMPARE(geometry::estimateProximityLinks(pictures), qint64(proximities.size()));

            links += directions.size() + proximities.size();
            pairs += qint64(count) * (count - 1);
        }
        QVERIFY(links > pairs / 20 && links < pairs * 19 / 20);
    }

    // A few hundred of each lens, so that every grid has more than one cell.
    void mixesLenses()
    {
        QRandomGenerator random(70);
        const Places places = sphere(random, 3000);
        QVector<View> pictures;
        for (const Direction &at : places) {
            const float focal = QVector<float>{0, 35, 90, 180, 400, 900, -50}[random.bounded(7)];
            const bool isOdd = focal == 0 && random.bounded(50) != 0;
            pictures
                += {at.yaw, at.pitch, float(geometry::halfDiagonalAngle(isOdd ? 2000 : focal))};
        }
        const Links expected = plain::proximityLinks(pictures);
        QCOMPARE(difference(proximityLinks(pictures), expected), QString());
        QCOMPARE(geometry::estimateProximityLinks(pictures), qint64(expected.size()));
    }

    void estimates_data()
    {
        const Table<float, int> row("focal", "without");
        row("tele", 1500.0F, 0);
        row("tele, some without a focal", 1500.0F, 20);
        row("wide", 24.0F, 0);
        row("everything", 1.0F, 0);
        row("none", -1.0F, 0);
    }

    // Too many to count: the share of the sphere that a picture reaches tells how many they are.
    void estimates()
    {
        QFETCH(const float, focal);
        QFETCH(const int, without);
        constexpr int count = 20'000;
        QRandomGenerator random(20);
        const Places places = sphere(random, count);
        const auto expected = [&](double reach, double pictures) {
            return (1 - std::cos(reach)) / 2 * count * pictures / (pictures == count ? 2 : 1);
        };
        const auto check = [](qint64 estimate, double expected) {
            QVERIFY2(std::abs(double(estimate) - expected) <= 0.1 * expected,
                qPrintable(QStringLiteral("%1, not %2").arg(estimate).arg(expected)));
        };
        const double halfAngle = qMax(0.0, geometry::halfDiagonalAngle(focal));

        check(geometry::estimateDirectionLinks(places, focal), expected(halfAngle / 0.65, count));

        QVector<View> pictures;
        for (const Direction &at : places)
            pictures += {at.yaw, at.pitch, float(halfAngle)};
        for (int k = 0; k < without; ++k)
            pictures[k * 37].halfAngle = float(geometry::kPi / 2);
        check(geometry::estimateProximityLinks(pictures),
            expected(halfAngle / 0.7, count) + expected(geometry::kPi / 2 / 0.7, without));
    }
};

QTEST_GUILESS_MAIN(tst_NeighbourSearch)
#include "tst_NeighbourSearch.moc"
