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

/// Newton's method; from the seen radius a handful of steps reach the last bit for any lens one
/// would take pictures with.
double Camera::undistorted(double radius) const
{
    const double unit = std::min(size.width(), size.height()) / 2.0;
    const double seen = radius / unit;
    double ideal = seen;
    for (int i = 0; i < 4; ++i) {
        const double error = ideal * (distortion * ideal * ideal + 1.0 - distortion) - seen;
        const double slope = 3.0 * distortion * ideal * ideal + 1.0 - distortion;
        ideal -= error / std::max(slope, 0.1);
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
