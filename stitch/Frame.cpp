// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Frame.h"

#include "geometry/Angle.h"

#include <QtMath>
#include <algorithm>
#include <cmath>

namespace {

/// Cells of half a degree.
constexpr int kColumns = 720;
constexpr int kRows = 360;
/// Degrees that a flat panorama may span at most, across and up or down, before its edges look
/// drawn out.
constexpr double kFlatWidth = 100;
constexpr double kFlatPitch = 45;
/// Degrees up or down that cylinders show well.
constexpr double kCylinderPitch = 60;
/// The same for what is asked for: beyond these a projection shows nothing but its edges.
constexpr double kMostFlatWidth = 160;
constexpr double kMostPitch = 80;
/// Pixels; some ten times the largest panorama ever published.
constexpr double kWidestCanvas = 10'000'000;

/// Which of a grid's cells are covered.
class Mask {
public:
    Mask(int width, int height)
        : m_width(width)
        , m_height(height)
        , m_cells(width * height, false)
    {
    }
    int width() const { return m_width; }
    int height() const { return m_height; }
    bool at(int x, int y) const { return m_cells.at(y * m_width + x); }
    void cover(int x, int y) { m_cells[y * m_width + x] = true; }

    bool hasInColumn(int x) const
    {
        for (int y = 0; y < m_height; ++y) {
            if (at(x, y))
                return true;
        }
        return false;
    }
    bool hasInRow(int y) const
    {
        const auto row = m_cells.cbegin() + qptrdiff(y) * m_width;
        return std::find(row, row + m_width, true) != row + m_width;
    }

