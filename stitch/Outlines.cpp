// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Outlines.h"

#include <QImage>
#include <algorithm>
#include <cmath>

namespace {

/// Points a side: the widest lenses bend it.
constexpr int kSteps = 40;
/// Places across in which seams are looked for.
constexpr int kMostColumns = 1500;

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

/// Which of the groups that were blended each place of a grid shows.
class GroupMap {
public:
    explicit GroupMap(QSize size)
        : m_size(size)
        , m_groups(size.width() * size.height(), 0)
    {
    }
    QSize size() const { return m_size; }
    int at(int x, int y) const { return m_groups.at(y * m_size.width() + x); }

    /// \a mask has pixels of the whole panorama, which is \a whole, and may be a part of it.
    void cover(const QImage &mask, const QPoint &offset, const QSize &whole, int group)
    {
        for (int y = 0; y < m_size.height(); ++y) {
            const int row = middle(y, m_size.height(), whole.height()) - offset.y();
            if (row < 0 || row >= mask.height())
                continue;
            const uchar *line = mask.constScanLine(row);
            for (int x = 0; x < m_size.width(); ++x) {
                const int column = middle(x, m_size.width(), whole.width()) - offset.x();
                if (column >= 0 && column < mask.width() && line[column] > 0x7f)
                    m_groups[y * m_size.width() + x] = group;
            }
        }
    }

private:
    /// The pixel of \a pixels in the middle of the place \a cell of \a cells.
    static int middle(int cell, int cells, int pixels)
    {
        return int((2 * qint64(cell) + 1) * pixels / 2 / cells);
    }

    QSize m_size;
    QVector<int> m_groups;
};

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

QVector<QPolygonF> seamsOf(const PtoProject &project, const Frame &frame, const QStringList &masks)
{
    const QSize whole = frame.crop.size();
    GroupMap map(whole.width() <= kMostColumns
            ? whole
            : QSize(kMostColumns,
                std::max(1, qRound(double(kMostColumns) * whole.height() / whole.width()))));
    int group = 0;
    for (const QString &path : masks) {
        const QImage mask(path);
        if (mask.isNull())
            return {};
        // enblend saves no more of it than what is blended so far.
        map.cover(mask.convertToFormat(QImage::Format_Grayscale8), mask.offset(), whole, ++group);
    }

    const QVector<View> views = viewsOf(project);
    const auto isFirst = [&project](int i) {
        return i == 0 || project.pictures.at(i).location != project.pictures.at(i - 1).location;
    };
    const double width = map.size().width();
    const double height = map.size().height();
    // Beyond the pictures' borders masks are white or black by chance.
    const auto isOverlap = [&](const QPointF &part) {
        const auto direction = frame.unproject(
            frame.crop.topLeft() + QPointF(part.x() * whole.width(), part.y() * whole.height()));
        int seen = 0;
        for (int i = 0; direction && seen < 2 && i < views.size(); ++i)
            seen += isFirst(i) && views.at(i).sees(*direction) ? 1 : 0;
        return seen == 2;
    };
    QVector<QPolygonF> lines;
    // From the corner (x, y) to the next below, or to the right.
    const auto addSide = [&](int x, int y, bool isDown) {
        const QPointF from(x / width, y / height);
        const QPointF to((x + !isDown) / width, (y + isDown) / height);
        if (!isOverlap((from + to) / 2))
            return;
        if (!lines.isEmpty() && lines.last().last() == from
            && (lines.last().first().x() == to.x() || lines.last().first().y() == to.y()))
            lines.last().last() = to;
        else
            lines.append(QVector<QPointF>{from, to});
    };
    for (int x = 1; x < map.size().width(); ++x) {
        for (int y = 0; y < map.size().height(); ++y) {
            if (map.at(x - 1, y) != map.at(x, y))
                addSide(x, y, true);
        }
    }
    for (int y = 1; y < map.size().height(); ++y) {
        for (int x = 0; x < map.size().width(); ++x) {
            if (map.at(x, y - 1) != map.at(x, y))
                addSide(x, y, false);
        }
    }
    return lines;
}
