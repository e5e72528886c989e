// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PicturePairs.h"

namespace align {

/// Lets pictures in which nothing was found look where the head put them, turned as the joined ones
/// are as a whole. Where the head's errors are alike among neighbours, which the joined pictures
/// tell, they turn with their neighbours besides; where each picture has its own, neighbours would
/// only add theirs.
void placeHeld(const PicturePairs &pairs, Cameras *cameras);

} // namespace align
