// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Lens.h"

#include <opencv2/core/mat.hpp>

namespace align {

/// Where the pixels of one picture lie in another one: computed at nodes, between them by
/// interpolation. What is warped by it is led back by it exactly.
class TurnMap {
public:
    /// Pixels from node to node.
    static constexpr int kStep = 8;

    /// \a area is of the first picture's pixels, and may reach beyond that picture; \a turn leads
    /// from its camera's axes to the second one's.
    TurnMap(const Lens &from, const Lens &to, const Rotation &turn, const cv::Rect &area);

    const cv::Mat_<cv::Point2f> &nodes() const { return m_nodes; }
    /// \a point is of the area, from its corner.
    Point at(const Point &point) const;
    /// For every pixel of the area.
    cv::Mat_<cv::Point2f> pixels() const;

private:
    cv::Rect m_area;
    cv::Mat_<cv::Point2f> m_nodes;
};

/// Whether \a point of a picture of \a size keeps \a border pixels from its border.
bool isInside(const Point &point, const cv::Size &size, double border);

/// The part of the first picture that the second shows, as a rectangle; empty when none.
cv::Rect sharedArea(const Lens &from, const cv::Size &fromSize, const Lens &to,
    const cv::Size &toSize, const Rotation &turn);

} // namespace align
