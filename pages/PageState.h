// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

#include <optional>

/// The choices that a page remembers from one run to the next.
struct PageState {
    bool autoDetection = true;
    bool cleanLinks = false;
    bool skipOptimization = false;
    bool guidedOptimization = true;
    /// All stack levels are matched, not only the reference level.
    bool allLevels = false;
    /// Control points are detected inside stacks, instead of hard links.
    bool stackPoints = false;
    /// Percent, 1 to 100.
    int zoom = 50;

    QByteArray toByteArray() const;

    /// The state that toByteArray() wrote; nothing when \a bytes are empty, cut short, foreign or
    /// from a later version.
    static std::optional<PageState> fromByteArray(const QByteArray &bytes);
};
