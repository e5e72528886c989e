// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QString;

enum class JpegEnd {
    NotJpeg,
    Found,
    /// The file ends before the picture does: a copy that broke off.
    Missing,
};

/// Whether the JPEG at \a path has its end mark. Looks at the segments' lengths and, as a rule, at
/// the last few bytes only; what cameras append behind the picture does no harm.
JpegEnd jpegEnd(const QString &path);
