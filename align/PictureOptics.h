// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PictureFacts.h"
#include "host/ProjectRecord.h"

#include <optional>

/// What one picture was taken with: all that decides its angles of view.
struct PictureOptics {
    /// Pixels as stored.
    QSize size;
    /// Millimetres as on 36 x 24 mm film, positive.
    double focal = 0;
    bool fisheye = false;

    /// The focal length in pixels. The film's focal counts by its diagonal, as the tags do.
    double pixelFocal() const;
    /// Angle in radians that \a pixels through the centre span: 2 atan(pixels / 2 / f), for a
    /// fisheye (equidistant) pixels / f.
    double angleAcross(int pixels) const;

    bool operator==(const PictureOptics &other) const
    {
        return size == other.size && focal == other.focal && fisheye == other.fisheye;
    }
};

inline uint qHash(const PictureOptics &lens, uint seed = 0)
{
    return qHash(qMakePair(qMakePair(lens.size.width(), lens.size.height()),
                     qMakePair(lens.focal, lens.fisheye)),
        seed);
}

/// The lens of a picture in \a record: the record's when it gives a focal length, else the
/// picture's own. Nothing when neither gives a focal length that can be.
std::optional<PictureOptics> opticsOf(const ProjectRecord &record, const PictureFacts &facts);
