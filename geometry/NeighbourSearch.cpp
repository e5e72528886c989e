// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "geometry/NeighbourSearch.h"

#include "geometry/Angle.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <utility>

namespace geometry {

namespace {

/// What rounding may do to a scalar product, with a thousandfold margin.
constexpr double kBand = 1e-12;
/// How far from 1 the length of a spot's direction may lie, doubled for its square and both ends.
constexpr double kLengthError = 4e-6;
/// Reaches nothing: no scalar product comes near it.
constexpr double kNoReach = 2;

/// Grids by reach: each is for half the reach of the one before.
constexpr int kGrids = 16;
/// With reaches of more than 45 degrees cells would keep hardly anyone out.
constexpr int kGridsOfOneCell = 2;
constexpr int kCellsPerEntry = 4;

/// Spots that an estimate may look at.
constexpr qint64 kEstimateWork = 8'000'000;

/// 0 for a spot that reaches nothing.
double reachOf(const Spot &spot)
{
    return spot.reach > 0 ? std::min(spot.reach, kPi) : 0;
}

int gridFor(double reach)
{
    return static_cast<int>(std::clamp(std::floor(std::log2(kPi / reach)), 0.0, kGrids - 1.0));
}

/// Straight distance of two directions that are \a angle apart, at most.
double chord(double angle)
{
    const double length = 2 * std::sin(angle / 2);
    return std::sqrt(length * length + kLengthError);
}

/// A step through 0 ... size - 1 that comes by everywhere and is anywhere soon.
int evenStep(int size)
{
    int step = std::max(1, static_cast<int>(size * 0.618));
    while (std::gcd(step, size) != 1)
        ++step;
    return step;
}

} // namespace

NeighbourSearch::Grid::Grid(std::vector<Entry> entries, double reach)
    : m_reach(reach)
    , m_radius(chord(reach))
    , m_side(m_radius)
    , m_entries(std::move(entries))
{
    if (gridFor(reach) >= kGridsOfOneCell) {
        const std::array<std::pair<double Entry::*, Axis *>, 3> axes
            = {{{&Entry::x, &m_x}, {&Entry::y, &m_y}, {&Entry::z, &m_z}}};
        std::array<double, 3> extents{};
        for (std::size_t k = 0; k < axes.size(); ++k) {
            const auto [coordinate, axis] = axes[k];
            const auto [least, most] = std::minmax_element(m_entries.begin(), m_entries.end(),
                [coordinate = coordinate](
                    const Entry &a, const Entry &b) { return a.*coordinate < b.*coordinate; });
            axis->start = (*least).*coordinate;
            extents[k] = (*most).*coordinate - axis->start;
        }
        const double mostCells = kCellsPerEntry * (static_cast<double>(m_entries.size()) + 16);
        const auto cells = [&](std::size_t k) { return std::floor(extents[k] / m_side) + 1; };
        while (cells(0) * cells(1) * cells(2) > mostCells)
            m_side *= 1.1;
        for (std::size_t k = 0; k < axes.size(); ++k)
            axes[k].second->cells = static_cast<int>(cells(k));
    }

    // Sorted by counting, which keeps the order of the indices within a cell.
    m_starts.assign(static_cast<std::size_t>(m_x.cells) * m_y.cells * m_z.cells + 1, 0);
    for (const Entry &entry : m_entries)
        ++m_starts[cellOf(entry) + 1];
    std::partial_sum(m_starts.begin(), m_starts.end(), m_starts.begin());
    std::vector<int> next(m_starts.begin(), m_starts.end() - 1);
    std::vector<Entry> sorted(m_entries.size());
    for (const Entry &entry : m_entries)
        sorted[next[cellOf(entry)]++] = entry;
    m_entries = std::move(sorted);
}

NeighbourSearch::Grid::Range NeighbourSearch::Grid::range(
    const Axis &axis, double centre, double radius) const
{
    const double last = axis.cells - 1;
    const auto cellAt = [&](double place) {
        return static_cast<int>(std::clamp((place - axis.start) / m_side, 0.0, last));
    };
    return {cellAt(centre - radius), cellAt(centre + radius)};
}

int NeighbourSearch::Grid::cellOf(const Entry &entry) const
{
    return cell(
        range(m_x, entry.x, 0).first, range(m_y, entry.y, 0).first, range(m_z, entry.z, 0).first);
}

template <class Visit>
void NeighbourSearch::Grid::visit(const Entry &from, double reach, const Visit &visit) const
{
    const double radius = reach > m_reach ? chord(reach) : m_radius;
    const Range xs = range(m_x, from.x, radius);
    const Range ys = range(m_y, from.y, radius);
    const Range zs = range(m_z, from.z, radius);
    for (int x = xs.first; x <= xs.last; ++x) {
        for (int y = ys.first; y <= ys.last; ++y) {
            const int first = m_starts[cell(x, y, zs.first)];
            const int last = m_starts[cell(x, y, zs.last) + 1];
            visit(m_entries.data() + first, m_entries.data() + last);
        }
    }
}

NeighbourSearch::NeighbourSearch(const std::vector<Spot> &spots, Rule rule)
    : m_spots(spots)
    , m_rule(std::move(rule))
{
    std::array<std::vector<Entry>, kGrids> entries;
    std::array<double, kGrids> reaches{};
    const int size = static_cast<int>(m_spots.size());
    for (int spot = 0; spot < size; ++spot) {
        if (m_spots[spot].uncertain) {
            m_uncertain.push_back(spot);
        } else if (isSearchable(spot)) {
            const double reach = reachOf(m_spots[spot]);
            const int grid = gridFor(reach);
            entries[grid].push_back(entryOf(spot));
            reaches[grid] = std::max(reaches[grid], reach);
        }
    }
    for (int grid = 0; grid < kGrids; ++grid) {
        if (!entries[grid].empty())
            m_grids.emplace_back(std::move(entries[grid]), reaches[grid]);
    }
}

bool NeighbourSearch::isSearchable(int spot) const
{
    const Spot &at = m_spots[spot];
    return std::isfinite(at.x) && std::isfinite(at.y) && std::isfinite(at.z);
}

NeighbourSearch::Entry NeighbourSearch::entryOf(int spot) const
{
    const Spot &at = m_spots[spot];
    const double reach = reachOf(at);
    return {at.x, at.y, at.z, reach > 0 ? std::cos(reach) : kNoReach, spot};
}

qint64 NeighbourSearch::find(int spot, int first, std::vector<int> &found) const
{
    found.clear();
    if (m_spots[spot].uncertain) {
        const int size = static_cast<int>(m_spots.size());
        for (int other = first; other < size; ++other) {
            if (other != spot && m_rule(spot, other))
                found.push_back(other);
        }
        return size;
    }
    if (!isSearchable(spot))
        return 0;

    auto lookedAt = static_cast<qint64>(m_uncertain.size());
    const Entry from = entryOf(spot);
    const auto look = [&](const Entry *entry, const Entry *end) {
        std::size_t count = found.size();
        found.resize(count + (end - entry));
        lookedAt += end - entry;
        // Whether a spot is near is a toss-up, so that is no branch; being on the border is one.
        for (; entry != end; ++entry) {
            // The order of the sum is the rules' own.
            const double product = from.x * entry->x + from.y * entry->y + from.z * entry->z;
            const double border = std::min(from.border, entry->border);
            const int isAsked = (entry->index >= first) & (entry->index != spot);
            const int isNear = (product >= border - kBand) & isAsked;
            const int isSure = (product > border + kBand) & (product < 1 - kBand);
            if ((isNear & ~isSure) != 0 && !m_rule(spot, entry->index))
                continue;
            found[count] = entry->index;
            count += isNear;
        }
        found.resize(count);
    };
    for (const Grid &grid : m_grids)
        grid.visit(from, reachOf(m_spots[spot]), look);
    for (const int other : m_uncertain) {
        if (other >= first && m_rule(spot, other))
            found.push_back(other);
    }
    if (!std::is_sorted(found.begin(), found.end()))
        std::sort(found.begin(), found.end());
    return lookedAt;
}

qint64 NeighbourSearch::estimateLinks(
    const std::function<qint64(int, const std::vector<int> &)> &linksOf) const
{
    const int size = static_cast<int>(m_spots.size());
    if (size == 0)
        return 0;
    const int step = evenStep(size);
    std::vector<int> found;
    qint64 work = 0;
    qint64 links = 0;
    qint64 counted = 0;
    for (qint64 spot = 0; counted < size && work < kEstimateWork; ++counted) {
        work += find(static_cast<int>(spot), 0, found);
        links += linksOf(static_cast<int>(spot), found);
        spot = (spot + step) % size;
    }
    return counted == size
        ? links
        : std::llround(static_cast<double>(links) * size / static_cast<double>(counted));
}

} // namespace geometry
