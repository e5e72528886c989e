// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/ProjectRecord.h"

#include <QStringList>

/// How the pictures of a regular grid lie in it.
struct GigapanLayout {
    /// Pictures a location.
    int bracket = 1;
    /// Leading pictures that do not belong to the panorama.
    int ignore = 0;
    /// Derived from the other values; 0 or negative when there are too few pictures for one.
    int columns = 5;
    int rows = 4;
    /// Order in which the pictures fill the grid: 0 columns, 1 rows downward, 2 rows upward,
    /// 3 columns to the left, 4 rows upward in turning direction.
    int mode = 0;
};

/// Turns the pictures of a regular grid into a project record.
class GigapanToSPP {
public:
    /// Chooses the most nearly square grid for \a pictures (at least 1), with no more rows than
    /// columns, and no brackets or ignored pictures.
    void ChooseInitialGrid(int pictures);

    /// Computes the columns from rows, brackets and ignored pictures, for \a pictures in all.
    void DeriveColumns(int pictures);

    /// Appends groups and links to the record and stores the layout.
    void Convert(const QStringList &images, bool fullTurn);

    /// Makes the record as new, for another import.
    void ClearRecord() { m_record = {}; }

    ProjectRecord &Record() { return m_record; }
    GigapanLayout &Layout() { return m_layout; }

protected:
    ProjectRecord m_record;
    GigapanLayout m_layout;
};

/// Location index of the cell at \a row (0: top) and \a column (0: left).
int locationAt(const GigapanLayout &layout, int row, int column);
