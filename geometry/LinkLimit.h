// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

namespace geometry {

/// Links that an import may have. With more the pictures' focal length must be wrong: hundreds of
/// neighbours each, of which hardly any share enough of the view to be matched.
constexpr qint64 kMostLinks = 20'000'000;

/// How many links an import would have, told before they are searched.
struct LinkEstimate {
    qint64 links = 0;
    /// The focal length that makes for them, in millimetres as on 36 x 24 mm film. The middle one
    /// where every picture has its own.
    float focal = 0;

    bool isTooMany() const { return links > kMostLinks; }
};

} // namespace geometry
