// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "geometry/ProximityLinks.h"

#include "geometry/NeighbourSearch.h"

#include <cmath>
#include <vector>

namespace geometry {

namespace {

/// Share of the distance that a half angle has to exceed.
constexpr double kDistanceShare = static_cast<double>(0.7F);

Spot spotOf(const View &view)
{
    const float cosPitch = std::cos(view.pitch);
    const float x = cosPitch * std::cos(view.yaw);
    const float y = cosPitch * std::sin(view.yaw);
    const float z = -std::sin(view.pitch);
    return {static_cast<double>(x), static_cast<double>(y), static_cast<double>(z),
        static_cast<double>(view.halfAngle) / kDistanceShare};
}

/// Angle between two directions in radians; NaN where rounding makes the scalar product exceed 1.
double distance(const Spot &a, const Spot &b)
{
    return std::acos(a.x * b.x + a.y * b.y + a.z * b.z);
}

std::vector<Spot> spotsOf(const QVector<View> &views)
{
    std::vector<Spot> spots;
    spots.reserve(views.size());
    for (const View &view : views)
        spots.push_back(spotOf(view));
    return spots;
}

/// Refers to both lists.
NeighbourSearch::Rule ruleFor(const QVector<View> &views, const std::vector<Spot> &spots)
{
    return [&](int i, int j) {
        const double share = kDistanceShare * distance(spots[i], spots[j]);
        return share < static_cast<double>(views[i].halfAngle)
            || share < static_cast<double>(views[j].halfAngle);
    };
}

} // namespace

void appendProximityLinks(const QVector<View> &views, QVector<ProjectLink> &links)
{
    const std::vector<Spot> spots = spotsOf(views);
    const NeighbourSearch search(spots, ruleFor(views, spots));
    links.reserve(links.size() + 8 * views.size());
    std::vector<int> near;
    for (int i = 0; i < views.size(); ++i) {
        search.find(i, i + 1, near);
        for (const int j : near)
            links.append({0, {i, j}});
    }
    links.squeeze();
}

qint64 estimateProximityLinks(const QVector<View> &views)
{
    const std::vector<Spot> spots = spotsOf(views);
    const NeighbourSearch search(spots, ruleFor(views, spots));
    // Each link is found from both its ends.
    return search.estimateLinks([](int, const std::vector<int> &near) { return near.size(); }) / 2;
}

} // namespace geometry
