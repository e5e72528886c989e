// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "geometry/AngleOfView.h"

#include <cmath>

namespace geometry {

double halfDiagonalAngle(float focal)
{
    return std::atan(kFrameDiagonal / static_cast<double>(2.0F * focal));
}

} // namespace geometry
