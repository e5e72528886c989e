// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>
#include <functional>
#include <vector>

namespace geometry {

/// Where a picture looks, as a search for its neighbours sees it.
struct Spot {
    /// Of length 1 within 1e-6. A spot that is not finite has no neighbours.
    double x = 0, y = 0, z = 0;
    /// Radians; two spots nearer than the larger of both reaches are neighbours. Without effect
    /// unless it is above 0.
    double reach = 0;
    /// The direction is too uncertain to tell: every pair with this spot is tested.
    bool uncertain = false;
};

/// Finds the neighbours among pictures on a sphere, exactly those that a rule would find that is
/// applied to every pair.
///
/// Spots lie in cells of a cube round the sphere, so that only those near by are looked at. Their
/// scalar product decides wherever rounding cannot matter. The rule itself is asked only on the
/// border, within 1e-12 of it, and for spots in one direction, where its distance may be undefined.
///
/// Spots whose reaches differ by more than a factor of two lie in grids of their own: a single wide
/// picture among thousands widens nobody else's search.
class NeighbourSearch {
public:
    /// Whether two spots, by their indices, are neighbours. Must not depend on their order.
    using Rule = std::function<bool(int, int)>;

    /// \a spots must outlive the search.
    NeighbourSearch(const std::vector<Spot> &spots, Rule rule);

    /// Puts the neighbours of \a spot whose index is at least \a first into \a found, in rising
    /// order. Returns how many spots were looked at.
    qint64 find(int spot, int first, std::vector<int> &found) const;

    /// About how many links all neighbours give, where \a linksOf tells how many those found for
    /// one spot give. All spots are counted if that is quick, otherwise some that are spread
    /// evenly over the shooting; the time this takes is bounded.
    qint64 estimateLinks(
        const std::function<qint64(int spot, const std::vector<int> &found)> &linksOf) const;

private:
    struct Entry {
        double x, y, z;
        /// Scalar product at this spot's reach; more than 1 where it reaches nothing.
        double border;
        int index;
    };

    /// Spots of similar reach, sorted by the cell they lie in.
    class Grid {
    public:
        Grid() = default;
        Grid(std::vector<Entry> entries, double reach);

        /// Calls \a visit(first, last) for runs of entries that include all within \a reach of the
        /// direction, or of the grid's own reach where that is larger.
        template <class Visit>
        void visit(const Entry &from, double reach, const Visit &visit) const;

    private:
        struct Axis {
            double start = 0;
            int cells = 1;
        };
        struct Range {
            int first, last;
        };

        Range range(const Axis &axis, double centre, double radius) const;
        int cell(int x, int y, int z) const { return (x * m_y.cells + y) * m_z.cells + z; }
        int cellOf(const Entry &entry) const;

        double m_reach = 0;
        /// Its straight distance.
        double m_radius = 0;
        double m_side = 4;
        Axis m_x, m_y, m_z;
        std::vector<Entry> m_entries;
        /// Per cell the first of its entries; one more at the end.
        std::vector<int> m_starts;
    };

    Entry entryOf(int spot) const;
    bool isSearchable(int spot) const;

    const std::vector<Spot> &m_spots;
    Rule m_rule;
    std::vector<Grid> m_grids;
    std::vector<int> m_uncertain;
};

} // namespace geometry
