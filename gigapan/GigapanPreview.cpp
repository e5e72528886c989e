// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "gigapan/GigapanPreview.h"

#include <algorithm>

namespace {
constexpr double kCell = 96;
constexpr double kStep = 104;
constexpr double kMargin = 8;
} // namespace

GigapanUse useOf(const GigapanLayout &layout, int pictures)
{
    GigapanUse use;
    use.ignored = std::clamp(layout.ignore, 0, pictures);
    const int remaining = pictures - use.ignored;
    const qint64 cells = qint64(std::max(0, layout.rows)) * std::max(0, layout.columns);
    use.locations = int(std::min<qint64>(cells, remaining / std::max(1, layout.bracket)));
    use.leftOver = remaining - use.locations * std::max(1, layout.bracket);
    return use;
}

PreviewScene gridScene(const GigapanLayout &layout, int pictures, const QBrush &background)
{
    PreviewScene scene;
    scene.background = background;
    if (layout.columns < 1 || layout.rows < 1)
        return scene;
    scene.width = layout.columns * kStep + kMargin;
    scene.height = layout.rows * kStep + kMargin;
    const GigapanUse use = useOf(layout, pictures);
    scene.path.resize(use.locations);
    scene.cells.resize(use.locations);
    QVector<PreviewCell> empty;
    for (int row = 0; row < layout.rows; ++row) {
        for (int column = 0; column < layout.columns; ++column) {
            PreviewCell cell;
            cell.rect = QRectF(kMargin + column * kStep, kMargin + row * kStep, kCell, kCell);
            const int location = locationAt(layout, row, column);
            if (location >= use.locations) {
                empty.append(cell);
            } else {
                cell.picture = use.ignored + location * layout.bracket;
                cell.caption = QString::number(location);
                scene.path[location] = cell.rect.center();
                if (location == use.locations - 1)
                    cell.mark = PreviewCell::Mark::Last;
                if (location == 0)
                    cell.mark = PreviewCell::Mark::First;
                scene.cells[location] = cell;
            }
        }
    }
    scene.cells += empty;
    return scene;
}
