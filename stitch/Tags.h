// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "stitch/Frame.h"

/// Writes into the JPEG or TIFF at \a path what the world reads of a panorama: time, camera,
/// copyright and place of its first picture \a source, where it is equirectangular what part of
/// the sphere it is (\a frame), and a colour profile unless it has one. Empty when done, else what
/// went wrong.
QString writeTags(const QString &path, const QString &source, const Frame &frame);
