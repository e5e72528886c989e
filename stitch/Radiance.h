// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "stitch/Frame.h"

/// Copies the radiance that was blended at \a path to \a result, an OpenEXR picture, with what its
/// header can tell: time, camera's settings, owner and place of its first picture \a source, and
/// that it is a map of the whole sphere where it is (\a frame). Blending overshoots beside what is
/// very bright: what is below 0, or no number, becomes 0. Empty when done, else what went wrong.
QString writeRadiance(
    const QString &path, const QString &result, const QString &source, const Frame &frame);
