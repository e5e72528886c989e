// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/PreviewScene.h"

#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kCell = 96;
constexpr double kMargin = 50;
constexpr double kLargestStep = 360;
constexpr double kMaxSide = 16384;
constexpr double kMaxPixels = 32e6;
// Captions shrink with the cells, down to what can still be read; below that they are left out.
constexpr double kCaptionPixels = 11;
constexpr double kSmallestCaptionPixels = 8;
constexpr double kSmallestCaptionedCell = 36;

// Pixels per degree: the smallest step between consecutive shots becomes one cell wide.
double positionsScale(const QVector<HeadShot> &shots, double smallestStep)
{
    double step = kLargestStep;
    for (int k = 1; k < shots.size(); ++k) {
        for (const double difference : {double(shots[k].yaw) - double(shots[k - 1].yaw),
                 double(shots[k].pitch) - double(shots[k - 1].pitch)}) {
            if (difference != 0)
                step = std::min(step, std::abs(difference));
        }
    }
    return kCell / std::max(smallestStep, step);
}

double extent(const AngleRange &range, double scale)
{
    return std::trunc(scale * std::abs(double(range.max) - double(range.min)) + 2 * kMargin);
}

QString positionCaption(int index, const HeadShot &shot)
{
    return QStringLiteral("%1 (%2,%3)")
        .arg(QString::number(index), QString::number(double(shot.yaw)),
            QString::number(double(shot.pitch)));
}

class CellPainter {
public:
    CellPainter(QPainter &painter, const PreviewScene &scene, const PreviewCanvas &canvas,
        const QPalette &palette)
        : m_painter(painter)
        , m_size(canvas.size)
        , m_xFactor(canvas.size.width() / scene.width)
        , m_yFactor(canvas.size.height() / scene.height)
        , m_density(canvas.density)
        , m_palette(palette)
    {
    }

    void paint(const PreviewCell &cell, const ThumbnailSource &thumbnails)
    {
        if (!isInside(cell.rect))
            return;
        const QRect rect = toDevice(cell.rect);
        if (const QPixmap *thumbnail = cell.picture < 0 ? nullptr : thumbnails(cell.picture))
            paintThumbnail(*thumbnail, rect, cell.roll);
        paintFrame(cell, rect);
        paintCaption(cell.caption, rect);
    }

    QPointF toDevice(const QPointF &point) const
    {
        return {point.x() * m_xFactor, point.y() * m_yFactor};
    }

private:
    // False for places that are no numbers and for those that no whole pixel can stand for.
    bool isInside(const QRectF &rect) const
    {
        const QPointF topLeft = toDevice(rect.topLeft());
        const QPointF bottomRight = toDevice(rect.bottomRight());
        return bottomRight.x() >= 0 && bottomRight.y() >= 0 && topLeft.x() <= m_size.width()
            && topLeft.y() <= m_size.height();
    }

    // Whole pixels, so that a part of the preview can be redrawn without a seam.
    QRect toDevice(const QRectF &rect) const
    {
        const QPoint topLeft = toDevice(rect.topLeft()).toPoint();
        const QPoint bottomRight = toDevice(rect.bottomRight()).toPoint();
        return {topLeft,
            QSize(std::max(1, bottomRight.x() - topLeft.x()),
                std::max(1, bottomRight.y() - topLeft.y()))};
    }

