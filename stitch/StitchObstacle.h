// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PtoProject.h"
#include "stitch/Problem.h"
#include "stitch/StitchOptions.h"

/// Why \a options cannot be had for \a project, before anything is done: the output's name does not
/// fit, a tool is missing, the picture is too large. Empty when they can. Of the disk that it needs
/// \a kept bytes hold work that was done before.
Problem stitchObstacle(const PtoProject &project, const StitchOptions &options, qint64 kept = 0);
