// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/ProjectRecord.h"

namespace geometry {

/// Where a picture's centre points, in radians as a project record holds them.
struct Direction {
    float yaw = 0;
    float pitch = 0;
};

/// Great-circle distance in radians, by the spherical law of cosines in double precision. NaN when
/// an angle is not finite, and where rounding takes the cosine of equal directions beyond 1.
double distance(const Direction &from, const Direction &to);

/// Kind of the link that the way from \a from to \a to gives: 2 within 45 degrees of due right, 1
/// within 45 degrees of straight down, otherwise 0 for none (the way back is then one of the two).
int directionLinkKind(const Direction &from, const Direction &to);

/// Links between pictures of a rectilinear lens of \a focal millimetres as on 36 x 24 mm film that
/// overlap: those whose distance times 0.65 lies below half the diagonal angle of view. Indices are
/// places in \a directions; ordered by first, then by second index.
QVector<ProjectLink> directionLinks(const QVector<Direction> &directions, float focal);

/// About how many links directionLinks() gives, found in bounded time.
qint64 estimateDirectionLinks(const QVector<Direction> &directions, float focal);

} // namespace geometry
