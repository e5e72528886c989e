// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "geometry/DirectionLinks.h"

#include "geometry/Angle.h"
#include "geometry/AngleOfView.h"

#include <cmath>

namespace geometry {

namespace {

constexpr float kFullTurn = 6.2831855F;
constexpr double kReach = static_cast<double>(0.65F);
constexpr int kNoLink = 0;
constexpr int kVertical = 1;
constexpr int kHorizontal = 2;

/// The shorter way round for yaws less than two turns apart, in 32-bit arithmetic.
float yawDifference(float from, float to)
{
    const float difference = to - from;
    if (difference > kPi)
        return difference - kFullTurn;
    if (difference < -kPi)
        return difference + kFullTurn;
    return difference;
}

} // namespace

double distance(const Direction &from, const Direction &to)
{
    const double yaw = static_cast<double>(to.yaw) - static_cast<double>(from.yaw);
    const double pitch1 = from.pitch;
    const double pitch2 = to.pitch;
    return std::acos(
        std::sin(pitch1) * std::sin(pitch2) + std::cos(pitch1) * std::cos(pitch2) * std::cos(yaw));
}

int directionLinkKind(const Direction &from, const Direction &to)
{
    const double rise = to.pitch - from.pitch;
    const double run = yawDifference(from.yaw, to.yaw);
    const double angle = std::atan2(rise, run);
    if (-kPi / 4 < angle && angle <= kPi / 4)
        return kHorizontal;
    if (-3 * kPi / 4 < angle && angle <= -kPi / 4)
        return kVertical;
    return kNoLink;
}

QVector<ProjectLink> directionLinks(const QVector<Direction> &directions, float focal)
{
    const double halfAngle = halfDiagonalAngle(focal);
    QVector<ProjectLink> links;
    for (int i = 0; i < directions.size(); ++i) {
        for (int j = 0; j < directions.size(); ++j) {
            // Written so that an undefined distance links nothing.
            if (i == j || !(halfAngle > kReach * distance(directions[i], directions[j])))
                continue;
            const int kind = directionLinkKind(directions[i], directions[j]);
            if (kind != kNoLink)
                links.append({kind, {i, j}});
        }
    }
    return links;
}

} // namespace geometry
