// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "stitch/Frame.h"

#include <QPolygonF>
#include <QStringList>

/// Where the pictures of \a project end on the finished picture of \a frame, of each location the
/// first: lines whose points are parts (0 to 1) of the picture's width and height. A border that
/// leaves the picture on one side and goes on from the other makes two lines.
QVector<QPolygonF> outlinesOf(const PtoProject &project, const Frame &frame);

/// Where the pictures meet on it: short lines, as outlinesOf(). \a masks are enblend's, in their
/// order, as large as the finished picture: each is white where another group of \a project's
/// pictures came over those before it.
QVector<QPolygonF> seamsOf(const PtoProject &project, const Frame &frame, const QStringList &masks);
