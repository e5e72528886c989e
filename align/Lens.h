// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PictureOptics.h"
#include "align/Rotation.h"

#include <opencv2/core/types.hpp>

#include <cmath>
#include <optional>

namespace align {

using Point = cv::Point2d;

/// Leads from the pixels of a picture to directions in camera axes and back. Points are pixels, 0
/// being the middle of the first one.
struct Lens {
    /// Pixels.
    double focal = 1;
    /// Third-power radial distortion: RadialDistortion::b.
    double distortion = 0;
    bool fisheye = false;
    Point centre;
    /// Pixels; half the shorter side, the unit of the distortion's radii.
    double unit = 1;

    /// Of the stored picture.
    static Lens of(const PictureOptics &optics, double distortion = 0);

    /// The direction, of length 1, of what is seen at \a point.
    Vector ray(const Point &point) const;
    /// Where \a direction is seen, whatever the picture's size; nothing when nowhere.
    std::optional<Point> project(const Vector &direction) const;
};

/// The direction, of length 1, of what a lens shows \a x to the right of and \a y below its centre,
/// for any type that counts as a number. The distortion is inverted by Newton's method.
template <class Number>
void rayThrough(double x, double y, const Number &focal, const Number &distortion, bool fisheye,
    double unit, Number ray[3])
{
    using std::cos;
    using std::sin;
    using std::sqrt;
    const double seen = std::hypot(x, y) / unit;
    Number ideal(seen);
    for (int round = 0; round < 4; ++round) {
        const Number square = ideal * ideal;
        ideal -= (ideal * (distortion * square + 1.0 - distortion) - seen)
            / (3.0 * distortion * square + 1.0 - distortion);
    }
    const Number stretch = seen > 0 ? Number(ideal / seen) : Number(1);
    Number off(stretch);
    Number along(focal);
    const double radius = seen * unit;
    if (fisheye && radius > 1e-9) {
        const Number angle = stretch * radius / focal;
        off = sin(angle) / radius;
        along = cos(angle);
    }
    const Number length = sqrt(off * off * (radius * radius) + along * along);
    ray[0] = off * x / length;
    ray[1] = off * -y / length;
    ray[2] = along / length;
}

} // namespace align
