// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/makeshooting/Rotation.h"

#include <QtMath>
#include <algorithm>

namespace makeshooting {

Rotation Rotation::fromAngles(const Angles &angles)
{
    const double y = qDegreesToRadians(angles.yaw);
    const double p = qDegreesToRadians(angles.pitch);
    const double r = qDegreesToRadians(angles.roll);
    const Rotation yaw{{std::cos(y), 0, -std::sin(y)}, {0, 1, 0}, {std::sin(y), 0, std::cos(y)}};
    const Rotation pitch{{1, 0, 0}, {0, std::cos(p), -std::sin(p)}, {0, std::sin(p), std::cos(p)}};
    const Rotation roll{{std::cos(r), -std::sin(r), 0}, {std::sin(r), std::cos(r), 0}, {0, 0, 1}};
    return yaw * pitch * roll;
}

Rotation Rotation::fromAxis(const Vector &axis)
{
    const double angle = std::sqrt(dot(axis, axis));
    if (angle < 1e-12)
        return {};
    const Vector a = scaled(axis, 1.0 / angle);
    const double s = std::sin(angle);
    const double c = std::cos(angle);
    const double k = 1.0 - c;
    return {{c + a.x * a.x * k, a.y * a.x * k + a.z * s, a.z * a.x * k - a.y * s},
        {a.x * a.y * k - a.z * s, c + a.y * a.y * k, a.z * a.y * k + a.x * s},
        {a.x * a.z * k + a.y * s, a.y * a.z * k - a.x * s, c + a.z * a.z * k}};
}

Angles Rotation::angles() const
{
    const double level = std::hypot(forward.x, forward.z);
    const double pitch = qRadiansToDegrees(std::atan2(forward.y, level));
    if (level < 1e-9)
        return {qRadiansToDegrees(std::atan2(-right.z, right.x)), pitch, 0};
    return {qRadiansToDegrees(std::atan2(forward.x, forward.z)), pitch,
        qRadiansToDegrees(std::atan2(-right.y, up.y))};
}

} // namespace makeshooting
