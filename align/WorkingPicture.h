// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Lens.h"

#include <opencv2/core/mat.hpp>

#include <QSize>
#include <QString>
#include <vector>

namespace align {

/// Something in a picture that can be found again in another one.
struct Corner {
    cv::Point2f point;
    /// Grey levels a pixel, in the direction in which it changes least.
    float gradient = 0;
};

/// A picture read at a size that is enough to match it: a power of two smaller than stored.
struct WorkingPicture {
    cv::Mat grey;
    /// Stored pixels a pixel of this, and the stored point that the middle of its first pixel is.
    double scale = 1;
    Point origin;
    /// Well spread, the clearest of each part of the picture; none where there is nothing but
    /// noise.
    std::vector<Corner> corners;
    /// Standard deviation of the noise in grey levels, at least 1.
    double noise = 1;

    bool isNull() const { return grey.empty(); }
    Point toStored(const Point &point) const { return point * scale + origin; }
    Point fromStored(const Point &point) const { return (point - origin) / scale; }
    /// \a stored, the lens of the stored picture, for the pixels of this one.
    Lens lensHere(const Lens &stored) const;
};

/// How many stored pixels a pixel of the working picture of a picture of \a size is.
int workingScale(const QSize &size);

/// Reads the picture at \a path, whose stored size is \a size: a JPEG or a RAW's preview decoded at
/// a smaller size at once, the orientation left as it is. Null when it cannot be read. Any thread.
WorkingPicture readWorkingPicture(const QString &path, const QSize &size);

/// \a picture much reduced, and only what is neither noise nor light in it, made strong: clouds.
/// Null where it is too small for that.
WorkingPicture cloudsOf(const WorkingPicture &picture);

/// Finds the corners and the noise of \a picture. Any thread.
void findCorners(WorkingPicture *picture);

} // namespace align
