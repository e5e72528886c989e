// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/HeldPlaces.h"

#include "geometry/Median.h"

#include <algorithm>
#include <optional>

namespace align {

namespace {

/// Joined places with joined neighbours that it takes to tell what neighbours are worth.
constexpr int kFewest = 6;

/// Which places lie side by side, and how each is turned from where the head and the whole have it.
class Turns {
public:
    Turns(const PicturePairs &pairs, const Cameras &cameras)
        : m_cameras(cameras)
        , m_neighbours(static_cast<std::size_t>(cameras.count()))
        , m_turns(m_neighbours.size())
        , m_isJoined(m_neighbours.size(), false)
    {
        for (const PicturePair &pair : pairs) {
            const int a = cameras.owner(pair.first);
            const int b = cameras.owner(pair.second);
            if (a == b)
                continue;
            neighbours(a).push_back({b, pair.isInner});
            neighbours(b).push_back({a, pair.isInner});
            if (pair.isJoined())
                m_isJoined[place(a)] = m_isJoined[place(b)] = true;
        }
        TurnFit fit;
        for (int i = 0; i < cameras.count(); ++i) {
            if (m_isJoined[place(i)])
                fit.add(cameras.recorded(i), cameras.rotation(i));
        }
        m_whole = fit.turn();
        for (int i = 0; i < cameras.count(); ++i) {
            if (m_isJoined[place(i)])
                m_turns[place(i)] = axisOf(
                    m_whole.transpose() * cameras.rotation(i) * cameras.recorded(i).transpose());
        }
    }

    bool isJoined(int owner) const { return m_isJoined[place(owner)]; }
    bool isKnown(int owner) const { return m_turns[place(owner)].has_value(); }
    void setTurn(int owner, const Vector &turn) { m_turns[place(owner)] = turn; }

    /// Radians: the middle turn of those beside \a owner that are known, or of its own stack. Where
    /// a turn closes on itself, one side may be off by the whole of the head's drift.
    std::optional<Vector> around(int owner, bool isStack) const
    {
        std::vector<double> turns[3];
        for (const Neighbour &neighbour : m_neighbours[place(owner)]) {
            if (neighbour.isStack != isStack || !isKnown(neighbour.owner))
                continue;
            for (int axis = 0; axis < 3; ++axis)
                turns[axis].push_back((*m_turns[place(neighbour.owner)])[axis]);
        }
        if (turns[0].empty())
            return std::nullopt;
        Vector middle;
        for (int axis = 0; axis < 3; ++axis)
            middle[axis]
                = (geometry::lowerMedian(turns[axis]) + geometry::upperMedian(turns[axis])) / 2;
        return middle;
    }

    /// 0 to 1: what part of its neighbours' turn a place has too, by least squares.
    double likeness() const
    {
        double products = 0;
        double squares = 0;
        int count = 0;
        for (int i = 0; i < m_cameras.count(); ++i) {
            const auto around = isKnown(i) ? this->around(i, false) : std::nullopt;
            if (!around)
                continue;
            products += m_turns[place(i)]->dot(*around);
            squares += around->squaredNorm();
            ++count;
        }
        return count >= kFewest && squares > 0 ? std::clamp(products / squares, 0.0, 1.0) : 0;
    }

    /// Where the pictures of \a owner's place look when their recorded positions do \a picture.
    Rotation rotationOf(int picture) const
    {
        const Vector turn = m_turns[place(m_cameras.owner(picture))].value_or(Vector::Zero());
        return m_whole * turnBy(turn) * m_cameras.recorded(picture);
    }

private:
    struct Neighbour {
        int owner = 0;
        bool isStack = false;
    };

    static std::size_t place(int i) { return static_cast<std::size_t>(i); }
    std::vector<Neighbour> &neighbours(int owner) { return m_neighbours[place(owner)]; }

    const Cameras &m_cameras;
    std::vector<std::vector<Neighbour>> m_neighbours;
    /// By owner, in the axes of the recorded world.
    std::vector<std::optional<Vector>> m_turns;
    std::vector<bool> m_isJoined;
    Rotation m_whole = Rotation::Identity();
};

} // namespace

void placeHeld(const PicturePairs &pairs, Cameras *cameras)
{
    Turns turns(pairs, *cameras);
    std::vector<int> rest;
    for (int i = 0; i < cameras->count(); ++i) {
        if (cameras->owner(i) == i && !turns.isJoined(i))
            rest.push_back(i);
    }
    const double likeness = turns.likeness();
    // From the joined ones outward, those of one distance at a time.
    while (!rest.empty()) {
        std::vector<std::pair<int, Vector>> next;
        for (const int owner : rest) {
            if (const auto own = turns.around(owner, true))
                next.emplace_back(owner, *own);
            else if (const auto around = turns.around(owner, false))
                next.emplace_back(owner, likeness * *around);
        }
        if (next.empty())
            break;
        for (const auto &[owner, turn] : next)
            turns.setTurn(owner, turn);
        rest.erase(std::remove_if(
                       rest.begin(), rest.end(), [&](int owner) { return turns.isKnown(owner); }),
            rest.end());
    }
    for (int i = 0; i < cameras->count(); ++i) {
        if (!turns.isJoined(cameras->owner(i)))
            cameras->setRotation(i, turns.rotationOf(i));
    }
}

} // namespace align
