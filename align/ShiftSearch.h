// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Tracking.h"

#include <optional>

namespace align {

/// Parts of a picture's longer side that searchShift() finds it off by, at most.
constexpr double kShiftReach = 0.2;

/// Looks, much reduced, for what both views show when tracking does not find it near where it
/// should be: the head was further off. Returns the rotation that \a second has if it is there; it
/// wants to be verified. Nothing when nowhere is like enough.
std::optional<Rotation> searchShift(const TrackedView &first, const TrackedView &second);

} // namespace align
