// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "gigapan/GigapanToSPP.h"

#include <QtGlobal>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// Grids of more cells than this, and than there are pictures, come from no page: their links would
/// only fill the memory.
constexpr qint64 kMostEmptyCells = 1'000'000;

void appendGridLinks(const GigapanLayout &layout, bool fullTurn, QVector<ProjectLink> &links)
{
    for (int row = 0; row < layout.rows; ++row) {
        for (int column = 0; column < layout.columns; ++column) {
            const bool lastColumn = column == layout.columns - 1;
            const bool hasRight = !lastColumn || fullTurn;
            const bool hasBelow = row < layout.rows - 1;
            const int rightColumn = lastColumn ? 0 : column + 1;

            const int here = locationAt(layout, row, column);
            const int right = locationAt(layout, row, rightColumn);
            const int below = locationAt(layout, row + 1, column);
            const int belowRight = locationAt(layout, row + 1, rightColumn);

            if (hasBelow)
                links.append({ProjectLink::Vertical, {here, below}});
            if (hasRight)
                links.append({ProjectLink::Horizontal, {here, right}});
            if (hasBelow && hasRight) {
                links.append({ProjectLink::DownLeft, {below, right}});
                links.append({ProjectLink::DownRight, {here, belowRight}});
            }
        }
    }
}

} // namespace

void GigapanToSPP::ChooseInitialGrid(int pictures)
{
    m_layout.ignore = 0;
    m_layout.bracket = 1;
    if (pictures < 1)
        return;
    int rows = static_cast<int>(std::sqrt(static_cast<float>(pictures)));
    while (pictures % rows != 0)
        --rows;
    m_layout.rows = rows;
    m_layout.columns = pictures / rows;
}

void GigapanToSPP::DeriveColumns(int pictures)
{
    if (m_layout.bracket < 1 || m_layout.rows < 1)
        return;
    const qint64 locations = (qint64(pictures) - m_layout.ignore) / m_layout.bracket;
    m_layout.columns = static_cast<int>(std::clamp<qint64>(locations / m_layout.rows,
        std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

void GigapanToSPP::Convert(const QStringList &images, bool fullTurn)
{
    const qint64 cells
        = m_layout.rows < 1 || m_layout.columns < 1 ? 0 : qint64(m_layout.rows) * m_layout.columns;

    const int step = m_layout.bracket;
    qint64 next = std::max(0, m_layout.ignore);
    for (qint64 cell = 0; cell < cells && next < images.size() && step > 0; ++cell, next += step)
        m_record.groups.append(images.mid(static_cast<int>(next), step));

    if (cells <= std::max<qint64>(kMostEmptyCells, images.size()))
        appendGridLinks(m_layout, fullTurn, m_record.links);

    m_record.layoutMode = m_layout.mode;
    m_record.layoutRows = m_layout.rows;
    m_record.layoutBracket = m_layout.bracket;
    m_record.fullTurn = fullTurn;
}

int locationAt(const GigapanLayout &layout, int row, int column)
{
    const qint64 up = qint64(layout.rows) - 1 - row;
    const qint64 left = qint64(layout.columns) - 1 - column;
    const auto inColumn = [&](qint64 nth) { return static_cast<int>(row + layout.rows * nth); };
    const auto inRow
        = [&](qint64 nth, qint64 place) { return static_cast<int>(place + layout.columns * nth); };

    switch (layout.mode) {
    case 1:
        return inRow(row, column);
    case 2:
        return inRow(up, column);
    case 3:
        return inColumn(left);
    case 4:
        return inRow(up, up % 2 == 0 ? column : left);
    default:
        return inColumn(column);
    }
}
