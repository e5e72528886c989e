// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/geometry/PlainLinks.h"

#include <cmath>

namespace {

struct Position {
    float yaw, pitch;
    double sinPitch, cosPitch;
};

/// As the rule has it, 0: none.
int kindOf(const Position &from, const Position &to)
{
    float dy = to.yaw - from.yaw;
    if (dy > 3.141592653589793)
        dy -= 6.2831855F;
    else if (dy < -3.141592653589793)
        dy += 6.2831855F;
    const float dp = to.pitch - from.pitch;
    const double a = std::atan2(double(dp), double(dy));
    if (a > -0.7853981633974483 && a <= 0.7853981633974483)
        return 2;
    return a > -2.356194490192345 && a <= -0.7853981633974483 ? 1 : 0;
}

struct Vector {
    double x, y, z;
};

} // namespace

QVector<ProjectLink> plain::directionLinks(
    const QVector<geometry::Direction> &directions, float focal)
{
    const float twice = 2 * focal;
    const double T = std::atan(43.266615305567875 / double(twice));
    QVector<Position> positions;
    positions.reserve(directions.size());
    for (const geometry::Direction &at : directions)
        positions.append(
            {at.yaw, at.pitch, std::sin(double(at.pitch)), std::cos(double(at.pitch))});

    QVector<ProjectLink> links;
    for (int i = 0; i < positions.size(); ++i) {
        const Position &from = positions.at(i);
        for (int j = 0; j < positions.size(); ++j) {
            const Position &to = positions.at(j);
            if (i == j)
                continue;
            const double d = std::acos(from.sinPitch * to.sinPitch
                + from.cosPitch * to.cosPitch * std::cos(double(to.yaw) - double(from.yaw)));
            if (!(T > 0.6499999761581421 * d))
                continue;
            if (const int kind = kindOf(from, to))
                links.append({kind, {i, j}});
        }
    }
    return links;
}

QVector<ProjectLink> plain::proximityLinks(const QVector<geometry::View> &views)
{
    QVector<Vector> vectors;
    vectors.reserve(views.size());
    for (const geometry::View &view : views) {
        const float cosPitch = std::cos(view.pitch);
        const float x = cosPitch * std::cos(view.yaw);
        const float y = cosPitch * std::sin(view.yaw);
        const float z = -std::sin(view.pitch);
        vectors.append({double(x), double(y), double(z)});
    }

    QVector<ProjectLink> links;
    for (int i = 0; i < views.size(); ++i) {
        const Vector &a = vectors.at(i);
        for (int j = i + 1; j < views.size(); ++j) {
            const Vector &b = vectors.at(j);
            const double share = 0.699999988079071 * std::acos(a.x * b.x + a.y * b.y + a.z * b.z);
            if (share < double(views.at(i).halfAngle) || share < double(views.at(j).halfAngle))
                links.append({0, {i, j}});
        }
    }
    return links;
}
