// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Placement.h"
#include "align/PtoProject.h"

#include <QPointF>
#include <array>
#include <optional>

/// To the right, up, forward.
using Direction = std::array<double, 3>;

/// The direction of \a yaw and \a pitch in radians.
Direction directionOf(double yaw, double pitch);

/// What a picture sees: from its pixels to directions and back. Camera to world is
/// Ry(yaw) Rx(pitch) Rz(roll).
class View {
public:
    /// \a place with the roll that the stored picture needs.
    View(
        const Placement &place, const PictureOptics &lens, const RadialDistortion &distortion = {});

    /// The direction of the pixel \a x to the right of and \a y below the centre; a unit vector.
    Direction at(double x, double y) const;

    /// Where the unit vector \a direction is seen, as for at(). Nothing when it lies outside.
    std::optional<QPointF> find(const Direction &direction) const;
    bool sees(const Direction &direction) const { return find(direction).has_value(); }

    /// Radians from the centre to the furthest corner, or a little more.
    double radius() const;

private:
    struct Turn {
        double cosine;
        double sine;
        Turn inverse() const { return {cosine, -sine}; }
    };
    static Turn turn(double degrees);
    static void rotate(double &a, double &b, const Turn &turn);
    /// How much further from the centre than the ideal lens the lens shows a point, \a ideal pixels
    /// off it.
    double stretch(double ideal) const;
    /// How far off the centre the ideal lens shows what this one shows \a seen pixels off it.
    double undistorted(double seen) const;

    PictureOptics m_lens;
    RadialDistortion m_distortion;
    double m_focal;
    Turn m_yaw;
    Turn m_pitch;
    Turn m_roll;
    /// Pixels of the ideal lens beyond which nothing is seen.
    double m_reach;
};
