// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "geometry/HeadShot.h"

/// What is shown of the last script that was loaded.
struct ClaussFigures {
    /// -1: none, or the last one was bad.
    int shootCount = -1;
    /// Of the last good script, even after a bad one. Yaw is the head's theta, pitch its phi.
    ShotRanges ranges;

    /// Takes over the outcome of ClaussToSPP::ReadConfigFile().
    void take(bool valid, const QVector<HeadShot> &shots)
    {
        shootCount = valid ? shots.size() : -1;
        if (valid)
            ranges = rangesOf(shots);
    }
    /// Follows invertPitches(), also when nothing is known.
    void invertPitches() { ranges.pitch = ranges.pitch.mirrored(); }
};
