// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Progress.h"
#include "stitch/Problem.h"
#include "stitch/PtoReader.h"
#include "stitch/StitchOptions.h"
#include "stitch/WorkFolder.h"

#include <QPolygonF>

struct Stitched {
    bool done = false;
    /// When neither done nor cancelled.
    Problem problem;
    Frame frame;
    /// Whether vignetting or exposure were found to differ, and were evened out.
    bool evenedOut = false;
    /// As seamsOf(), when wished; none when an earlier run had blended it.
    QVector<QPolygonF> seams;
};

/// Renders \a project (\a light: one a picture, or empty) by the Hugin tools and enblend, working
/// in \a folder, which is open. The output appears when it is whole. May run for long: call it in a
/// thread of its own. When \a progress cancels, or something fails, the output is as it was and
/// what is done so far stays in the folder.
Stitched stitch(const PtoProject &project, const QVector<PictureLight> &light,
    const StitchOptions &options, WorkFolder &folder, const Progress &progress);
