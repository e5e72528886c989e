// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Agreement.h"

#include <functional>
#include <utility>
#include <vector>

namespace align {

/// The places of a panorama's cameras and their lenses, and what is known of them.
struct AdjustmentTask {
    /// A camera, or several that share one place and are taken for one.
    struct Picture {
        /// Which of the free places it has; its own axes at that place are base.
        int place = 0;
        int lens = 0;
        Rotation base;
    };
    /// Matches of two pictures of different places; the weights are heeded.
    struct Pair {
        int first = 0;
        int second = 0;
        std::vector<Match> matches;
    };
    struct SharedLens {
        Lens lens;
        /// Stored pixels that count as one pixel when residuals are weighed.
        double scale = 1;
    };

    std::vector<Picture> pictures;
    std::vector<Pair> pairs;
    std::vector<SharedLens> lenses;
    /// Two places that turn alike unless matches say otherwise.
    struct Neighbours {
        int first = 0;
        int second = 0;
        /// Of one stack: they were one place, and but for a touch still are.
        bool isStack = false;
    };
    std::vector<Neighbours> neighbours;
    int places = 0;
    /// Per place: whether the base is worth something; the others, which are only started from
    /// there, have no pull towards it.
    std::vector<bool> trusted;
};

struct AdjustmentResult {
    /// The turn of the world that each place makes its bases by.
    std::vector<Rotation> turns;
    std::vector<Lens> lenses;
    bool isCancelled = false;
};

/// Turns places and changes lenses until the rays of matches meet best. Large distances
/// count less (Huber). Places without matches follow their neighbours.
AdjustmentResult adjust(const AdjustmentTask &task, const std::function<bool()> &goOn);

} // namespace align
