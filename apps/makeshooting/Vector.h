// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cmath>

namespace makeshooting {

/// A direction or a place. In the world x points east (yaw 90), y up and z north (yaw 0); in a
/// camera x points to the right of the stored picture, y to its top and z along the optical axis.
struct Vector {
    double x = 0;
    double y = 0;
    double z = 0;
};

inline double dot(const Vector &a, const Vector &b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Vector cross(const Vector &a, const Vector &b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline Vector scaled(const Vector &a, double factor)
{
    return {a.x * factor, a.y * factor, a.z * factor};
}

inline Vector normalised(const Vector &a)
{
    return scaled(a, 1.0 / std::sqrt(dot(a, a)));
}

} // namespace makeshooting
