// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PicturePairs.h"

namespace align {

/// Lets the pictures that matches join look where those say, the first of each part being where it
/// was, and each part as a whole as near to the recorded positions as can be.
void chain(const PicturePairs &pairs, Cameras *cameras);

/// Turns each part that matches join, as a whole, to where it is nearest to the recorded positions.
void settle(const PicturePairs &pairs, Cameras *cameras);

} // namespace align
