// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "gigapan/GigapanToSPP.h"
#include "preview/PreviewScene.h"

/// How the pictures spread over the grid.
struct GigapanUse {
    /// Leading pictures that are skipped.
    int ignored = 0;
    /// Locations that get pictures.
    int locations = 0;
    /// Pictures after the last location.
    int leftOver = 0;
};

GigapanUse useOf(const GigapanLayout &layout, int pictures);

/// The grid with each location's first picture and the way of the head through it. Empty without
/// columns.
PreviewScene gridScene(const GigapanLayout &layout, int pictures, const QBrush &background);
