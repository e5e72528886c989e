// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Progress.h"
#include "stitch/Frame.h"
#include "stitch/Problem.h"

/// A folder that shows a panorama to be turned and zoomed, in any browser.
struct WebFolder {
    /// The folder; it appears when it is whole.
    QString path;
    /// Whether one that was written earlier may be written over.
    bool force = false;
    /// How many threads make tiles.
    int jobs = 1;
};

/// Where the viewer that is copied into the folder is installed; empty when panohost was built
/// without it.
QString webViewerFolder();

/// Why \a folder cannot be written, before there is anything to show; empty when it can.
Problem webObstacle(const WebFolder &folder);

/// Writes \a folder for the 8 bit picture at \a picture, which is \a frame, an equirectangular one.
/// The picture goes into the page itself, so that it also shows when opened from disk: a larger one
/// than 8192 pixels, what the weakest graphics show, as a smaller copy, while from a server it is
/// shown by tiles. Empty when done or cancelled by \a progress.
Problem writeWebFolder(const WebFolder &folder, const QString &picture, const Frame &frame,
    const QString &title, const Progress &progress, bool *isCancelled);
