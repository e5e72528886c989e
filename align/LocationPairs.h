// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PictureOptics.h"
#include "align/Rotation.h"
#include "host/ProjectRecord.h"

#include <QPair>
#include <QVector>
#include <vector>

namespace align {

/// Where a location looks and with which lens.
struct Outlook {
    /// As the reference picture is stored.
    Rotation rotation;
    PictureOptics lens;
};

/// The locations to match, each pair once and the smaller index first, sorted: of each location the
/// nearest neighbour in each of four directions, and what else it takes to join what can be joined.
///
/// Only what \a record links is paired; a fisheye record without links pairs by distance.
std::vector<QPair<int, int>> locationPairs(
    const ProjectRecord &record, const std::vector<Outlook> &outlooks);

} // namespace align
