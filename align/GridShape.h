// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PictureOptics.h"

#include <QVector>
#include <optional>

/// A regular grid of locations whose angles nobody recorded.
struct GridShape {
    int rows = 0;
    int columns = 0;
    /// Percent that neighbours share.
    double overlap = 0;
    bool fullTurn = false;
};

/// The grid that \a record's locations fill; nothing when they fill none.
std::optional<GridShape> gridShapeOf(const ProjectRecord &record);

/// Degrees between neighbours of a grid.
struct GridSteps {
    double column = 0;
    double row = 0;
};

/// The steps of \a grid: the angles of view less the overlap; the columns of a full turn share it
/// out. \a turned: whether the pictures stand upright by a quarter turn.
GridSteps stepsOf(const GridShape &grid, const PictureOptics &lens, bool turned);

/// What can hardly be right with a grid.
struct GridDoubt {
    enum class Kind {
        OnePlace, ///< neighbours share everything
        BeyondPoles, ///< \a degrees from the lowest row to the highest, more than straight up to
                     ///< straight down
        BeyondTurn, ///< \a degrees that the columns take, more than a turn, and none is closed
        Gaps, ///< \a degrees that the pictures of a row see together, less than the turn they close
    };
    Kind kind;
    double degrees = 0;
};

/// All that is doubtful about \a grid.
QVector<GridDoubt> doubtsAbout(const GridShape &grid, const PictureOptics &lens, bool turned);
