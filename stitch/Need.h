// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "stitch/Frame.h"
#include "stitch/Problem.h"

/// What the finished picture is made as.
enum class Rendering {
    /// One picture a location.
    Plain,
    /// Stacks fused.
    Fused,
    /// Stacks merged to radiance.
    Radiance,
};

/// How \a project is to be rendered.
Rendering renderingOf(const PtoProject &project);

/// Bytes, reckoned before the work: at most so much, as a rule less.
struct Need {
    qint64 memory = 0;
    qint64 disk = 0;
};

qint64 areaOf(const QSize &size);

/// Where on the canvas a picture comes to lie. Empty when it lies outside the crop.
QRect layerRect(const Frame &frame, const View &view, const QSize &picture);

/// The same for all of \a project's pictures.
QVector<QRect> layerRects(const PtoProject &project, const Frame &frame);

/// \a layers are the layerRects(); \a jobs of them are worked on at a time.
Need needOf(const PtoProject &project, const Frame &frame, const QVector<QRect> &layers,
    Rendering rendering, bool deep, int jobs);

/// Memory that could be had now, in bytes; 0 where the system does not tell.
qint64 availableMemory();

/// Why \a need is too much, with figures; empty when it is not. \a memoryLimit 0: what is
/// available. \a kept bytes of the need lie in \a folder already.
Problem excess(const Need &need, qint64 memoryLimit, const QString &folder, qint64 kept);