    void paintThumbnail(const QPixmap &thumbnail, const QRect &rect, double roll)
    {
        if (thumbnail.isNull())
            return;
        // Turned before it is scaled to its final pixels: the result does not depend on the clip.
        const double turn = std::fmod(roll, 360.0);
        const QPixmap turned
            = turn == 0 ? thumbnail : thumbnail.transformed(QTransform().rotate(turn));
        const QPixmap scaled
            = turned.scaled(rect.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
        m_painter.drawPixmap(rect.x() + (rect.width() - scaled.width()) / 2,
            rect.y() + (rect.height() - scaled.height()) / 2, scaled);
    }

    void paintFrame(const PreviewCell &cell, const QRect &rect)
    {
        QColor colour = m_palette.color(QPalette::WindowText);
        int width = qRound(m_density);
        if (cell.mark != PreviewCell::Mark::None) {
            colour = cell.mark == PreviewCell::Mark::First ? QColor(0x2e, 0x9e, 0x4f)
                                                           : QColor(0xd0, 0x45, 0x3b);
            width = std::max(2 * width, rect.width() / 24);
        }
        m_painter.setBrush(Qt::NoBrush);
        m_painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        m_painter.drawRect(rect.adjusted(width / 2, width / 2, -(width + 1) / 2, -(width + 1) / 2));
    }

    void paintCaption(const QString &caption, const QRect &rect)
    {
        if (caption.isEmpty() || rect.width() < kSmallestCaptionedCell * m_density)
            return;
        QFont font = m_painter.font();
        font.setPixelSize(qRound(std::max(kCaptionPixels * rect.height() / kCell, //
            kSmallestCaptionPixels * m_density)));
        m_painter.setFont(font);
        const QFontMetrics metrics(font);
        const QRect strip(
            rect.left() + 1, rect.bottom() - metrics.height(), rect.width() - 2, metrics.height());
        QColor veil = m_palette.color(QPalette::Window);
        veil.setAlpha(190);
        m_painter.fillRect(strip, veil);
        m_painter.setPen(m_palette.color(QPalette::WindowText));
        m_painter.drawText(strip, Qt::AlignCenter | Qt::TextSingleLine,
            metrics.elidedText(caption, Qt::ElideRight, strip.width()));
    }

    QPainter &m_painter;
    QSize m_size;
    double m_xFactor;
    double m_yFactor;
    double m_density;
    const QPalette &m_palette;
};

void paintPath(QPainter &painter, const CellPainter &cells, const QVector<QPointF> &path,
    const QPalette &palette)
{
    if (path.size() < 2)
        return;
    // Line by line: the outline of one long polyline takes Qt a time that grows with its square.
    QVector<QLineF> steps;
    steps.reserve(path.size() - 1);
    for (int k = 1; k < path.size(); ++k)
        steps.append({cells.toDevice(path[k - 1]), cells.toDevice(path[k])});
    QColor colour = palette.color(QPalette::Highlight);
    colour.setAlpha(150);
    painter.setPen(QPen(colour, 2, Qt::SolidLine, Qt::FlatCap));
    painter.drawLines(steps);
}

} // namespace

PreviewScene positionsScene(
    const QVector<HeadShot> &shots, const ShotRanges &ranges, const PositionsStyle &style)
{
    PreviewScene scene;
    scene.background = style.background;
    if (shots.isEmpty())
        return scene;
    const double scale = positionsScale(shots, style.smallestStep);
    scene.width = extent(ranges.yaw, scale);
    scene.height = extent(ranges.pitch, scale);
    scene.cells.reserve(shots.size());
    for (int k = 0; k < shots.size(); ++k) {
        const HeadShot &shot = shots[k];
        const double x = kMargin + scale * (double(shot.yaw) - double(ranges.yaw.min));
        const double y = kMargin + scale * (double(ranges.pitch.max) - double(shot.pitch));
        PreviewCell cell;
        cell.rect = QRectF(x - kCell / 2, y - kCell / 2, kCell, kCell);
        cell.roll = double(shot.roll);
        cell.picture = k;
        cell.caption = positionCaption(k, shot);
        scene.cells.append(cell);
    }
    return scene;
}

QSize previewSize(const PreviewScene &scene, int zoom)
{
    if (scene.isEmpty())
        return {};
    const double width = std::max(1.0, std::trunc(scene.width * zoom / 100));
    const double height = std::max(1.0, std::trunc(scene.height * zoom / 100));
    // Square roots apart: the product of two huge sides would overflow.
    const double fit = std::min({1.0, kMaxSide / width, kMaxSide / height,
        std::sqrt(kMaxPixels) / (std::sqrt(width) * std::sqrt(height))});
    if (!std::isfinite(fit) || fit <= 0)
        return {1, 1};
    if (fit == 1.0)
        return {int(width), int(height)};
    // Without the last factor rounding would take a pixel off sides that just fit.
    const auto fitted = [fit](double side) { return std::max(1, int(side * fit * (1 + 1e-12))); };
    return {fitted(width), fitted(height)};
}

void paintPreview(QPainter &painter, const PreviewScene &scene, const PreviewCanvas &canvas,
    const ThumbnailSource &thumbnails, const QPalette &palette)
{
    painter.fillRect(QRect(QPoint(), canvas.size), scene.background);
    if (scene.isEmpty())
        return;
    painter.setRenderHint(QPainter::Antialiasing, false);
    CellPainter cells(painter, scene, canvas, palette);
    for (const PreviewCell &cell : scene.cells)
        cells.paint(cell, thumbnails);
    painter.setRenderHint(QPainter::Antialiasing, true);
    paintPath(painter, cells, scene.path, palette);
}
