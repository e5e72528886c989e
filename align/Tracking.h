// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Agreement.h"
#include "align/WorkingPicture.h"

namespace align {

/// One picture of a pair: what is seen, through which lens (of the stored picture), and from where.
struct TrackedView {
    const WorkingPicture *picture = nullptr;
    Lens lens;
    Rotation rotation;
};

/// How much two views show of each other.
struct Tracked {
    std::vector<Match> matches;
    /// Corners that either view has, at least, where the other one should show them.
    int corners = 0;
    /// Corners that were looked for.
    int sought = 0;
};

/// What is compared: pictures as they are, or what stands out in them from the light about it,
/// which a lens's dark border hardly changes.
enum class Shades { AsTheyAre, AgainstLight };

/// Finds corners of one view in the other, which is turned into the first one's frame for it; they
/// are found when they lie within some 30 working pixels of where the rotations say.
Tracked track(const TrackedView &first, const TrackedView &second, Shades shades);

/// Parts of the first one's area, 0 to 1, that the second shows by the rotations.
double overlapOf(const Lens &first, const QSize &firstSize, const Rotation &firstRotation,
    const Lens &second, const QSize &secondSize, const Rotation &secondRotation);

} // namespace align
