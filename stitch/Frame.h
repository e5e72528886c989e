// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PtoProject.h"
#include "align/View.h"

#include <QRect>
#include <QSize>
#include <optional>

/// How the panorama is laid flat; the values are the tools'.
enum class Projection {
    /// Straight lines stay straight; below 180 degrees.
    Rectilinear = 0,
    Cylindrical = 1,
    Equirectangular = 2,
};

enum class Crop {
    /// All that the pictures cover.
    Covered,
    /// The largest rectangle without a hole.
    Inside,
    /// The whole canvas, the full sphere of a full turn.
    Full,
};

/// What the user asks of the finished picture.
struct FrameOptions {
    std::optional<Projection> projection;
    /// Pixels across the finished picture; 0: the pictures' own scale.
    int width = 0;
    Crop crop = Crop::Covered;
};

/// The finished picture on its canvas. The canvas is centred on yaw() and on the horizon.
struct Frame {
    Projection projection = Projection::Equirectangular;
    /// Degrees that the canvas spans, a whole number up to 360.
    int angle = 360;
    /// Pixels of the canvas.
    QSize canvas;
    /// The part of the canvas that the finished picture is.
    QRect crop;
    /// Degrees, of the canvas' centre.
    double yaw = 0;

    bool isFullTurn() const { return angle == 360 && crop.width() == canvas.width(); }

    /// Pixels of the canvas; nothing where the projection does not reach.
    std::optional<QPointF> project(const Direction &direction) const;
    /// The direction of a place on the canvas; nothing beyond the poles.
    std::optional<Direction> unproject(const QPointF &place) const;
    /// Pixels a radian in the canvas' centre.
    double scale() const;
    /// The same picture in other pixels: \a width across the crop.
    Frame scaledTo(int width) const;
};

/// The frame of \a project. Unless wished otherwise a full turn, or what reaches far up or down,
/// is equirectangular, what is flat is rectilinear and what is wide is cylindrical. Nothing, and a
/// sentence in \a problem, when the pictures do not fit the projection that is wished.
std::optional<Frame> frameOf(
    const PtoProject &project, const FrameOptions &options, QString *problem);

/// The same in few pixels.
Frame previewOf(const Frame &frame);

/// The views of \a project's pictures.
QVector<View> viewsOf(const PtoProject &project);
