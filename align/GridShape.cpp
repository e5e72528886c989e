// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/GridShape.h"

#include <QtMath>
#include <cmath>
#include <utility>

namespace {

/// A turn that adds up to 360 degrees but for rounding is one.
constexpr double kRounding = 1e-6;

/// Degrees of an upright picture from side to side, and from top to bottom.
std::pair<double, double> anglesOf(const PictureOptics &lens, bool turned)
{
    const double across = qRadiansToDegrees(lens.angleAcross(lens.size.width()));
    const double down = qRadiansToDegrees(lens.angleAcross(lens.size.height()));
    return turned ? std::pair(down, across) : std::pair(across, down);
}

} // namespace

std::optional<GridShape> gridShapeOf(const ProjectRecord &record)
{
    const int groups = record.groups.size();
    const int rows = record.layoutRows;
    if (rows < 1 || groups < 1 || groups % rows != 0 || !std::isfinite(record.overlap))
        return std::nullopt;
    return GridShape{rows, groups / rows, record.overlap, record.fullTurn};
}

GridSteps stepsOf(const GridShape &grid, const PictureOptics &lens, bool turned)
{
    const auto [across, down] = anglesOf(lens, turned);
    const double apart = 1 - grid.overlap / 100;
    return {grid.fullTurn ? 360.0 / grid.columns : across * apart, down * apart};
}

QVector<GridDoubt> doubtsAbout(const GridShape &grid, const PictureOptics &lens, bool turned)
{
    using Kind = GridDoubt::Kind;
    const GridSteps steps = stepsOf(grid, lens, turned);
    const double high = (grid.rows - 1) * steps.row;
    const double wide = grid.columns * steps.column;
    const double seen = grid.columns * anglesOf(lens, turned).first;

    QVector<GridDoubt> doubts;
    if ((grid.rows > 1 && steps.row <= 0) || (grid.columns > 1 && steps.column <= 0))
        doubts.append({Kind::OnePlace});
    if (high > 180 + kRounding)
        doubts.append({Kind::BeyondPoles, high});
    if (!grid.fullTurn && wide > 360 + kRounding)
        doubts.append({Kind::BeyondTurn, wide});
    if (grid.fullTurn && seen < 360 - kRounding)
        doubts.append({Kind::Gaps, seen});
    return doubts;
}
