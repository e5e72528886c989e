// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <utility>

/// What else a caller could ask for, to get round a problem.
enum class Remedy {
    None,
    NarrowerPanorama,
    NarrowerPanoramaOrMoreMemory,
    OtherCrop,
    WritingOver,
};

/// What went wrong, or stands in the way.
struct Problem {
    Problem() = default;
    Problem(QString sentence, Remedy remedyForIt = Remedy::None)
        : text(std::move(sentence))
        , remedy(remedyForIt)
    {
    }

    bool isEmpty() const { return text.isEmpty(); }

    /// A sentence; empty when nothing is wrong.
    QString text;
    Remedy remedy = Remedy::None;
};
