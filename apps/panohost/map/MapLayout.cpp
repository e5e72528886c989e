// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/map/MapLayout.h"

#include "geometry/Median.h"
#include "gigapan/GigapanToSPP.h"

#include <QCoreApplication>
#include <QLocale>
#include <QMap>
#include <QtMath>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kNowhere = std::numeric_limits<double>::quiet_NaN();
/// Part of the way to its neighbour that a picture covers on the map.
constexpr double kCellShare = 0.74;
constexpr double kGridStep = 10;
/// The shape of pictures that are not at hand.
constexpr QSize kUsualSize(6000, 4000);

struct LayoutTexts {
    Q_DECLARE_TR_FUNCTIONS(MapLayout)
};

bool standsByQuarterTurn(const std::optional<PictureFacts> &first)
{
    return first && std::abs(first->uprightTurn()) == 90;
}

/// -179.5 < yaw <= 180.5, so that rounding does not tear a column behind the head apart.
double wrapped(double yaw)
{
    const double turned = std::remainder(yaw, 360);
    return turned <= -179.5 ? turned + 360 : turned;
}

/// A record that does not hold together still shows what there is of it.
void placeByAngles(const ProjectRecord &record, MapLayout &layout)
{
    const int angles = static_cast<int>(std::min(record.yaws.size(), record.pitches.size()));
    const int step = std::max(1, angles / std::max(1, static_cast<int>(record.groups.size())));
    for (int location = 0; location < layout.places.size(); ++location) {
        const qint64 shot = qint64(location) * step;
        if (shot >= angles)
            break;
        const double yaw = wrapped(qRadiansToDegrees(double(record.yaws[int(shot)])));
        const double pitch = qRadiansToDegrees(double(record.pitches[int(shot)]));
        if (!std::isfinite(yaw) || !(std::abs(pitch) <= 360))
            continue;
        MapPlace &place = layout.places[location];
        place.at = {yaw, -pitch};
        const double roll = qRadiansToDegrees(double(record.rolls.value(int(shot))));
        place.roll = std::isfinite(roll) ? std::remainder(roll, 360) : 0;
    }
}

void placeByGrid(const ProjectRecord &record, MapLayout &layout)
{
    const int groups = record.groups.size();
    GigapanLayout grid;
    grid.mode = record.layoutMode;
    grid.rows = record.layoutRows;
    if (grid.rows < 1 || grid.rows > groups) {
        layout.problem = LayoutTexts::tr(
            "The record has neither directions nor a grid to place its locations by.");
        return;
    }
    grid.columns = (groups + grid.rows - 1) / grid.rows;
    layout.rows = grid.rows;
    layout.columns = grid.columns;
    layout.spacing = {kGridStep * layout.aspect, kGridStep};
    layout.turn = record.fullTurn ? grid.columns * layout.spacing.width()
                                  : std::numeric_limits<double>::infinity();
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const int location = locationAt(grid, row, column);
            if (location < groups)
                layout.places[location].at
                    = {column * layout.spacing.width(), row * layout.spacing.height()};
        }
    }
}

/// Cuts the turn where it shows the widest gap, so that a panorama which does not close lies in one
/// piece. One that does keeps its seam behind.
void cutAtWidestGap(QVector<MapPlace> &places)
{
    QVector<double> yaws;
    for (const MapPlace &place : qAsConst(places)) {
        if (place.isKnown())
            yaws.append(place.at.x());
    }
    if (yaws.isEmpty())
        return;
    std::sort(yaws.begin(), yaws.end());
    const double behind = yaws.first() + 360 - yaws.last();
    double widest = 0;
    double cut = yaws.last();
    for (int i = 1; i < yaws.size(); ++i) {
        if (yaws[i] - yaws[i - 1] > widest) {
            widest = yaws[i] - yaws[i - 1];
            cut = yaws[i - 1];
        }
    }
    if (behind >= 0.75 * widest)
        return;
    for (MapPlace &place : places) {
        if (place.isKnown() && place.at.x() <= cut)
            place.at.rx() += 360;
    }
}

