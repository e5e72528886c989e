// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/AlignReport.h"
#include "align/Progress.h"
#include "align/PtoProject.h"

#include <optional>

struct AlignOptions {
    /// Where matches are kept, so that another run goes on where this one was interrupted; empty:
    /// nowhere. The folder is made; forgetMatches() takes it away.
    QString cacheFolder;
    /// Forget the matches of earlier runs.
    bool fresh = false;
};

struct Alignment {
    /// Positions, focal length, distortion and control points as they were found.
    PtoProject project;
    AlignReport report;
};

/// Finds out where the pictures of \a record really look: matches what overlaps by the recorded
/// positions and adjusts positions and lens to it, as the record's choices say. Pictures in which
/// nothing is found stay where the head put them and turn with their neighbours.
///
/// \a pictures must hold every picture of the record. May run for long: call it in a thread of its
/// own. Nothing, and a sentence in \a problem, when the record makes no project (as projectOf());
/// nothing, and an empty \a problem, when \a progress cancels.
std::optional<Alignment> alignRecord(const ProjectRecord &record, const PictureTable &pictures,
    const AlignOptions &options, const Progress &progress, QString *problem);

/// Takes away what alignments have kept in \a cacheFolder, and the folder if nothing else is in it.
/// To be called once the outcome is where it will be found again.
void forgetMatches(const QString &cacheFolder);
