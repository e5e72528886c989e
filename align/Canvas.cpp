// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Canvas.h"

#include "geometry/Angle.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// To the right, up, forward.
using Direction = std::array<double, 3>;

constexpr double kDegree = geometry::kPi / 180;
/// Pixels; some ten times the largest panorama ever published.
constexpr double kWidestCanvas = 10'000'000;

/// A picture's view: from its pixels to directions, by Ry(yaw) Rx(pitch) Rz(roll).
class View {
public:
    View(const Placement &place, const PictureOptics &lens)
        : m_lens(lens)
        , m_focal(lens.pixelFocal())
        , m_yaw(turn(place.yaw))
        , m_pitch(turn(place.pitch))
        , m_roll(turn(place.roll))
    {
    }

    /// The direction of the pixel \a x to the right of and \a y below the centre.
    Direction at(double x, double y) const
    {
        const double radius = std::hypot(x, y);
        // Of the ray: how far it leads off the axis, and how far along it.
        double off = radius / m_focal;
        double along = 1;
        if (m_lens.fisheye) {
            along = std::cos(off);
            off = std::sin(off);
        }
        const double length = std::hypot(off, along);
        const double scale = radius > 0 ? off / radius / length : 0;
        Direction d{x * scale, -y * scale, along / length};
        rotate(d[0], d[1], m_roll);
        rotate(d[1], d[2], m_pitch);
        rotate(d[0], d[2], m_yaw);
        return d;
    }

    /// Whether the direction straight up (\a sign 1) or down (-1) lies in the picture.
    bool seesPole(int sign) const
    {
        Direction d{0, double(sign), 0};
        rotate(d[1], d[2], m_pitch.inverse());
        rotate(d[0], d[1], m_roll.inverse());
        const double off = std::hypot(d[0], d[1]);
        if (!m_lens.fisheye && d[2] <= 0)
            return false;
        const double radius = m_focal * (m_lens.fisheye ? std::atan2(off, d[2]) : off / d[2]);
        const double scale = off > 0 ? radius / off : 0;
        return std::abs(d[0] * scale) * 2 <= m_lens.size.width()
            && std::abs(d[1] * scale) * 2 <= m_lens.size.height();
    }

private:
    struct Turn {
        double cosine;
        double sine;
        Turn inverse() const { return {cosine, -sine}; }
    };
    static Turn turn(double degrees)
    {
        return {std::cos(degrees * kDegree), std::sin(degrees * kDegree)};
    }
    /// Turns the axis \a b towards \a a.
    static void rotate(double &a, double &b, const Turn &turn)
    {
        const double oldA = a;
        a = oldA * turn.cosine + b * turn.sine;
        b = b * turn.cosine - oldA * turn.sine;
    }

    PictureOptics m_lens;
    double m_focal;
    Turn m_yaw;
    Turn m_pitch;
    Turn m_roll;
};

double yawOf(const Direction &d)
{
    return std::atan2(d[0], d[2]) / kDegree;
}

double pitchOf(const Direction &d)
{
    return std::asin(std::clamp(d[1], -1.0, 1.0)) / kDegree;
}

} // namespace

void Coverage::add(const Placement &place, const PictureOptics &lens)
{
    m_scale = std::max(m_scale, lens.pixelFocal());
    const View view(place, lens);
    const double centre = yawOf(view.at(0, 0));
    for (const int sign : {1, -1}) {
        if (!view.seesPole(sign))
            continue;
        m_left = -180;
        m_right = 180;
        (sign > 0 ? m_top : m_bottom) = 90 * sign;
    }
    constexpr int kSteps = 8;
    for (int i = 0; i <= kSteps; ++i) {
        for (int k = 0; k <= kSteps; ++k) {
            if (i % kSteps != 0 && k % kSteps != 0)
                continue; // Within the border, not on it.
            const Direction d = view.at(lens.size.width() * (double(i) / kSteps - 0.5),
                lens.size.height() * (double(k) / kSteps - 0.5));
            const double yaw = centre + std::remainder(yawOf(d) - centre, 360.0);
            m_left = std::min(m_left, yaw);
            m_right = std::max(m_right, yaw);
            m_bottom = std::min(m_bottom, pitchOf(d));
            m_top = std::max(m_top, pitchOf(d));
        }
    }
}

Canvas Coverage::canvas() const
{
    // A picture across the seam at 180 degrees needs the full turn.
    const bool seam = m_left <= -180 || m_right >= 180;
    const double left = seam ? -180 : m_left;
    const double right = seam ? 180 : m_right;

    Canvas canvas;
    canvas.angle = std::min(360, int(std::ceil(2 * std::max({-left, right, 0.5}))));
    // A picture that claims an absurd size must not make the canvas overflow.
    const double width = std::min(canvas.angle * kDegree * m_scale, kWidestCanvas);
    canvas.size.setWidth(std::max(2, 2 * int(width / 2)));
    const double perDegree = double(canvas.size.width()) / canvas.angle;
    const double halfHeight
        = std::min(perDegree * std::max({-m_bottom, m_top, 0.0}), kWidestCanvas / 2);
    canvas.size.setHeight(std::max(1, qRound(2 * halfHeight)));
    const double centreX = canvas.size.width() / 2.0;
    const double centreY = canvas.size.height() / 2.0;
    const QPoint first(
        int(std::floor(centreX + left * perDegree)), int(std::floor(centreY - m_top * perDegree)));
    const QPoint last(int(std::ceil(centreX + right * perDegree)) - 1,
        int(std::ceil(centreY - m_bottom * perDegree)) - 1);
    canvas.crop = QRect(first, last).intersected(QRect(QPoint(), canvas.size));
    return canvas;
}
