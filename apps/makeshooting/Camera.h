// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/makeshooting/Vector.h"

#include <QSize>

namespace makeshooting {

enum class Lens {
    Rectilinear, ///< radius = focal * tan(angle from the axis)
    Fisheye, ///< equidistant: radius = focal * angle from the axis
};

/// Focal length in pixels of a picture of \a size taken with \a focal35 millimetres as on 36 x 24
/// mm film; by the diagonals, as makers of cameras count.
double pixelFocal(const QSize &size, double focal35);

/// Lens and sensor, as the picture is stored.
struct Camera {
    QSize size;
    Lens lens = Lens::Rectilinear;
    /// In pixels.
    double focal = 1;
    /// Radial distortion, third power: seen = ideal * (b q^2 + 1 - b), where q is the ideal radius
    /// in halves of the shorter side (b of Hugin's lens model). Barrel below 0.
    double distortion = 0;

    /// Unit direction in camera axes of the light that falls on (\a x, \a y): pixels from the left
    /// and top edge, so that the first pixel's middle is (0.5, 0.5).
    Vector ray(double x, double y) const;

    /// False when barrel distortion folds the picture before its corners are reached: no ray falls
    /// there, and ray() must not be asked for one.
    bool seesItsCorners() const;

    /// Degrees that an ideal lens sees across the width and down the height.
    double horizontalAngle() const { return angleOfView(size.width()); }
    double verticalAngle() const { return angleOfView(size.height()); }

private:
    double angleOfView(int pixels) const;
    double undistorted(double radius) const;
};

} // namespace makeshooting
