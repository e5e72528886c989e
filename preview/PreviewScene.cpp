// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/PreviewScene.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kCell = 96;
constexpr double kMargin = 50;
constexpr double kLargestStep = 360;
constexpr double kMaxSide = 16384;
constexpr double kMaxPixels = 32e6;

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