    /// The covered rectangle of most cells: for each row, the widest rectangle under a histogram
    /// of how far up each column is covered.
    QRect largestRectangle() const
    {
        QRect best;
        QVector<int> heights(m_width + 1, 0); // The last stays 0 and closes every rectangle.
        for (int y = 0; y < m_height; ++y) {
            for (int x = 0; x < m_width; ++x)
                heights[x] = at(x, y) ? heights.at(x) + 1 : 0;
            QVector<int> open;
            for (int x = 0; x <= m_width; ++x) {
                while (!open.isEmpty() && heights.at(open.last()) >= heights.at(x)) {
                    const int height = heights.at(open.takeLast());
                    const int left = open.isEmpty() ? 0 : open.last() + 1;
                    if (height * (x - left) > best.width() * best.height())
                        best = QRect(left, y - height + 1, x - left, height);
                }
                open.append(x);
            }
        }
        return best;
    }

private:
    int m_width;
    int m_height;
    QVector<bool> m_cells;
};

/// What is seen of the sphere: columns from yaw -180, rows from the zenith down.
Mask sphereMask(const PtoProject &project, const QVector<View> &views)
{
    Mask mask(kColumns, kRows);
    QVector<Direction> cells;
    for (int y = 0; y < kRows; ++y) {
        for (int x = 0; x < kColumns; ++x)
            cells.append(directionOf(((x + 0.5) / kColumns - 0.5) * 2 * geometry::kPi,
                (0.5 - (y + 0.5) / kRows) * geometry::kPi));
    }
    for (int i = 0; i < views.size(); ++i) {
        const double pitch = project.pictures.at(i).place.pitch;
        const double reach = qRadiansToDegrees(views.at(i).radius());
        const int first = std::clamp(int((90 - pitch - reach) / 180 * kRows), 0, kRows - 1);
        const int last = std::clamp(int((90 - pitch + reach) / 180 * kRows), 0, kRows - 1);
        for (int y = first; y <= last; ++y) {
            for (int x = 0; x < kColumns; ++x) {
                if (!mask.at(x, y) && views.at(i).sees(cells.at(y * kColumns + x)))
                    mask.cover(x, y);
            }
        }
    }
    return mask;
}

struct Extent {
    /// Degrees.
    double centre = 0;
    double width = 360;
    double top = 90;
    double bottom = -90;
};

/// What is covered of the yaws, the widest gap being outside, and of the pitches.
Extent extentOf(const Mask &sphere)
{
    Extent extent;
    int gap = 0;
    int gapEnd = 0;
    int run = 0;
    for (int x = 0; x < 2 * kColumns; ++x) {
        run = sphere.hasInColumn(x % kColumns) ? 0 : run + 1;
        if (run > gap) {
            gap = std::min(run, kColumns);
            gapEnd = x + 1;
        }
    }
    constexpr double kCell = 360.0 / kColumns;
    extent.width = 360 - gap * kCell;
    if (gap > 0)
        extent.centre = std::remainder(gapEnd * kCell - 180 + extent.width / 2, 360.0);
    int y = 0;
    while (y < kRows - 1 && !sphere.hasInRow(y))
        ++y;
    extent.top = 90 - y * kCell;
    y = kRows;
    while (y > 1 && !sphere.hasInRow(y - 1))
        --y;
    extent.bottom = 90 - y * kCell;
    return extent;
}

Projection usualProjection(const Extent &extent)
{
    const double reach = std::max(extent.top, -extent.bottom);
    if (extent.width >= 360 || reach > kCylinderPitch)
        return Projection::Equirectangular;
    return extent.width <= kFlatWidth && reach <= kFlatPitch ? Projection::Rectilinear
                                                             : Projection::Cylindrical;
}

/// Why the pictures do not fit; empty when they do.
QString misfit(const Extent &extent, Projection projection)
{
    const double reach = std::max(extent.top, -extent.bottom);
    if (projection == Projection::Rectilinear
        && (extent.width > kMostFlatWidth || reach > kMostPitch))
        return QStringLiteral("a rectilinear panorama shows at most %1 by %2 degrees, not %3 by %4")
            .arg(kMostFlatWidth)
            .arg(2 * kMostPitch)
            .arg(extent.width)
            .arg(2 * reach);
    if (projection == Projection::Cylindrical && reach > kMostPitch)
        return QStringLiteral("a cylindrical panorama reaches at most %1 degrees up and down, not "
                              "%2")
            .arg(kMostPitch)
            .arg(reach);
    return {};
}

/// Half the width of a canvas of \a angle degrees, a radian in its centre being 1.
double halfWidth(Projection projection, double angle)
{
    const double half = qDegreesToRadians(angle / 2);
    return projection == Projection::Rectilinear ? std::tan(half) : half;
}

/// How far up \a direction is on the canvas, a radian in its centre being 1.
double heightOf(Projection projection, const Direction &d)
{
    switch (projection) {
    case Projection::Rectilinear:
        return d[1] / d[2];
    case Projection::Cylindrical:
        return d[1] / std::hypot(d[0], d[2]);
    case Projection::Equirectangular:
        break;
    }
    return std::asin(std::clamp(d[1], -1.0, 1.0));
}

/// What the pictures cover, in pixels: from their borders, and from the sphere where they cover a
/// pole or the canvas' own edge.
QRect coveredPart(
    const Frame &frame, const QVector<View> &views, const PtoProject &project, const Mask &sphere)
{
    if (frame.angle == 360) {
        // Borders say little there: they may run round a pole or across the edge.
        int top = 0;
        int bottom = kRows;
        while (top < kRows && !sphere.hasInRow(top))
            ++top;
        while (bottom > top && !sphere.hasInRow(bottom - 1))
            --bottom;
        const auto rowAt = [&](int row) {
            const double pitch = (0.5 - double(row) / kRows) * geometry::kPi;
            return frame.canvas.height() / 2.0
                - heightOf(frame.projection, directionOf(0, pitch)) * frame.scale();
        };
        const int first = std::clamp(int(std::floor(rowAt(top))), 0, frame.canvas.height() - 1);
        const int last
            = std::clamp(int(std::ceil(rowAt(bottom))), first + 1, frame.canvas.height());
        return {0, first, frame.canvas.width(), last - first};
    }
    QRectF bounds;
    constexpr int kSteps = 32;
    for (int i = 0; i < views.size(); ++i) {
        const QSize size = project.pictures.at(i).lens.size;
        for (int row = 0; row <= kSteps; ++row) {
            for (int column = 0; column <= kSteps; ++column) {
                if (row % kSteps != 0 && column % kSteps != 0)
                    continue;
                const auto place
                    = frame.project(views.at(i).at(size.width() * (double(column) / kSteps - 0.5),
                        size.height() * (double(row) / kSteps - 0.5)));
                if (place)
                    bounds = bounds.united(QRectF(*place, QSizeF(1e-3, 1e-3)));
            }
        }
    }
    return bounds.toAlignedRect().intersected(QRect(QPoint(), frame.canvas));
}

/// The largest rectangle without a hole, in \a part of the canvas.
QRect insideOf(const Frame &frame, const QRect &part, const QVector<View> &views)
{
    constexpr int kCells = 400;
    const double cell = std::max(1.0, std::max(part.width(), part.height()) / double(kCells));
    Mask corners(int(part.width() / cell) + 1, int(part.height() / cell) + 1);
    for (int y = 0; y < corners.height(); ++y) {
        for (int x = 0; x < corners.width(); ++x) {
            const auto direction = frame.unproject(part.topLeft() + QPointF(x * cell, y * cell));
            const auto sees = [&](const View &view) { return view.sees(*direction); };
            if (direction && std::any_of(views.begin(), views.end(), sees))
                corners.cover(x, y);
        }
    }
    // A cell is covered when its corners are.
    Mask cells(std::max(1, corners.width() - 1), std::max(1, corners.height() - 1));
    for (int y = 0; y + 1 < corners.height(); ++y) {
        for (int x = 0; x + 1 < corners.width(); ++x) {
            if (corners.at(x, y) && corners.at(x + 1, y) && corners.at(x, y + 1)
                && corners.at(x + 1, y + 1))
                cells.cover(x, y);
        }
    }
    // A cell less at each side, but for the seam of a full turn: borders meet at an angle between
    // corners.
    const QRect best = cells.largestRectangle();
    const bool isAllAcross = frame.angle == 360 && best.width() == cells.width();
    const int aside = isAllAcross ? 0 : int(std::ceil(cell));
    const QRect inside
        = QRect(part.left() + int(best.left() * cell), part.top() + int(best.top() * cell),
            isAllAcross ? part.width() : int(best.width() * cell), int(best.height() * cell))
              .adjusted(aside, int(std::ceil(cell)), -aside, -int(std::ceil(cell)));
    return inside.isEmpty() ? part : inside.intersected(part);
}

} // namespace

