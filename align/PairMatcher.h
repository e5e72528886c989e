// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/MatchCache.h"
#include "align/PicturePairs.h"
#include "align/Tracking.h"
#include "align/WorkingPicture.h"

#include <functional>

namespace align {

/// Finds what the pictures of pairs have in common, or takes it from a cache where an earlier run
/// found it. One turn must explain it.
class PairMatcher {
public:
    /// Told how many pairs of how many are done; false ends the matching.
    using Progress = std::function<bool(int done, int total)>;

    /// \a isGrid: of the positions only the order is sure. All must outlive the matcher.
    PairMatcher(const PtoProject &project, const Cameras &cameras, bool isGrid, PicturePairs *pairs,
        MatchCache *cache);

    /// Tracks corners near to where the cameras have them, or where features were found; where that
    /// finds nothing, or too little of a pair that is doubted, far off. What a pair had is kept
    /// where nothing is found, unless it was rough. False when \a progress ended it.
    bool track(const PicturePairs::Places &wanted, const Progress &progress);
    /// Tracks clouds near to where the cameras have them, less exactly. The same.
    bool trackClouds(const PicturePairs::Places &wanted, const Progress &progress);
    /// Looks for features far around, and leaves rough pairs. The same.
    bool search(const PicturePairs::Places &wanted, const Progress &progress);

private:
    struct Sight;

    template <class Picture, class Read, class Match>
    bool visit(const char *method, const PicturePairs::Places &wanted, const Read &read,
        const Match &match, const Progress &progress);
    void trackPair(const WorkingPicture &first, const WorkingPicture &second, PicturePair *pair);

    /// \a gate: radians that things may be from where the views have them.
    Sight sightOf(const PicturePair &pair, const TrackedView &one, const TrackedView &other,
        double gate, Shades shades) const;
    WorkingPicture read(int picture) const;
    Agreement agreementOf(const PicturePair &pair, const Rotation &expected,
        const std::vector<Match> &matches, const AgreementLimits &limits) const;
    /// What makes the match of \a pair by \a method what it is.
    QByteArray keyOf(const PicturePair &pair, const char *method) const;

    const PtoProject &m_project;
    const Cameras &m_cameras;
    bool m_isGrid;
    PicturePairs &m_pairs;
    MatchCache &m_cache;
};

} // namespace align