double usualSpacing(const QVector<MapPlace> &places)
{
    // A few hundred tell as much as all, and keep the comparison from becoming quadratic.
    const int stride = 1 + places.size() / 256;
    QVector<double> nearest;
    for (int i = 0; i < places.size(); i += stride) {
        double best = std::numeric_limits<double>::infinity();
        for (const MapPlace &other : places) {
            const QPointF way = other.at - places[i].at;
            const double distance = std::hypot(way.x(), way.y());
            if (distance > 1e-3 && distance < best)
                best = distance;
        }
        if (std::isfinite(best))
            nearest.append(best);
    }
    if (nearest.isEmpty())
        return MapLayout().spacing.width();
    return geometry::upperMedian(std::move(nearest));
}

QRectF extentOf(const QVector<MapPlace> &places, const QSizeF &spacing)
{
    const QSizeF size = spacing * 1.4;
    const QPointF half(size.width() / 2, size.height() / 2);
    QRectF extent;
    for (const MapPlace &place : places) {
        if (!place.isKnown())
            continue;
        extent |= QRectF(place.at - half, size);
    }
    return extent.isEmpty() ? QRectF(-half, size) : extent;
}

QVector<MapLinks> linksOf(const ProjectRecord &record, const QVector<MapPlace> &places)
{
    const auto isShown = [&places](int location) {
        return location >= 0 && location < places.size() && places[location].isKnown();
    };
    QMap<int, MapLinks> kinds;
    for (const ProjectLink &link : record.links) {
        MapLinks &links = kinds[link.kind];
        links.kind = link.kind;
        ++links.count;
        for (int i = 1; i < link.indices.size(); ++i) {
            if (isShown(link.indices[i - 1]) && isShown(link.indices[i]))
                links.lines.append({link.indices[i - 1], link.indices[i]});
        }
    }
    return kinds.values().toVector();
}

} // namespace

bool MapPlace::isKnown() const
{
    return !std::isnan(at.x());
}

QSizeF MapLayout::cell() const
{
    return QSizeF(aspect, 1).scaled(spacing * kCellShare, Qt::KeepAspectRatio);
}

int MapLayout::locationAt(const QPointF &point) const
{
    const QSizeF size = cell();
    double best = std::max(size.width(), size.height()) / 2;
    int found = -1;
    for (int location = 0; location < places.size(); ++location) {
        const QPointF way = places[location].at - point;
        const double distance = std::max(std::abs(way.x()), std::abs(way.y()));
        if (distance <= best) {
            best = distance;
            found = location;
        }
    }
    return found;
}

MapLayout mapLayout(const ProjectRecord &record, const std::optional<PictureFacts> &first)
{
    MapLayout layout;
    QSize size = first && !first->size.isEmpty() ? first->size : kUsualSize;
    if (standsByQuarterTurn(first))
        size.transpose();
    layout.aspect = std::clamp(double(size.width()) / size.height(), 0.1, 10.0);

    layout.places.reserve(record.groups.size());
    for (const QStringList &stack : record.groups)
        layout.places.append({{kNowhere, kNowhere}, 0, static_cast<int>(stack.size())});
    if (record.groups.isEmpty()) {
        layout.problem = LayoutTexts::tr("There are no locations.");
    } else if (record.yaws.isEmpty()) {
        placeByGrid(record, layout);
    } else {
        placeByAngles(record, layout);
        cutAtWidestGap(layout.places);
        const double spacing = usualSpacing(layout.places);
        layout.spacing = {spacing, spacing};
        const auto lost = std::count_if(layout.places.cbegin(), layout.places.cend(),
            [](const MapPlace &place) { return !place.isKnown(); });
        if (lost > 0)
            layout.problem = LayoutTexts::tr("Locations without a valid direction: %1.")
                                 .arg(QLocale().toString(qint64(lost)));
    }
    layout.extent = extentOf(layout.places, layout.spacing);
    layout.links = linksOf(record, layout.places);
    return layout;
}