double Frame::scale() const
{
    return canvas.width() / 2.0 / halfWidth(projection, angle);
}

std::optional<QPointF> Frame::project(const Direction &direction) const
{
    Direction d = direction;
    const double turn = qDegreesToRadians(yaw);
    d[0] = direction[0] * std::cos(turn) - direction[2] * std::sin(turn);
    d[2] = direction[0] * std::sin(turn) + direction[2] * std::cos(turn);
    if (projection == Projection::Rectilinear && d[2] <= 1e-6)
        return std::nullopt;
    const double x = projection == Projection::Rectilinear ? d[0] / d[2] : std::atan2(d[0], d[2]);
    return QPointF(canvas.width() / 2.0 + x * scale(),
        canvas.height() / 2.0 - heightOf(projection, d) * scale());
}

std::optional<Direction> Frame::unproject(const QPointF &place) const
{
    const double x = (place.x() - canvas.width() / 2.0) / scale();
    const double y = (canvas.height() / 2.0 - place.y()) / scale();
    const double centre = qDegreesToRadians(yaw);
    switch (projection) {
    case Projection::Rectilinear:
        return directionOf(std::atan(x) + centre, std::atan(y / std::hypot(x, 1)));
    case Projection::Cylindrical:
        return directionOf(x + centre, std::atan(y));
    case Projection::Equirectangular:
        break;
    }
    if (std::abs(y) > geometry::kPi / 2 + 1e-9)
        return std::nullopt;
    return directionOf(x + centre, y);
}

Frame Frame::scaledTo(int width) const
{
    const double factor = double(width) / crop.width();
    Frame frame = *this;
    // A full turn must close: its canvas is its crop.
    frame.canvas = QSize(isFullTurn() ? width : std::max(1, qRound(canvas.width() * factor)),
        std::max(1, qRound(canvas.height() * factor)));
    const int top = qRound(crop.top() * factor);
    const int left = qRound(crop.left() * factor);
    frame.crop = QRect(left, top, width, std::max(1, qRound(crop.height() * factor)))
                     .intersected(QRect(QPoint(), frame.canvas));
    return frame;
}

std::optional<Frame> frameOf(
    const PtoProject &project, const FrameOptions &options, QString *problem)
{
    const QVector<View> views = viewsOf(project);
    const Mask sphere = sphereMask(project, views);
    const Extent extent = extentOf(sphere);
    Frame frame;
    frame.projection = options.projection.value_or(usualProjection(extent));
    *problem = misfit(extent, frame.projection);
    if (!problem->isEmpty())
        return std::nullopt;

    double scale = 0;
    for (const PtoProject::Picture &picture : project.pictures)
        scale = std::max(scale, picture.lens.pixelFocal());
    frame.yaw = extent.width < 360 ? extent.centre : 0;
    // A degree more than the cells say, for the pictures' borders lie within them.
    frame.angle = extent.width >= 359 ? 360 : int(std::ceil(extent.width)) + 1;
    const double width
        = std::min(2 * halfWidth(frame.projection, frame.angle) * scale, kWidestCanvas);
    frame.canvas.setWidth(std::max(2, 2 * qRound(width / 2)));
    double height = 0;
    for (const double pitch : {extent.top, -extent.bottom})
        height = std::max(height,
            heightOf(frame.projection,
                directionOf(frame.projection == Projection::Rectilinear
                        ? qDegreesToRadians(extent.width / 2)
                        : 0,
                    qDegreesToRadians(std::max(0.5, pitch)))));
    if (frame.projection == Projection::Equirectangular && frame.angle == 360)
        frame.canvas.setHeight(frame.canvas.width() / 2);
    else
        frame.canvas.setHeight(
            std::max(2, 2 * int(std::ceil(std::min(height * frame.scale(), kWidestCanvas / 2)))));

    const QRect whole(QPoint(), frame.canvas);
    const QRect covered = coveredPart(frame, views, project, sphere);
    frame.crop = options.crop == Crop::Full || covered.isEmpty() ? whole : covered;
    if (options.crop == Crop::Inside)
        frame.crop = insideOf(frame, covered, views);
    if (options.width > 0)
        frame = frame.scaledTo(options.width);
    return frame;
}

Frame previewOf(const Frame &frame)
{
    constexpr int kPreviewWidth = 1500;
    return frame.scaledTo(std::min(kPreviewWidth, frame.crop.width()));
}

QVector<View> viewsOf(const PtoProject &project)
{
    QVector<View> views;
    views.reserve(project.pictures.size());
    for (const PtoProject::Picture &picture : project.pictures)
        views.append(View(picture.place, picture.lens, picture.distortion));
    return views;
}
