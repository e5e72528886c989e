// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/PreviewDrawing.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kCell = 96;
// Captions shrink with the cells, down to what can still be read; below that they are left out.
constexpr double kCaptionPixels = 11;
constexpr double kSmallestCaptionPixels = 8;
constexpr double kSmallestCaptionedCell = 36;
constexpr int kPathWidth = 2;

} // namespace

PreviewDrawing::PreviewDrawing(PreviewScene scene, const PreviewCanvas &canvas, QPalette palette)
    : m_scene(std::move(scene))
    , m_canvas(canvas)
    , m_palette(std::move(palette))
    , m_xFactor(canvas.size.width() / m_scene.width)
    , m_yFactor(canvas.size.height() / m_scene.height)
{
    m_places.reserve(m_scene.cells.size());
    for (const PreviewCell &cell : qAsConst(m_scene.cells))
        m_places.append(place(cell.rect));
}

QPointF PreviewDrawing::toDevice(const QPointF &point) const
{
    return {point.x() * m_xFactor, point.y() * m_yFactor};
}

QRect PreviewDrawing::place(const QRectF &rect) const
{
    const QPointF topLeft = toDevice(rect.topLeft());
    const QPointF bottomRight = toDevice(rect.bottomRight());
    const bool isInside = bottomRight.x() >= 0 && bottomRight.y() >= 0
        && topLeft.x() <= m_canvas.size.width() && topLeft.y() <= m_canvas.size.height();
    if (!isInside)
        return {};
    // Whole pixels, so that a part of the preview can be redrawn without a seam.
    const QPoint first = topLeft.toPoint();
    const QPoint last = bottomRight.toPoint();
    return {first, QSize(std::max(1, last.x() - first.x()), std::max(1, last.y() - first.y()))};
}

QRect PreviewDrawing::reach(int cell) const
{
    const QRect &rect = m_places.at(cell);
    if (rect.isEmpty())
        return {};
    const int margin = frameWidth(rect, m_scene.cells.at(cell).mark);
    return rect.adjusted(-margin, -margin, margin, margin);
}

void PreviewDrawing::paint(QPainter &painter, const ThumbnailSource &thumbnails)
{
    paintGround(painter);
    for (int cell = 0; cell < m_scene.cells.size(); ++cell) {
        const int picture = m_scene.cells.at(cell).picture;
        if (!m_places.at(cell).isEmpty())
            paintCell(painter, cell, picture < 0 ? nullptr : thumbnails(picture));
    }
    paintPath(painter, QRect(QPoint(), m_canvas.size));
}

void PreviewDrawing::paintGround(QPainter &painter) const
{
    painter.fillRect(QRect(QPoint(), m_canvas.size), m_scene.background);
}

void PreviewDrawing::paintCell(QPainter &painter, int cell, const QPixmap *thumbnail)
{
    const QRect &rect = m_places.at(cell);
    if (rect.isEmpty())
        return;
    const PreviewCell &what = m_scene.cells.at(cell);
    if (thumbnail && !thumbnail->isNull())
        paintThumbnail(painter, rect, *thumbnail, what.roll);
    paintFrame(painter, rect, what.mark);
    paintCaption(painter, rect, what.caption);
}

