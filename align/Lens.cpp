// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Lens.h"

#include <algorithm>

namespace align {

Lens Lens::of(const PictureOptics &optics, double distortion)
{
    const QSize &size = optics.size;
    Lens lens;
    lens.focal = optics.pixelFocal();
    lens.distortion = distortion;
    lens.fisheye = optics.fisheye;
    lens.centre = {(size.width() - 1) / 2.0, (size.height() - 1) / 2.0};
    lens.unit = std::min(size.width(), size.height()) / 2.0;
    return lens;
}

Vector Lens::ray(const Point &point) const
{
    double ray[3];
    rayThrough(point.x - centre.x, point.y - centre.y, focal, distortion, fisheye, unit, ray);
    return {ray[0], ray[1], ray[2]};
}

std::optional<Point> Lens::project(const Vector &direction) const
{
    const double off = std::hypot(direction.x(), direction.y());
    if (!fisheye && direction.z() <= 1e-3 * off)
        return std::nullopt;
    const double radius = focal * (fisheye ? std::atan2(off, direction.z()) : off / direction.z());
    const double ideal = radius / unit;
    const double square = ideal * ideal;
    // Where the distortion turns the picture back on itself nothing is seen.
    if (3 * distortion * square + 1 - distortion <= 0)
        return std::nullopt;
    const double stretch = (distortion * square + 1 - distortion) * (off > 0 ? radius / off : 0);
    return Point(centre.x + direction.x() * stretch, centre.y - direction.y() * stretch);
}

} // namespace align
