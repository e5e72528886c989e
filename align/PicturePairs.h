// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Agreement.h"
#include "align/Cameras.h"

#include <vector>

namespace align {

/// Two pictures that should show something of each other, the smaller one first.
struct PicturePair {
    int first = 0;
    int second = 0;
    /// Within a stack.
    bool isInner = false;
    /// As Tracked::corners.
    int corners = 0;
    std::vector<Match> matches;
    /// Of the second camera's axes into the first's.
    Rotation turn = Rotation::Identity();
    /// Working pixels from where it was looked for to where it was found.
    double distance = 0;
    /// Neither the head nor other pairs tell where it is to be looked for: only what is sure
    /// counts.
    bool isDoubted = false;
    /// Found by so many of the corners looked for that chance cannot have done it.
    bool isSure = false;
    /// Found by features, which only tell where to track.
    bool isRough = false;

    bool isJoined() const { return !matches.empty(); }
    /// Whether both pictures show enough there for something to be found.
    bool isTextured() const;
};

/// The pairs that are matched, and how they hang together.
class PicturePairs {
public:
    using Places = std::vector<int>;
    /// Whether what is found lies about where the head has it; unknown as long as chance may have
    /// found it.
    enum class Head { Near, Far, Unknown };

    explicit PicturePairs(const Cameras &cameras)
        : m_cameras(cameras)
    {
    }

    /// Chooses what \a record wants matched of \a project: neighbours by one picture of each stack
    /// or by all levels, and the pictures of a stack if they are not one place.
    void choose(
        const ProjectRecord &record, const PictureTable &pictures, const PtoProject &project);

    int count() const { return static_cast<int>(m_pairs.size()); }
    PicturePair &operator[](int place) { return m_pairs[static_cast<std::size_t>(place)]; }
    const PicturePair &operator[](int place) const
    {
        return m_pairs[static_cast<std::size_t>(place)];
    }
    auto begin() const { return m_pairs.begin(); }
    auto end() const { return m_pairs.end(); }

    Places all() const;
    /// Those in which something should have been found, and was not; of those that are doubted any
    /// corner is enough.
    Places failed() const;
    /// Those not found that would join parts or hold a place, and whose stacks do not hold them:
    /// clouds may.
    Places clouds() const;
    /// Those in which something was found, or should have been.
    Places textured() const;
    /// Those found so far from where they were expected that more will be found there.
    Places distant() const;
    Head head() const;
    /// Doubts those whose place neither the head nor sure ones tell, and forgets what is not sure
    /// of them.
    void doubt();
    /// Whether there are some that want tracking again.
    bool hasPoor() const;
    /// Those of \a failed that would join parts, or hold a place that hangs on one other.
    Places loose(const Places &failed) const;
    /// Of each picture the smallest one that it hangs together with, by matches or by its place.
    std::vector<int> parts() const;

    /// Of each match of \a pair the distance of its rays, in working pixels.
    std::vector<double> residuals(const PicturePair &pair) const;
    /// Forgets single matches that are far off.
    void dropOutliers();
    /// Forgets all matches of pairs that agreed on a turn that nothing else bears out.
    void dropWrong();
    /// The same for pairs that can by no means be right; false when there are none.
    bool dropHopeless();

private:
    template <class Condition> Places where(const Condition &condition) const;
    template <class Condition> std::vector<int> partsJoinedBy(const Condition &condition) const;
    std::vector<double> distances(
        const PicturePair &pair, const Rotation &one, const Rotation &other) const;
    bool dropBeyond(double limit, const std::vector<double> &middles);
    std::vector<double> middleResiduals() const;

    const Cameras &m_cameras;
    std::vector<PicturePair> m_pairs;
};

} // namespace align