void PreviewDrawing::paintThumbnail(
    QPainter &painter, const QRect &rect, const QPixmap &thumbnail, double roll)
{
    // Turned before it is scaled to its final pixels: the result does not depend on the clip.
    const double turn = std::fmod(roll, 360.0);
    const QPixmap turned = turn == 0 ? thumbnail : thumbnail.transformed(QTransform().rotate(turn));
    const QPixmap scaled
        = turned.scaled(rect.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    painter.drawPixmap(rect.x() + (rect.width() - scaled.width()) / 2,
        rect.y() + (rect.height() - scaled.height()) / 2, scaled);
}

int PreviewDrawing::frameWidth(const QRect &rect, PreviewCell::Mark mark) const
{
    const int width = qRound(m_canvas.density);
    return mark == PreviewCell::Mark::None ? width : std::max(2 * width, rect.width() / 24);
}

void PreviewDrawing::paintFrame(QPainter &painter, const QRect &rect, PreviewCell::Mark mark) const
{
    QColor colour = m_palette.color(QPalette::WindowText);
    if (mark != PreviewCell::Mark::None)
        colour = mark == PreviewCell::Mark::First ? QColor(0x2e, 0x9e, 0x4f)
                                                  : QColor(0xd0, 0x45, 0x3b);
    const int width = frameWidth(rect, mark);
    // Filled side by side: a stroke takes Qt ten times as long.
    const QRect inner = rect.adjusted(width, width, -width, -width);
    if (inner.isEmpty())
        return painter.fillRect(rect, colour);
    painter.fillRect(rect.left(), rect.top(), rect.width(), width, colour);
    painter.fillRect(rect.left(), inner.bottom() + 1, rect.width(), width, colour);
    painter.fillRect(rect.left(), inner.top(), width, inner.height(), colour);
    painter.fillRect(inner.right() + 1, inner.top(), width, inner.height(), colour);
}

void PreviewDrawing::paintCaption(QPainter &painter, const QRect &rect, const QString &caption)
{
    if (caption.isEmpty() || rect.width() < kSmallestCaptionedCell * m_canvas.density)
        return;
    m_captions.setPixelSize(qRound(std::max(kCaptionPixels * rect.height() / kCell, //
        kSmallestCaptionPixels * m_canvas.density)));
    const int height = m_captions.height();
    const QRect strip(rect.left() + 1, rect.bottom() - height, rect.width() - 2, height);
    QColor veil = m_palette.color(QPalette::Window);
    veil.setAlpha(190);
    painter.fillRect(strip, veil);
    painter.setPen(m_palette.color(QPalette::WindowText));
    m_captions.write(painter, strip, caption);
}

void PreviewDrawing::paintPath(QPainter &painter, const QRegion &region) const
{
    const QVector<QPointF> &path = m_scene.path;
    const QRect bounds = region.boundingRect();
    // Line by line: the outline of one long polyline takes Qt a time that grows with its square.
    // And two lines for a broad one: only of those a pixel wide, without smooth edges, a part that
    // is redrawn alone fits the rest to the last bit.
    QVector<QLineF> lines;
    for (int k = 1; k < path.size(); ++k) {
        const QLineF step(toDevice(path[k - 1]), toDevice(path[k]));
        const QRect reach = QRectF(step.p1(), step.p2())
                                .normalized()
                                .adjusted(-kPathWidth, -kPathWidth, kPathWidth, kPathWidth)
                                .toAlignedRect();
        if (!reach.intersects(bounds) || !region.intersects(reach))
            continue;
        const bool isSteep = std::abs(step.dy()) > std::abs(step.dx());
        lines.append(step);
        lines.append(step.translated(isSteep ? QPointF(1, 0) : QPointF(0, 1)));
    }
    QColor colour = m_palette.color(QPalette::Highlight);
    colour.setAlpha(150);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(colour, 1, Qt::SolidLine, Qt::FlatCap));
    painter.drawLines(lines);
}

void paintPreview(QPainter &painter, const PreviewScene &scene, const PreviewCanvas &canvas,
    const ThumbnailSource &thumbnails, const QPalette &palette)
{
    PreviewDrawing(scene, canvas, palette).paint(painter, thumbnails);
}

GrowingPreview::GrowingPreview(
    PreviewScene scene, const PreviewCanvas &canvas, const QPalette &palette)
    : m_drawing(std::move(scene), canvas, palette)
{
}

QPixmap GrowingPreview::start(int read, int most, const ThumbnailSource &thumbnails)
{
    m_finishedCells = 0;
    m_finished = QPixmap(m_drawing.canvas().size);
    {
        QPainter painter(&m_finished);
        m_drawing.paintGround(painter);
    }
    finish(read, most, thumbnails);
    QPixmap shown(m_finished.size());
    refresh(shown, shown.rect());
    return shown;
}

bool GrowingPreview::isBehind(int read) const
{
    if (m_finishedCells >= m_drawing.scene().cells.size())
        return false;
    const int next = pictureOf(m_finishedCells);
    return next >= 0 && next < read;
}

void GrowingPreview::grow(QPixmap &shown, int read, int most, const ThumbnailSource &thumbnails)
{
    refresh(shown, finish(read, most, thumbnails) & shown.rect());
}

QRegion GrowingPreview::finish(int read, int most, const ThumbnailSource &thumbnails)
{
    QRegion changed;
    QPainter painter(&m_finished);
    for (; most > 0 && isBehind(read); --most, ++m_finishedCells) {
        const QRect reach = m_drawing.reach(m_finishedCells);
        if (reach.isEmpty())
            continue;
        m_drawing.paintCell(painter, m_finishedCells, thumbnails(pictureOf(m_finishedCells)));
        changed += reach;
    }
    return changed;
}

void GrowingPreview::refresh(QPixmap &shown, const QRegion &region)
{
    const QRect bounds = region.boundingRect();
    const auto isMet
        = [&](const QRect &reach) { return reach.intersects(bounds) && region.intersects(reach); };
    QPainter painter(&shown);
    painter.setClipRegion(region);
    painter.drawPixmap(bounds, m_finished, bounds);
    for (int cell = m_finishedCells; cell < m_drawing.scene().cells.size(); ++cell) {
        if (isMet(m_drawing.reach(cell)))
            m_drawing.paintCell(painter, cell);
    }
    m_drawing.paintPath(painter, region);
}
