// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Canvas.h"

#include "align/View.h"

#include <QtMath>
#include <algorithm>
#include <cmath>

namespace {

/// Pixels; some ten times the largest panorama ever published.
constexpr double kWidestCanvas = 10'000'000;

double yawOf(const Direction &d)
{
    return qRadiansToDegrees(std::atan2(d[0], d[2]));
}

double pitchOf(const Direction &d)
{
    return qRadiansToDegrees(std::asin(std::clamp(d[1], -1.0, 1.0)));
}

} // namespace

void Coverage::add(const Placement &place, const PictureOptics &lens)
{
    m_scale = std::max(m_scale, lens.pixelFocal());
    const View view(place, lens);
    const double centre = yawOf(view.at(0, 0));
    for (const int sign : {1, -1}) {
        if (!view.sees({0, double(sign), 0}))
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
    const double width = std::min(qDegreesToRadians(double(canvas.angle)) * m_scale, kWidestCanvas);
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
