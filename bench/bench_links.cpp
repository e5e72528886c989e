// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Neighbour links: the search against the plain loops of the tests, with equal lists.

#include "bench/Bench.h"
#include "geometry/Angle.h"
#include "geometry/AngleOfView.h"
#include "geometry/DirectionLinks.h"
#include "geometry/ProximityLinks.h"
#include "tests/geometry/PlainLinks.h"

#include <algorithm>
#include <cmath>
#include <malloc.h>

namespace {

using bench::Bar;
using geometry::Direction;
using geometry::View;
using Links = QVector<ProjectLink>;

constexpr int kLargest = 70'000;
/// The plain Papywizard loop over more takes longer than a minute.
constexpr int kPlainLargest = 40'000;

/// The step in degrees of a grid of \a count pictures over 360 x 90 degrees.
double stepFor(int count)
{
    return std::sqrt(360.0 * 90.0 / count);
}

QVector<Direction> grid(int count)
{
    const double step = stepFor(count);
    const int columns = static_cast<int>(360 / step);
    QVector<Direction> places;
    for (int k = 0; k < count; ++k) {
        const int column = k % columns;
        const int row = k / columns;
        places.append({geometry::toRadians(static_cast<float>(column * step)),
            geometry::toRadians(static_cast<float>(row * step - 45))});
    }
    return places;
}

/// A focal that reaches 2.1 steps with the \a share of a rule: some 15 neighbours each.
float focalFor(int count, double share)
{
    const double reach = 2.1 * stepFor(count) * geometry::kPi / 180;
    return static_cast<float>(geometry::kFrameDiagonal / 2 / std::tan(share * reach));
}

float papywizardFocal(int count)
{
    return focalFor(count, 0.65);
}

QVector<View> views(const QVector<Direction> &places, float focal)
{
    QVector<View> views;
    for (const Direction &at : places)
        views.append({at.yaw, at.pitch, static_cast<float>(geometry::halfDiagonalAngle(focal))});
    return views;
}

QVector<View> claussGrid(int count)
{
    return views(grid(count), focalFor(count, 0.7));
}

Links clauss(const QVector<View> &views)
{
    Links links;
    geometry::appendProximityLinks(views, links);
    return links;
}

bool areEqual(const Links &a, const Links &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
        [](const ProjectLink &one, const ProjectLink &other) {
            return one.kind == other.kind && one.indices == other.indices;
        });
}

/// Both ways over the same pictures; ends the program when their lists differ.
bench::Pair compare(
    int rounds, const std::function<Links()> &plain, const std::function<Links()> &quick)
{
    Links expected;
    Links found;
    const bench::Pair times = bench::sideBySide(
        rounds, [&] { expected = plain(); }, [&] { found = quick(); });
    if (!areEqual(expected, found))
        qFatal("The links differ");
    return times;
}

bench::Pair comparePapywizard(int rounds, const QVector<Direction> &places, float focal)
{
    return compare(
        rounds, [&] { return plain::directionLinks(places, focal); },
        [&] { return geometry::directionLinks(places, focal); });
}

bench::Pair compareClauss(int rounds, const QVector<View> &views)
{
    return compare(
        rounds, [&] { return plain::proximityLinks(views); }, [&] { return clauss(views); });
}

void ratios(bench::Table &table)
{
    const float focal = papywizardFocal(kLargest);
    const QVector<Direction> places = grid(kLargest);
    const double quick = bench::median(5, [&] { geometry::directionLinks(places, focal); });
    const QVector<Direction> half = grid(kPlainLargest / 2);
    const QVector<Direction> whole = grid(kPlainLargest);
    const double small = comparePapywizard(1, half, papywizardFocal(kPlainLargest / 2)).plain;
    const double large = comparePapywizard(1, whole, papywizardFocal(kPlainLargest)).plain;
    constexpr int kHalf = kPlainLargest / 2;
    const double exponent = bench::growth(kHalf, small, kPlainLargest, large);
    // It visits every pair; that a larger one leaves the cache is not held against it.
    const double plain
        = large * std::pow(double(kLargest) / kPlainLargest, std::min(exponent, 2.0));
    table.note(QStringLiteral("Papywizard links of %1, search").arg(kLargest),
        bench::number(quick) + QLatin1String(" ms"));
    table.note(QStringLiteral("Papywizard links of %1, plain loop; growth from %2")
                   .arg(kPlainLargest)
                   .arg(kPlainLargest / 2),
        QStringLiteral("%1 s; n^%2").arg(bench::number(large / 1000), bench::number(exponent)));
    table.row(QStringLiteral("Papywizard links of %1, search against plain loop as it grows")
                  .arg(kLargest),
        plain / quick, Bar::AtLeast, 800, " times");

    QVector<View> pictures = claussGrid(kLargest);
    const double search = bench::median(5, [&] { clauss(pictures); });
    const double loop = compareClauss(1, pictures).plain;
    table.note(QStringLiteral("Clauss links of %1, search; plain loop").arg(kLargest),
        QStringLiteral("%1 ms; %2 s").arg(bench::number(search), bench::number(loop / 1000)));
    table.row(QStringLiteral("Clauss links of %1, search against plain loop").arg(kLargest),
        loop / search, Bar::AtLeast, 300, " times");

    pictures[kLargest / 3].halfAngle = static_cast<float>(geometry::halfDiagonalAngle(0));
    const double oddSearch = bench::median(5, [&] { clauss(pictures); });
    const double oddLoop = compareClauss(1, pictures).plain;
    table.row(QStringLiteral("the same, one picture without a focal among them"),
        oddLoop / oddSearch, Bar::AtLeast, 200, " times");
}

