// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Chain.h"

#include <queue>

namespace align {

namespace {

std::size_t at(int i)
{
    return static_cast<std::size_t>(i);
}

} // namespace

void chain(const PicturePairs &pairs, Cameras *cameras)
{
    const int count = cameras->count();
    // By owner: the places of its pairs.
    std::vector<PicturePairs::Places> pairsOf(at(count));
    for (int i = 0; i < pairs.count(); ++i) {
        const int owners[] = {cameras->owner(pairs[i].first), cameras->owner(pairs[i].second)};
        if (!pairs[i].isJoined() || owners[0] == owners[1])
            continue;
        for (const int owner : owners)
            pairsOf[at(owner)].push_back(i);
    }
    // By owner: the turn of the world from the recorded place.
    std::vector<Rotation> turns(at(count), Rotation::Identity());
    std::vector<bool> isDone(at(count), false);
    for (int start = 0; start < count; ++start) {
        if (cameras->owner(start) != start || isDone[at(start)] || pairsOf[at(start)].empty())
            continue;
        PicturePairs::Places part{start};
        isDone[at(start)] = true;
        // The pairs with most matches first.
        std::priority_queue<std::pair<std::size_t, int>> steps;
        const auto reach = [&](int owner) {
            for (const int pair : pairsOf[at(owner)])
                steps.emplace(pairs[pair].matches.size(), pair);
        };
        reach(start);
        while (!steps.empty()) {
            const PicturePair &pair = pairs[steps.top().second];
            steps.pop();
            const int first = cameras->owner(pair.first);
            const int second = cameras->owner(pair.second);
            if (isDone[at(first)] && isDone[at(second)])
                continue;
            const bool isForward = isDone[at(first)];
            const int from = isForward ? first : second;
            const int to = isForward ? second : first;
            const int known = isForward ? pair.first : pair.second;
            const int other = isForward ? pair.second : pair.first;
            const Rotation turn = isForward ? pair.turn : Rotation(pair.turn.transpose());
            turns[at(to)] = turns[at(from)] * cameras->recorded(known) * turn
                * cameras->recorded(other).transpose();
            isDone[at(to)] = true;
            part.push_back(to);
            reach(to);
        }
        TurnFit fit;
        for (const int owner : part)
            fit.add(turns[at(owner)] * cameras->recorded(owner), cameras->recorded(owner));
        const Rotation back = fit.turn();
        for (const int owner : part)
            turns[at(owner)] = back * turns[at(owner)];
    }
    for (int i = 0; i < count; ++i)
        cameras->setRotation(i, turns[at(cameras->owner(i))] * cameras->recorded(i));
}

void settle(const PicturePairs &pairs, Cameras *cameras)
{
    const std::vector<int> parts = pairs.parts();
    std::vector<int> sizes(parts.size(), 0);
    std::vector<TurnFit> fits(parts.size());
    for (int i = 0; i < cameras->count(); ++i) {
        fits[at(parts[at(i)])].add(cameras->rotation(i), cameras->recorded(i));
        ++sizes[at(parts[at(i)])];
    }
    for (int i = 0; i < cameras->count(); ++i) {
        if (sizes[at(parts[at(i)])] > 1)
            cameras->setRotation(i, fits[at(parts[at(i)])].turn() * cameras->rotation(i));
    }
}

} // namespace align
