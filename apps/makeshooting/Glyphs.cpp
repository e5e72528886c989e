// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/makeshooting/Glyphs.h"

#include <array>
#include <cstring>

namespace makeshooting {

namespace {

struct Glyph {
    char character;
    const char *fields;
};

constexpr Glyph kGlyphs[] = {
    {'0',
        ".XXX."
        "X...X"
        "X...X"
        "X...X"
        ".XXX."},
    {'1',
        "..X.."
        ".XX.."
        "..X.."
        "..X.."
        ".XXX."},
    {'2',
        "XXXX."
        "....X"
        ".XXX."
        "X...."
        "XXXXX"},
    {'3',
        "XXXX."
        "....X"
        "..XX."
        "....X"
        "XXXX."},
    {'4',
        "...X."
        "..XX."
        ".X.X."
        "XXXXX"
        "...X."},
    {'5',
        "XXXXX"
        "X...."
        "XXXX."
        "....X"
        "XXXX."},
    {'6',
        ".XXX."
        "X...."
        "XXXX."
        "X...X"
        ".XXX."},
    {'7',
        "XXXXX"
        "...X."
        "..X.."
        ".X..."
        ".X..."},
    {'8',
        ".XXX."
        "X...X"
        ".XXX."
        "X...X"
        ".XXX."},
    {'9',
        ".XXX."
        "X...X"
        ".XXXX"
        "....X"
        ".XXX."},
    {'A',
        "..X.."
        ".X.X."
        "X...X"
        "XXXXX"
        "X...X"},
    {'B',
        "XXXX."
        "X...X"
        "XXXX."
        "X...X"
        "XXXX."},
    {'C',
        ".XXXX"
        "X...."
        "X...."
        "X...."
        ".XXXX"},
    {'E',
        "XXXXX"
        "X...."
        "XXXX."
        "X...."
        "XXXXX"},
    {'F',
        "XXXXX"
        "X...."
        "XXXX."
        "X...."
        "X...."},
    {'H',
        "X...X"
        "X...X"
        "XXXXX"
        "X...X"
        "X...X"},
    {'K',
        "X..X."
        "X.X.."
        "XX..."
        "X.X.."
        "X..XX"},
    {'L',
        "X...."
        "X...."
        "X...."
        "X...."
        "XXXXX"},
    {'M',
        "X...X"
        "XX.XX"
        "X.X.X"
        "X...X"
        "X...X"},
    {'N',
        "X...X"
        "XX..X"
        "X.X.X"
        "X..XX"
        "X...X"},
    {'O',
        ".XXX."
        "X...X"
        "X...X"
        "X...X"
        ".XXX."},
    {'P',
        "XXXX."
        "X...X"
        "XXXX."
        "X...."
        "X...."},
    {'R',
        "XXXX."
        "X...X"
        "XXXX."
        "X..X."
        "X...X"},
    {'S',
        ".XXXX"
        "X...."
        ".XXX."
        "....X"
        "XXXX."},
    {'T',
        "XXXXX"
        "..X.."
        "..X.."
        "..X.."
        "..X.."},
    {'W',
        "X...X"
        "X...X"
        "X.X.X"
        "XX.XX"
        "X...X"},
};

/// Bit n set: field n (row by row) is covered.
std::array<unsigned, 128> buildFields()
{
    std::array<unsigned, 128> bits{};
    for (const Glyph &glyph : kGlyphs) {
        for (unsigned i = 0; i < 25; ++i) {
            if (glyph.fields[i] == 'X')
                bits[static_cast<unsigned char>(glyph.character)] |= 1U << i;
        }
    }
    return bits;
}

} // namespace

bool glyphCovers(char character, float x, float y)
{
    static const std::array<unsigned, 128> kFields = buildFields();
    if (x < 0 || x >= 1 || y < 0 || y >= 1)
        return false;
    const int field = static_cast<int>(y * 5.0F) * 5 + static_cast<int>(x * 5.0F);
    return (kFields[static_cast<unsigned char>(character) & 127U] >> field & 1U) != 0;
}

bool textCovers(const char *text, float x, float y)
{
    const auto length = static_cast<float>(std::strlen(text));
    const float place = x * length;
    if (place < 0 || place >= length)
        return false;
    const int index = static_cast<int>(place);
    return glyphCovers(text[index], (place - static_cast<float>(index)) * 1.2F - 0.1F, y);
}

} // namespace makeshooting
