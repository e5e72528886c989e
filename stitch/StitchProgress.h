// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Progress.h"
#include "stitch/Need.h"
#include "stitch/StitchOptions.h"

#include <array>
#include <utility>

/// What a stitch() does, in this order.
enum class StitchStep { EvenOut, Remap, MergeStacks, Blend, WriteWeb };
constexpr int kStitchSteps = 5;

/// How much each step has to do, in remapped megapixels.
using StitchEffort = std::array<double, kStitchSteps>;

/// \a layers are the layerRects() on \a frame.
StitchEffort effortOf(const PtoProject &project, const Frame &frame, const QVector<QRect> &layers,
    const StitchOptions &options);

/// The same for remapping a picture that is \a layer then.
double remappingEffort(const QRect &layer, Rendering rendering);

/// Tells of a stitch() as a whole; never goes back.
class StitchProgress {
public:
    explicit StitchProgress(Progress progress)
        : m_progress(std::move(progress))
    {
    }

    void setEffort(const StitchEffort &effort) { m_effort = effort; }

    /// Tells that \a part of \a step is done; false when the user has had enough.
    bool tell(StitchStep step, double part);

private:
    Progress m_progress;
    StitchEffort m_effort{};
    double m_told = 0;
};

/// Tells \a progress of work that takes the first \a share of all, in steps that are not known
/// before, as of one bar that never goes back.
Progress asOneBar(const Progress &progress, double share = 1);

/// What is to be told of the alignment and of the stitch() of \a project, so that \a progress hears
/// of one bar for both.
std::pair<Progress, Progress> oneBar(
    const PtoProject &project, const StitchOptions &options, const Progress &progress);
