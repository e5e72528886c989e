// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace makeshooting {

/// Whether the sign \a character (a capital letter or digit; anything else is blank) covers the
/// place \a x (0 left to 1 right), \a y (0 top to 1 bottom) of its box. Drawn by hand on 5 x 5
/// fields, so that no font decides about a picture.
bool glyphCovers(char character, float x, float y);

/// The same for a line of text in a box \a x, \a y of 0..1, its characters a sixth of a box apart.
bool textCovers(const char *text, float x, float y);

} // namespace makeshooting
