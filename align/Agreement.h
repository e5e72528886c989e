// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Lens.h"

#include <cstdint>
#include <vector>

namespace align {

/// Something seen in two pictures.
struct Match {
    /// Pixels of the stored pictures.
    Point inFirst;
    Point inSecond;
    /// 0 to 1: how sure its place is.
    double weight = 1;
};

/// Directions of one match, in the axes of each picture's camera.
struct MatchedRays {
    Vector first;
    Vector second;
};

/// The turn from the second camera's axes to the first's that most of \a rays agree on, with the
/// places of those that do; no agreement, no places.
struct Agreement {
    Rotation turn = Rotation::Identity();
    std::vector<int> agreeing;
    /// Radians that they lie from where they were expected, on average.
    double distance = 0;

    explicit operator bool() const { return !agreeing.empty(); }
};

/// What \a rays must fulfil to count as one turn.
struct AgreementLimits {
    /// Radians that a ray may miss its like by.
    double tolerance = 0.015;
    /// Radians that things may be seen from where they are expected.
    double gate = 0.1;
    /// Part of the rays that must agree.
    double part = 0.25;
};

/// Fits one turn to \a rays, near \a expected, by drawing pairs of them (RANSAC). Six rays at least
/// must agree. The draws follow from \a seed.
Agreement agreedTurn(const std::vector<MatchedRays> &rays, const Rotation &expected,
    const AgreementLimits &limits, std::uint32_t seed);

} // namespace align
