// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Agreement.h"
#include "align/WorkingPicture.h"

#include <opencv2/core/mat.hpp>

#include <vector>

namespace align {

/// Things in a picture that can be told from one another, wherever they turn up.
struct Features {
    /// Pixels of the stored picture.
    std::vector<Point> points;
    /// A row a point.
    cv::Mat descriptors;
};

/// The features of \a picture, well spread; \a stored is the lens of the stored picture.
Features findFeatures(const WorkingPicture &picture, const Lens &stored);

/// One picture of a pair: its features, the lens of the stored picture, and where it looks.
struct FeatureView {
    const Features *features = nullptr;
    Lens lens;
    Rotation rotation;
};

/// Features of both views that are each other's likest within \a gate, in radians, of where the
/// rotations say.
std::vector<Match> matchFeatures(const FeatureView &first, const FeatureView &second, double gate);

} // namespace align
