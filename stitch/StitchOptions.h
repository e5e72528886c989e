// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "stitch/Frame.h"
#include "stitch/WebFolder.h"

/// What is to be made of an aligned project.
struct StitchOptions {
    /// The finished picture: .jpg, .tif (16 bits) or .exr (radiance).
    QString output;
    FrameOptions frame;
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

enum class OutputFormat { Jpeg, Tiff, Exr, Unknown };

/// What a file named like \a output is written as.
OutputFormat formatOf(const QString &output);

/// How many programs run at a time, at least one.
int jobsOf(const StitchOptions &options);
