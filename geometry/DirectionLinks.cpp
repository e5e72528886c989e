// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "geometry/DirectionLinks.h"

#include "geometry/Angle.h"
#include "geometry/AngleOfView.h"
#include "geometry/NeighbourSearch.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace geometry {

namespace {

constexpr float kFullTurn = 6.2831855F;
constexpr double kReach = static_cast<double>(0.65F);
/// Radians, some 80 turns.
constexpr double kLargestCertainYaw = 500;
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

/// A direction as its distances are computed from it.
struct Sight {
    double yaw;
    double sinPitch, cosPitch;
};

Sight sightOf(const Direction &direction)
{
    const double pitch = direction.pitch;
    return {static_cast<double>(direction.yaw), std::sin(pitch), std::cos(pitch)};
}

double distanceOf(const Sight &from, const Sight &to)
{
    return std::acos(
        from.sinPitch * to.sinPitch + from.cosPitch * to.cosPitch * std::cos(to.yaw - from.yaw));
}

Spot spotAt(const Sight &sight, double reach)
{
    // The rule takes the difference of two yaws, which is rounded the more the larger they are.
    const bool isUncertain = std::isfinite(sight.yaw) && std::abs(sight.yaw) > kLargestCertainYaw;
    return {sight.cosPitch * std::cos(sight.yaw), sight.cosPitch * std::sin(sight.yaw),
        sight.sinPitch, reach, isUncertain};
}

/// The search for the pictures that overlap.
class Overlaps {
public:
    Overlaps(const QVector<Direction> &directions, float focal)
        : m_halfAngle(halfDiagonalAngle(focal))
    {
        m_sights.reserve(directions.size());
        m_spots.reserve(directions.size());
        for (const Direction &direction : directions) {
            m_sights.push_back(sightOf(direction));
            m_spots.push_back(spotAt(m_sights.back(), m_halfAngle / kReach));
        }
    }

    NeighbourSearch search() const
    {
        return {m_spots, [this](int i, int j) {
                    // Written so that an undefined distance links nothing.
                    return m_halfAngle > kReach * distanceOf(m_sights[i], m_sights[j]);
                }};
    }

private:
    double m_halfAngle;
    std::vector<Sight> m_sights;
    std::vector<Spot> m_spots;
};

} // namespace

double distance(const Direction &from, const Direction &to)
{
    return distanceOf(sightOf(from), sightOf(to));
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
    const Overlaps overlaps(directions, focal);
    const NeighbourSearch search = overlaps.search();
    QVector<ProjectLink> links;
    links.reserve(8 * directions.size());
    std::vector<int> near;
    for (int i = 0; i < directions.size(); ++i) {
        search.find(i, 0, near);
        for (const int j : near) {
            const int kind = directionLinkKind(directions[i], directions[j]);
            if (kind != kNoLink)
                links.append({kind, {i, j}});
        }
    }
    links.squeeze();
    return links;
}

qint64 estimateDirectionLinks(const QVector<Direction> &directions, float focal)
{
    const Overlaps overlaps(directions, focal);
    const NeighbourSearch search = overlaps.search();
    return search.estimateLinks([&](int i, const std::vector<int> &near) {
        return std::count_if(near.begin(), near.end(),
            [&](int j) { return directionLinkKind(directions[i], directions[j]) != kNoLink; });
    });
}

} // namespace geometry
