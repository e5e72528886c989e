// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/LocationPairs.h"

#include "align/DisjointSets.h"
#include "geometry/NeighbourSearch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace align {

namespace {

using Pair = QPair<int, int>;

struct Candidate {
    Pair pair;
    /// Radians between the two.
    double distance;
};

Pair ordered(int a, int b)
{
    return {std::min(a, b), std::max(a, b)};
}

double distance(const Outlook &a, const Outlook &b)
{
    return std::acos(std::clamp(a.rotation.col(2).dot(b.rotation.col(2)), -1.0, 1.0));
}

std::vector<Pair> linkedPairs(const ProjectRecord &record, int count)
{
    std::vector<Pair> pairs;
    for (const ProjectLink &link : record.links) {
        for (int i = 0; i < link.indices.size(); ++i) {
            for (int k = 0; k < i; ++k) {
                const int a = link.indices[i];
                const int b = link.indices[k];
                // A grid may link cells that no picture filled, and a column with itself.
                if (a != b && std::min(a, b) >= 0 && std::max(a, b) < count)
                    pairs.push_back(ordered(a, b));
            }
        }
    }
    return pairs;
}

/// Locations whose pictures reach each other's middle, or nearly.
std::vector<Pair> nearPairs(const std::vector<Outlook> &outlooks)
{
    std::vector<geometry::Spot> spots;
    for (const Outlook &outlook : outlooks) {
        const auto direction = outlook.rotation.col(2);
        const QSize &size = outlook.lens.size;
        const double widest
            = std::min(outlook.lens.angleAcross(std::max(size.width(), size.height())), 2.8);
        spots.push_back({direction.x(), direction.y(), direction.z(), 0.75 * widest, false});
    }
    const auto rule = [&](int a, int b) {
        const auto place = [](int i) { return static_cast<std::size_t>(i); };
        return distance(outlooks[place(a)], outlooks[place(b)])
            < std::max(spots[place(a)].reach, spots[place(b)].reach);
    };
    const geometry::NeighbourSearch search(spots, rule);
    std::vector<Pair> pairs;
    std::vector<int> found;
    for (int i = 0; i < static_cast<int>(spots.size()); ++i) {
        found.clear();
        search.find(i, i + 1, found);
        for (const int other : found)
            pairs.push_back(ordered(i, other));
    }
    return pairs;
}

/// 0 to 3: right, up, left, down of \a from, as its picture is stored.
int sideOf(const Outlook &from, const Outlook &to)
{
    const Vector direction = from.rotation.transpose() * to.rotation.col(2);
    if (std::abs(direction.x()) >= std::abs(direction.y()))
        return direction.x() >= 0 ? 0 : 2;
    return direction.y() >= 0 ? 1 : 3;
}

} // namespace

std::vector<QPair<int, int>> locationPairs(
    const ProjectRecord &record, const std::vector<Outlook> &outlooks)
{
    const bool byDistance = record.links.isEmpty() && record.lensType == ProjectRecord::Fisheye;
    std::vector<Pair> pairs
        = byDistance ? nearPairs(outlooks) : linkedPairs(record, static_cast<int>(outlooks.size()));
    std::sort(pairs.begin(), pairs.end());
    pairs.erase(std::unique(pairs.begin(), pairs.end()), pairs.end());

    const auto outlook
        = [&](int i) -> const Outlook & { return outlooks[static_cast<std::size_t>(i)]; };
    std::vector<Candidate> candidates;
    candidates.reserve(pairs.size());
    for (const Pair &pair : pairs)
        candidates.push_back({pair, distance(outlook(pair.first), outlook(pair.second))});
    std::stable_sort(candidates.begin(), candidates.end(),
        [](const Candidate &a, const Candidate &b) { return a.distance < b.distance; });

    // From near to far, the first on each side is the nearest there.
    std::vector<std::array<bool, 4>> taken(outlooks.size());
    DisjointSets sets(static_cast<int>(outlooks.size()));
    std::vector<Pair> chosen;
    std::vector<Candidate> rest;
    for (const Candidate &candidate : candidates) {
        const auto [a, b] = candidate.pair;
        bool &there = taken[static_cast<std::size_t>(a)]
                           [static_cast<std::size_t>(sideOf(outlook(a), outlook(b)))];
        bool &back = taken[static_cast<std::size_t>(b)]
                          [static_cast<std::size_t>(sideOf(outlook(b), outlook(a)))];
        if (there && back) {
            rest.push_back(candidate);
            continue;
        }
        there = back = true;
        sets.join(candidate.pair.first, candidate.pair.second);
        chosen.push_back(candidate.pair);
    }
    for (const Candidate &candidate : rest) {
        if (sets.join(candidate.pair.first, candidate.pair.second))
            chosen.push_back(candidate.pair);
    }
    std::sort(chosen.begin(), chosen.end());
    return chosen;
}

} // namespace align
