// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PictureOptics.h"

#include <QVector>
#include <optional>

/// Where a location points, in degrees.
struct Placement {
    /// To the right, -180 to 180.
    double yaw = 0;
    /// Upward.
    double pitch = 0;
    /// Clockwise turn of the upright picture.
    double roll = 0;
};

/// A placement for each group of \a record: its angles, or for a grid without angles the places
/// that follow from grid, overlap and angle of view. Nothing, and a sentence in \a problem, when
/// the record does not hold together. \a first is the lens of the first picture, \a turned whether
/// that picture stands upright by a quarter turn.
std::optional<QVector<Placement>> placementsOf(
    const ProjectRecord &record, const PictureOptics &first, bool turned, QString *problem);
