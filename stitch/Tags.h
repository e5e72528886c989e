// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "stitch/Frame.h"

#include <exiv2/exiv2.hpp>

struct PictureTags {
    Exiv2::ExifData exif;
    Exiv2::XmpData xmp;
};

/// What the picture at \a path tells; nothing when it is gone or of a kind that has no tags.
PictureTags tagsOf(const QString &path);

/// Writes into the JPEG or TIFF at \a path what the world reads of a panorama: time, camera,
/// copyright and place of its first picture \a source, where it is equirectangular what part of
/// the sphere it is (\a frame), and a colour profile unless it has one. Empty when done, else what
/// went wrong.
QString writeTags(const QString &path, const QString &source, const Frame &frame);
