// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Outlines.h"

#include <cmath>

namespace {

/// Points a side: the widest lenses bend it.
constexpr int kSteps = 40;

/// The border of a picture, in pixels from its centre, closed.
QPolygonF borderOf(const QSize &size)
{
    const QRectF rect(-size.width() / 2.0, -size.height() / 2.0, size.width(), size.height());
    const QPointF corners[]
        = {rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft(), rect.topLeft()};
    QPolygonF border;
    for (int side = 0; side < 4; ++side) {
        for (int step = 0; step < kSteps; ++step)
            border.append(
                corners[side] + (corners[side + 1] - corners[side]) * (double(step) / kSteps));
    }
    border.append(corners[4]);
    return border;
}

} // namespace

QVector<QPolygonF> outlinesOf(const PtoProject &project, const Frame &frame)
{
    QVector<QPolygonF> lines;
    QPolygonF line;
    const auto end = [&] {
        if (line.size() > 1)
            lines.append(line);
        line.clear();
    };
    const QVector<View> views = viewsOf(project);
    int location = -1;
    for (int k = 0; k < views.size(); ++k) {
        const PtoProject::Picture &picture = project.pictures.at(k);
        if (picture.location == location)
            continue;
        location = picture.location;
        const QPolygonF border = borderOf(picture.lens.size);
        for (const QPointF &point : border) {
            const auto place = frame.project(views.at(k).at(point.x(), point.y()));
            if (!place) {
                end();
                continue;
            }
            const QPointF part((place->x() - frame.crop.x()) / frame.crop.width(),
                (place->y() - frame.crop.y()) / frame.crop.height());
            // The shorter way leads over the seam behind the canvas.
            if (!line.isEmpty()
                && std::abs(part.x() - line.last().x()) * frame.crop.width()
                    > frame.canvas.width() / 2.0)
                end();
            line.append(part);
        }
        end();
    }
    return lines;
}
