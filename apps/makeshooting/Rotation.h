// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/makeshooting/Vector.h"

namespace makeshooting {

/// Where a camera looks, in degrees. Yaw grows to the right (east of north), pitch upward, and roll
/// is the clockwise turn that the stored picture needs to stand upright: 90 for a picture that EXIF
/// tags with orientation 6.
struct Angles {
    double yaw = 0;
    double pitch = 0;
    double roll = 0;
};

/// Camera axes (columns) in the world.
class Rotation {
public:
    /// Yaw after pitch after roll. Any pitch is welcome; beyond 90 degrees the camera is upside
    /// down.
    static Rotation fromAngles(const Angles &angles);

    /// A turn round \a axis by its length in radians.
    static Rotation fromAxis(const Vector &axis);

    /// The angles of this rotation with the pitch in -90..90 and the others in -180..180. Straight
    /// up or down the roll is 0.
    Angles angles() const;

    Vector operator*(const Vector &v) const
    {
        return {right.x * v.x + up.x * v.y + forward.x * v.z,
            right.y * v.x + up.y * v.y + forward.y * v.z,
            right.z * v.x + up.z * v.y + forward.z * v.z};
    }
    Rotation operator*(const Rotation &other) const
    {
        return {*this * other.right, *this * other.up, *this * other.forward};
    }

    Vector right{1, 0, 0};
    Vector up{0, 1, 0};
    Vector forward{0, 0, 1};
};

} // namespace makeshooting
