// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "geometry/ProximityLinks.h"

#include <cmath>

namespace geometry {

namespace {

/// Share of the distance that a half angle has to exceed.
constexpr double kDistanceShare = static_cast<double>(0.7F);

struct Direction {
    float x, y, z;
};

Direction directionOf(const View &view)
{
    const float cosPitch = std::cos(view.pitch);
    return {cosPitch * std::cos(view.yaw), cosPitch * std::sin(view.yaw), -std::sin(view.pitch)};
}

/// Angle between two directions in radians; NaN where rounding makes the scalar product exceed 1.
double distance(const Direction &a, const Direction &b)
{
    return std::acos(static_cast<double>(a.x) * static_cast<double>(b.x)
        + static_cast<double>(a.y) * static_cast<double>(b.y)
        + static_cast<double>(a.z) * static_cast<double>(b.z));
}

} // namespace

void appendProximityLinks(const QVector<View> &views, QVector<ProjectLink> &links)
{
    QVector<Direction> directions;
    directions.reserve(views.size());
    for (const View &view : views)
        directions.append(directionOf(view));

    for (int i = 0; i < views.size(); ++i) {
        for (int j = i + 1; j < views.size(); ++j) {
            const double share = kDistanceShare * distance(directions.at(i), directions.at(j));
            if (share < static_cast<double>(views.at(i).halfAngle)
                || share < static_cast<double>(views.at(j).halfAngle))
                links.append({0, {i, j}});
        }
    }
}

} // namespace geometry
