// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <numeric>
#include <vector>

namespace align {

/// The numbers from 0 up, in sets that are joined bit by bit.
class DisjointSets {
public:
    /// Each of \a count numbers is a set of its own.
    explicit DisjointSets(int count)
        : m_parents(static_cast<std::size_t>(count))
    {
        std::iota(m_parents.begin(), m_parents.end(), 0);
    }

    /// The smallest number in the set of \a i.
    int smallest(int i)
    {
        while (parent(i) != i)
            i = parent(i) = parent(parent(i));
        return i;
    }
    /// False when \a a and \a b were in one set already.
    bool join(int a, int b)
    {
        a = smallest(a);
        b = smallest(b);
        parent(std::max(a, b)) = std::min(a, b);
        return a != b;
    }

private:
    int &parent(int i) { return m_parents[static_cast<std::size_t>(i)]; }

    std::vector<int> m_parents;
};

} // namespace align
