// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/View.h"

#include "geometry/Angle.h"

#include <QtMath>
#include <algorithm>
#include <cmath>

namespace {

/// A lens whose picture grows by less than this part further out is about to fold it over.
constexpr double kFold = 0.1;

} // namespace

Direction directionOf(double yaw, double pitch)
{
    return {std::sin(yaw) * std::cos(pitch), std::sin(pitch), std::cos(yaw) * std::cos(pitch)};
}

View::View(const Placement &place, const PictureOptics &lens, const RadialDistortion &distortion)
    : m_lens(lens)
    , m_distortion(distortion)
    , m_focal(lens.pixelFocal())
    , m_yaw(turn(place.yaw))
    , m_pitch(turn(place.pitch))
    , m_roll(turn(place.roll))
    , m_reach(1.001 * undistorted(std::hypot(lens.size.width(), lens.size.height()) / 2))
{
}

View::Turn View::turn(double degrees)
{
    const double angle = qDegreesToRadians(degrees);
    return {std::cos(angle), std::sin(angle)};
}

/// Turns the axis \a b towards \a a.
void View::rotate(double &a, double &b, const Turn &turn)
{
    const double oldA = a;
    a = oldA * turn.cosine + b * turn.sine;
    b = b * turn.cosine - oldA * turn.sine;
}

double View::stretch(double ideal) const
{
    const auto &[a, b, c] = m_distortion;
    const double r = ideal / (std::min(m_lens.size.width(), m_lens.size.height()) / 2.0);
    return ((a * r + b) * r + c) * r + 1 - a - b - c;
}

/// By Newton's method; where the distortion folds the picture over, the last radius before that.
double View::undistorted(double seen) const
{
    const auto &[a, b, c] = m_distortion;
    const double unit = std::min(m_lens.size.width(), m_lens.size.height()) / 2.0;
    const auto slopeAt = [&](double radius) {
        const double r = radius / unit;
        return ((4 * a * r + 3 * b) * r + 2 * c) * r + 1 - a - b - c;
    };
    double radius = slopeAt(seen) < kFold ? unit : seen;
    for (int round = 0; round < 8; ++round) {
        const double next = radius - (radius * stretch(radius) - seen) / slopeAt(radius);
        if (slopeAt(next) < kFold)
            break;
        radius = next;
    }
    return radius;
}

Direction View::at(double x, double y) const
{
    const double seen = std::hypot(x, y);
    const double radius = undistorted(seen);
    // Of the ray: how far it leads off the axis, and how far along it.
    double off = radius / m_focal;
    double along = 1;
    if (m_lens.fisheye) {
        along = std::cos(off);
        off = std::sin(off);
    }
    const double length = std::hypot(off, along);
    const double scale = seen > 0 ? off / seen / length : 0;
    Direction d{x * scale, -y * scale, along / length};
    rotate(d[0], d[1], m_roll);
    rotate(d[1], d[2], m_pitch);
    rotate(d[0], d[2], m_yaw);
    return d;
}

std::optional<QPointF> View::find(const Direction &direction) const
{
    Direction d = direction;
    rotate(d[0], d[2], m_yaw.inverse());
    rotate(d[1], d[2], m_pitch.inverse());
    rotate(d[0], d[1], m_roll.inverse());
    const double off = std::hypot(d[0], d[1]);
    if (!m_lens.fisheye && d[2] <= 0)
        return std::nullopt;
    const double ideal = m_focal * (m_lens.fisheye ? std::atan2(off, d[2]) : off / d[2]);
    // Far beyond the corners even the least distortion leads back into the picture.
    if (ideal > m_reach)
        return std::nullopt;
    const double scale = off > 0 ? ideal * stretch(ideal) / off : 0;
    const QPointF seen(d[0] * scale, -d[1] * scale);
    if (std::abs(seen.x()) * 2 > m_lens.size.width()
        || std::abs(seen.y()) * 2 > m_lens.size.height())
        return std::nullopt;
    return seen;
}

double View::radius() const
{
    return m_lens.fisheye ? std::min(m_reach / m_focal, geometry::kPi)
                          : std::atan(m_reach / m_focal);
}
