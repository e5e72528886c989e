// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace geometry {

constexpr double kPi = 3.141592653589793;

/// Radians as a project record holds them: computed in double, stored in 32 bits.
inline float toRadians(float degrees)
{
    return static_cast<float>(kPi * static_cast<double>(degrees) / 180.0);
}

} // namespace geometry
