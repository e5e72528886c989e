// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "preview/CaptionWriter.h"
#include "preview/PreviewScene.h"

#include <QPalette>
#include <QPixmap>
#include <QRegion>

#include <functional>

class QPainter;

/// The thumbnail of a picture, or null where there is none. What it points to needs to be valid
/// until the next call only.
using ThumbnailSource = std::function<const QPixmap *(int picture)>;

/// What a scene is drawn on.
struct PreviewCanvas {
    QSize size;
    /// Pixels of the device to one of the page: lines and captions grow with it.
    double density = 1;
};

/// Draws the parts of a scene, each on its own.
class PreviewDrawing {
public:
    PreviewDrawing() = default;
    PreviewDrawing(PreviewScene scene, const PreviewCanvas &canvas, QPalette palette);

    const PreviewScene &scene() const { return m_scene; }
    const PreviewCanvas &canvas() const { return m_canvas; }

    /// Everything, over the whole of the canvas.
    void paint(QPainter &painter, const ThumbnailSource &thumbnails);

    void paintGround(QPainter &painter) const;
    /// Frame and caption, over \a thumbnail where that is not null.
    void paintCell(QPainter &painter, int cell, const QPixmap *thumbnail = nullptr);
    /// The lines of the head's way that touch \a region.
    void paintPath(QPainter &painter, const QRegion &region) const;

    /// All pixels that paintCell() may touch; empty for a cell that is not to be seen.
    QRect reach(int cell) const;

private:
    void paintThumbnail(
        QPainter &painter, const QRect &rect, const QPixmap &thumbnail, double roll);
    void paintFrame(QPainter &painter, const QRect &rect, PreviewCell::Mark mark) const;
    void paintCaption(QPainter &painter, const QRect &rect, const QString &caption);
    int frameWidth(const QRect &rect, PreviewCell::Mark mark) const;
    QPointF toDevice(const QPointF &point) const;
    /// Empty for places that are no numbers and for those that no whole pixel can stand for.
    QRect place(const QRectF &rect) const;

    PreviewScene m_scene;
    PreviewCanvas m_canvas;
    QPalette m_palette;
    double m_xFactor = 1;
    double m_yFactor = 1;
    QVector<QRect> m_places;
    CaptionWriter m_captions;
};

/// Draws \a scene over the whole of \a canvas.
void paintPreview(QPainter &painter, const PreviewScene &scene, const PreviewCanvas &canvas,
    const ThumbnailSource &thumbnails, const QPalette &palette);

/// A drawing that takes pictures in as they are read, a few at a time. At every stage it shows,
/// pixel for pixel, what paintPreview() draws with the pictures taken in so far.
///
/// Cells are drawn in the order of their pictures. So those that have theirs make up a drawing of
/// their own, onto which the next ones go; what lies over a new picture has none yet and is quickly
/// drawn again.
class GrowingPreview {
public:
    GrowingPreview() = default;
    GrowingPreview(PreviewScene scene, const PreviewCanvas &canvas, const QPalette &palette);

    /// A new drawing with pictures of the first \a read, at most \a most.
    QPixmap start(int read, int most, const ThumbnailSource &thumbnails);

    /// Whether pictures of the first \a read are still to be drawn.
    bool isBehind(int read) const;
    /// Draws the next of them into \a shown, at most \a most.
    void grow(QPixmap &shown, int read, int most, const ThumbnailSource &thumbnails);

private:
    /// Draws the next pictures into m_finished. Returns where.
    QRegion finish(int read, int most, const ThumbnailSource &thumbnails);
    int pictureOf(int cell) const { return m_drawing.scene().cells.at(cell).picture; }
    void refresh(QPixmap &shown, const QRegion &region);

    PreviewDrawing m_drawing;
    /// The cells that have their pictures, nothing else.
    QPixmap m_finished;
    int m_finishedCells = 0;
};
