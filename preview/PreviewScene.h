// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "geometry/HeadShot.h"

#include <QBrush>
#include <QRectF>
#include <QSize>
#include <QString>
#include <QVector>

/// One picture's place in a preview. Lengths in pixels at a zoom of 100 %.
struct PreviewCell {
    enum class Mark { None, First, Last };

    QRectF rect;
    /// Clockwise turn of the thumbnail, degrees.
    double roll = 0;
    /// Index of the picture whose thumbnail is shown; -1: none.
    int picture = -1;
    QString caption;
    Mark mark = Mark::None;
};

/// What a preview shows: the layout of a shooting, before any picture was read.
struct PreviewScene {
    /// Pixels at a zoom of 100 %; may be absurdly large.
    double width = 0;
    double height = 0;
    QBrush background;
    /// In rising order of their pictures, those without one last. Later cells lie over earlier
    /// ones.
    QVector<PreviewCell> cells;
    /// The way of the head, drawn over the cells.
    QVector<QPointF> path;

    bool isEmpty() const { return cells.isEmpty(); }
};

/// How shots with angles are laid out.
struct PositionsStyle {
    /// Steps between shots below this many degrees are not drawn wider.
    double smallestStep = 0;
    QBrush background;
};

/// Shots at their yaw (to the right) and pitch (upwards), scaled so that the smallest step between
/// consecutive shots is as wide as a cell. Picture k belongs to shot k.
PreviewScene positionsScene(
    const QVector<HeadShot> &shots, const ShotRanges &ranges, const PositionsStyle &style);

/// Size of \a scene at \a zoom percent, computed as whole pixels x zoom / 100. Where that would
/// pass 16,384 pixels a side or 32 megapixels it is the largest size of that shape that fits, and
/// at least 1 x 1. Empty for an empty scene.
QSize previewSize(const PreviewScene &scene, int zoom);
