// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

namespace geometry {

/// Links that an import may have. With more the pictures' focal length must be wrong: hundreds of
/// neighbours each, of which hardly any share enough of the view to be matched.
constexpr qint64 kMostLinks = 20'000'000;

} // namespace geometry
