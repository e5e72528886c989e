// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Placement.h"

#include <QRect>

/// An equirectangular panorama, centred on yaw and pitch 0, at the pictures' own scale.
struct Canvas {
    /// Degrees across, a whole number up to 360.
    int angle = 360;
    /// Pixels, both even.
    QSize size;
    /// The part that the pictures cover.
    QRect crop;
};

/// Collects what pictures cover.
class Coverage {
public:
    /// \a place with the roll that the stored picture needs.
    void add(const Placement &place, const PictureOptics &lens);

    Canvas canvas() const;

private:
    double m_left = 360;
    double m_right = -360;
    double m_bottom = 90;
    double m_top = -90;
    /// Pixels a radian.
    double m_scale = 0;
};
