// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPair>
#include <algorithm>
#include <deque>
#include <future>
#include <memory>
#include <numeric>
#include <unordered_map>
#include <vector>

namespace align {

/// The places of \a pairs in the order of their later picture: neighbours in the head's order are
/// not far apart.
inline std::vector<int> headOrder(const std::vector<QPair<int, int>> &pairs)
{
    std::vector<int> order(pairs.size());
    std::iota(order.begin(), order.end(), 0);
    const auto key = [&](int i) {
        const auto [a, b] = pairs[static_cast<std::size_t>(i)];
        return std::make_pair(std::max(a, b), std::min(a, b));
    };
    std::sort(order.begin(), order.end(), [&](int a, int b) { return key(a) < key(b); });
    return order;
}

/// Visits all \a pairs of pictures, in an order in which \a read makes each picture once and it is
/// let go when its last pair is done; the next pictures are read meanwhile, in threads of their
/// own. \a visit is given a pair's place and its pictures; when it returns false the visit ends,
/// and so with false.
template <class Picture, class Read, class Visit>
bool visitPairs(const std::vector<QPair<int, int>> &pairs, const Read &read, const Visit &visit)
{
    constexpr std::size_t kAhead = 2;
    struct Held {
        std::unique_ptr<Picture> picture;
        /// Pairs still to be visited.
        int pairs = 0;
    };
    std::unordered_map<int, Held> held;
    std::vector<int> readings;
    const std::vector<int> order = headOrder(pairs);
    for (const int place : order) {
        const auto [first, second] = pairs[static_cast<std::size_t>(place)];
        for (const int picture : {first, second}) {
            if (held[picture].pairs++ == 0)
                readings.push_back(picture);
        }
    }
    std::deque<std::pair<int, std::future<Picture>>> ahead;
    std::size_t next = 0;
    const auto readAhead = [&] {
        while (ahead.size() < kAhead && next < readings.size()) {
            const int picture = readings[next++];
            ahead.emplace_back(picture,
                std::async(std::launch::async, [&read, picture] { return read(picture); }));
        }
    };
    const auto fetch = [&](int picture) -> const Picture & {
        readAhead();
        Held &entry = held[picture];
        while (!entry.picture) {
            held[ahead.front().first].picture
                = std::make_unique<Picture>(ahead.front().second.get());
            ahead.pop_front();
            readAhead();
        }
        return *entry.picture;
    };
    for (const int place : order) {
        const auto [first, second] = pairs[static_cast<std::size_t>(place)];
        const Picture &one = fetch(first);
        if (!visit(place, one, fetch(second)))
            return false;
        for (const int picture : {first, second}) {
            if (--held[picture].pairs == 0)
                held[picture].picture.reset();
        }
    }
    return true;
}

} // namespace align
