// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/makeshooting/Camera.h"

#include <QtMath>
#include <algorithm>

namespace makeshooting {

double pixelFocal(const QSize &size, double focal35)
{
    return std::hypot(size.width(), size.height()) * focal35 / std::hypot(36.0, 24.0);
}

double Camera::angleOfView(int pixels) const
{
    const double half
        = lens == Lens::Fisheye ? pixels / 2.0 / focal : std::atan(pixels / 2.0 / focal);
    return qRadiansToDegrees(2.0 * half);
}

bool Camera::seesItsCorners() const
{
    if (distortion >= 0)
        return true;
    const double corner
        = std::hypot(size.width(), size.height()) / std::min(size.width(), size.height());
    const double turning = std::sqrt((1.0 - distortion) / (-3.0 * distortion));
    return turning * (distortion * turning * turning + 1.0 - distortion) > 1.02 * corner;
}

/// Newton's method. It starts below the solution, where barrel distortion bends towards it.
double Camera::undistorted(double radius) const
{
    const double unit = std::min(size.width(), size.height()) / 2.0;
    const double seen = radius / unit;
    double ideal = distortion < 0 ? seen / (1.0 - distortion) : seen;
    for (int i = 0; i < 20; ++i) {
        const double slope = 3.0 * distortion * ideal * ideal + 1.0 - distortion;
        const double step
            = (ideal * (distortion * ideal * ideal + 1.0 - distortion) - seen) / slope;
        ideal -= step;
        if (std::abs(step) < 1e-9)
            break;
    }
    return ideal * unit;
}

Vector Camera::ray(double x, double y) const
{
    double right = x - size.width() / 2.0;
    double up = size.height() / 2.0 - y;
    if (lens == Lens::Rectilinear && distortion == 0)
        return normalised({right, up, focal});
    double radius = std::sqrt(right * right + up * up);
    if (distortion != 0 && radius > 0) {
        const double ideal = undistorted(radius);
        right *= ideal / radius;
        up *= ideal / radius;
        radius = ideal;
    }
    if (lens == Lens::Rectilinear || radius < 1e-9)
        return normalised({right, up, focal});
    const double angle = radius / focal;
    const double side = std::sin(angle) / radius;
    return {right * side, up * side, std::cos(angle)};
}

} // namespace makeshooting
