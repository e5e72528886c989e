// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PictureFacts.h"
#include "host/ProjectRecord.h"
#include "stitch/Stitching.h"

/// A finished panorama, or why there is none.
struct Panorama {
    bool done = false;
    /// When neither done nor cancelled.
    Problem problem;
    Stitched stitched;
    /// What the alignment found, for people and for programs; empty where nothing was aligned.
    QString report;
    QByteArray reportJson;
};

/// The usual work folder of a panorama that is called \a output.
QString workFolderOf(const QString &output);

/// Gives a project whose pictures look where they should. Nothing when cancelled or, with a
/// sentence in \a panorama, when it cannot.
using Aligning = std::function<std::optional<ReadProject>(
    WorkFolder &folder, const Progress &progress, Panorama *panorama)>;

/// Stitches what \a aligning makes of \a recorded, whose places say near enough what will be
/// needed: what cannot be had is refused before anything is aligned. Else as the next one.
Panorama makePanorama(const PtoProject &recorded, const Aligning &aligning,
    const StitchOptions &options, const Progress &progress);

/// Aligns \a record and stitches it: all that makes a panorama of an import. What it works on lies
/// in workFolderOf(options.output) until it is done, and stays there when options.keep is set or it
/// does not come to an end: a later call with the same record goes on from it, and never aligns
/// twice. May run for long: call it in a thread of its own. \a progress cancels.
Panorama makePanorama(const ProjectRecord &record, const PictureTable &pictures,
    const StitchOptions &options, const Progress &progress);

/// The same for a project that is aligned already.
Panorama makePanorama(
    const ReadProject &project, const StitchOptions &options, const Progress &progress);
