// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Progress.h"
#include "stitch/Frame.h"
#include "stitch/Need.h"
#include "stitch/PtoReader.h"
#include "stitch/WebFolder.h"
#include "stitch/WorkFolder.h"

#include <QPolygonF>
#include <optional>
#include <utility>

/// What is to be made of an aligned project.
struct StitchWishes {
    /// The finished picture: .jpg, .tif (16 bits) or .exr (radiance).
    QString output;
    FrameWishes frame;
    /// Even out vignetting and differences of exposure.
    bool photometric = true;
    /// A folder that shows the panorama in a browser, for what is equirectangular and no radiance;
    /// its path is empty when none is wanted.
    WebFolder web;
    /// A small picture within seconds, of each stack only the reference.
    bool preview = false;
    /// Find out where the seams run.
    bool seams = false;
    /// Bytes; 0: what is available.
    qint64 memory = 0;
    /// The finished picture is not moved out of the work folder, but copied.
    bool keep = false;
    /// How many programs run at a time; 0: one a core.
    int jobs = 0;
};

struct Stitched {
    bool done = false;
    /// When neither done nor cancelled: what went wrong, a sentence.
    QString problem;
    Frame frame;
    /// Whether vignetting or exposure were found to differ, and were evened out.
    bool evenedOut = false;
    /// As seamsOf(), when wished; none when an earlier run had blended it.
    QVector<QPolygonF> seams;
};

/// How \a project is to be rendered.
Rendering renderingOf(const PtoProject &project);

/// Why \a wishes cannot be had for \a project, before anything is done: the output's name does not
/// fit, a tool is missing, the picture is too large. Empty when they can. Of the disk that it needs
/// \a kept bytes hold work that was done before.
QString stitchObstacle(const PtoProject &project, const StitchWishes &wishes, qint64 kept = 0);

/// Tells \a progress of work that takes the first \a share of all, in steps that are not known
/// before, as of one bar that never goes back.
Progress asOneBar(const Progress &progress, double share = 1);

/// What is to be told of the alignment and of the stitch() of \a project, so that \a progress hears
/// of one bar for both.
std::pair<Progress, Progress> oneBar(
    const PtoProject &project, const StitchWishes &wishes, const Progress &progress);

/// Renders \a project (\a light: one a picture, or empty) by the Hugin tools and enblend, working
/// in \a folder, which is open. The output appears when it is whole. May run for long: call it in a
/// thread of its own. When \a progress cancels, or something fails, the output is as it was and
/// what is done so far stays in the folder.
Stitched stitch(const PtoProject &project, const QVector<PictureLight> &light,
    const StitchWishes &wishes, WorkFolder &folder, const Progress &progress);