void growths(bench::Table &table)
{
    constexpr int small = 5'000;
    const auto papywizard = [](int count) {
        const QVector<Direction> places = grid(count);
        return bench::median(9, [&] { geometry::directionLinks(places, papywizardFocal(count)); });
    };
    const auto clauss = [](int count) {
        const QVector<View> pictures = claussGrid(count);
        return bench::median(9, [&] { ::clauss(pictures); });
    };
    table.row(QStringLiteral("growth of the Papywizard search, 5,000 to 70,000"),
        bench::growth(small, papywizard(small), kLargest, papywizard(kLargest)), Bar::AtMost, 1.15,
        "");
    table.row(QStringLiteral("growth of the Clauss search, 5,000 to 70,000"),
        bench::growth(small, clauss(small), kLargest, clauss(kLargest)), Bar::AtMost, 1.15, "");
}

/// At most 1.2 times the loop's time, or 0.1 ms more.
void smallRow(bench::Table &table, const QString &measure, const bench::Pair &times)
{
    const bool met = times.quick <= 1.2 * times.plain || times.quick <= times.plain + 0.1;
    table.row(measure,
        QStringLiteral("%1 times (%2 against %3 ms)")
            .arg(bench::number(times.quick / times.plain), bench::number(times.quick),
                bench::number(times.plain)),
        QStringLiteral("at most 1.2 times or 0.1 ms more"), met);
}

void smallOnes(bench::Table &table)
{
    for (const int count : {50, 100, 200, 500}) {
        smallRow(table, QStringLiteral("Papywizard links of %1, search to plain loop").arg(count),
            comparePapywizard(101, grid(count), papywizardFocal(count)));
        smallRow(table, QStringLiteral("Clauss links of %1, search to plain loop").arg(count),
            compareClauss(101, claussGrid(count)));
    }
}

void everythingLinked(bench::Table &table)
{
    constexpr int count = 3'000;
    const auto row = [&](const char *measure, const bench::Pair &times) {
        table.row(QLatin1String(measure), times.quick / times.plain, Bar::AtMost, 1.5, " times");
    };
    const QVector<Direction> places = grid(count);
    const QVector<Direction> onePlace(count, Direction{0.25F, 0.5F});
    row("Papywizard links of 3,000 without a focal, search to plain loop",
        comparePapywizard(5, places, 0));
    row("Papywizard links of 3,000 at one place, search to plain loop",
        comparePapywizard(5, onePlace, 50));
    row("Clauss links of 3,000 without a focal, search to plain loop",
        compareClauss(5, views(places, 0)));
    row("Clauss links of 3,000 at one place, search to plain loop",
        compareClauss(5, views(onePlace, 50)));
}

void estimates(bench::Table &table)
{
    const QVector<Direction> places = grid(kLargest);
    const auto row = [&](const char *measure, const std::function<qint64()> &estimate) {
        qint64 links = 0;
        const double time = bench::milliseconds([&] { links = estimate(); });
        table.note(QLatin1String(measure),
            QStringLiteral("%1 links, %2 ms").arg(links).arg(bench::number(time)));
    };
    row("estimate for Papywizard links of 70,000",
        [&] { return geometry::estimateDirectionLinks(places, papywizardFocal(kLargest)); });
    row("estimate for Papywizard links of 70,000 with 1 mm",
        [&] { return geometry::estimateDirectionLinks(places, 1); });
    row("estimate for Clauss links of 70,000 with 1 mm",
        [&] { return geometry::estimateProximityLinks(views(places, 1)); });
}

void bytesPerLink(bench::Table &table)
{
    constexpr int count = 85'000;
    const QVector<View> pictures = claussGrid(count);
    const auto heap = [] {
        const struct mallinfo2 info = mallinfo2();
        return double(info.uordblks) + double(info.hblkhd);
    };
    const double before = heap();
    const Links links = clauss(pictures);
    table.row(QStringLiteral("memory of a link over %1 links").arg(links.size()),
        (heap() - before) / links.size(), Bar::AtMost, 65, " bytes");
}

} // namespace

int main()
{
    bench::Table table;
    bytesPerLink(table);
    ratios(table);
    growths(table);
    smallOnes(table);
    everythingLinked(table);
    estimates(table);
    return table.exitCode();
}
