// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/ProjectRecord.h"

namespace geometry {

/// Where a picture looks and how wide, in radians.
struct View {
    float yaw = 0;
    float pitch = 0;
    /// Half the diagonal angle of view; may be 0, negative or NaN.
    float halfAngle = 0;
};

/// Appends a link of kind 0 for every two of \a views whose directions lie apart by less than
/// 1 / 0.7 of the larger half angle: [i, j] with i < j, in rising order of i, then j.
///
/// Sines, cosines and their products are 32-bit values; the scalar product and its arc cosine are
/// double. Where rounding leaves that arc cosine undefined (two views in one direction) there is no
/// link.
void appendProximityLinks(const QVector<View> &views, QVector<ProjectLink> &links);

/// About how many links appendProximityLinks() gives, found in bounded time.
qint64 estimateProximityLinks(const QVector<View> &views);

} // namespace geometry
