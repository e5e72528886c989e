// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "geometry/DirectionLinks.h"
#include "geometry/ProximityLinks.h"

/// The linking rules applied to every pair: what every quicker way is compared with. All that
/// belongs to one picture alone is computed once.
namespace plain {

QVector<ProjectLink> directionLinks(const QVector<geometry::Direction> &directions, float focal);
QVector<ProjectLink> proximityLinks(const QVector<geometry::View> &views);

} // namespace plain
