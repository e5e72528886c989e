// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace geometry {

/// Diagonal of a 36 x 24 mm frame, in millimetres.
constexpr double kFrameDiagonal = 43.266615305567875;

/// Half the diagonal angle of view in radians of a rectilinear lens of \a focal millimetres as on
/// 36 x 24 mm film: atan(diagonal / (2 focal)). Pi / 2 at 0, negative below 0, NaN for NaN. The
/// focal is doubled in 32-bit arithmetic.
double halfDiagonalAngle(float focal);

} // namespace geometry
