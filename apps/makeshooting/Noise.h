// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>
#include <algorithm>

namespace makeshooting {

/// Scrambles all bits; neighbouring arguments give unrelated results.
inline quint32 scramble(quint32 h)
{
    h ^= h >> 16;
    h *= 0x7feb352dU;
    h ^= h >> 15;
    h *= 0x846ca68bU;
    return h ^ (h >> 16);
}

inline quint32 scramble(quint32 seed, int a, int b = 0)
{
    return scramble(
        seed + 0x9e3779b9U * static_cast<quint32>(a) + 0x85ebca6bU * static_cast<quint32>(b));
}

/// The \a which-th of several independent values in 0..1 that a hash holds.
inline float fraction(quint32 hash, int which = 0)
{
    return static_cast<float>(scramble(hash + 0x632be5abU * static_cast<quint32>(which)) >> 8)
        / 16777216.0F;
}

/// Sum of uniform values, near enough to a normal one; mean 0, deviation 1.
inline float bellCurve(quint32 hash)
{
    float sum = -2.0F;
    for (int i = 0; i < 4; ++i)
        sum += fraction(hash, i);
    return sum * 1.7320508F;
}

inline int floorInt(float x)
{
    const int i = static_cast<int>(x);
    return i - (x < static_cast<float>(i) ? 1 : 0);
}

inline float mix(float a, float b, float t)
{
    return a + (b - a) * t;
}

inline float clamp01(float x)
{
    return std::min(1.0F, std::max(0.0F, x));
}

/// 0 up to \a low, 1 from \a high, smooth between.
inline float smoothStep(float low, float high, float x)
{
    const float t = clamp01((x - low) / (high - low));
    return t * t * (3.0F - 2.0F * t);
}

/// Value noise over the plane in 0..1, one lattice cell a unit.
inline float noise(quint32 seed, float x, float y)
{
    const int ix = floorInt(x);
    const int iy = floorInt(y);
    const auto fade = [](float t) { return t * t * t * (t * (t * 6.0F - 15.0F) + 10.0F); };
    const float fx = fade(x - static_cast<float>(ix));
    const float fy = fade(y - static_cast<float>(iy));
    const quint32 left = seed + 0x9e3779b9U * static_cast<quint32>(ix);
    const quint32 low = 0x85ebca6bU * static_cast<quint32>(iy);
    const auto lattice = [](quint32 h) {
        h = (h ^ h >> 15) * 0x2c1b3c6dU;
        h = (h ^ h >> 13) * 0x297a2d39U;
        return static_cast<float>(static_cast<qint32>(h >> 8)) * (1.0F / 16777216.0F);
    };
    constexpr quint32 kRight = 0x9e3779b9U;
    constexpr quint32 kHigh = 0x85ebca6bU;
    return mix(mix(lattice(left + low), lattice(left + kRight + low), fx),
        mix(lattice(left + low + kHigh), lattice(left + kRight + low + kHigh), fx), fy);
}

/// Sum of noise at doubling frequencies and halving strengths, in about 0..1 round 0.5. Frequencies
/// finer than \a footprint (a picture's pixel, in units of x) fade out, so that nothing is sampled
/// that a pixel cannot hold.
inline float fractalNoise(quint32 seed, float x, float y, float footprint, int octaves)
{
    float sum = 0.5F;
    float strength = 0.5F;
    for (int i = 0; i < octaves; ++i) {
        const float visible = clamp01(2.0F - 4.0F * footprint);
        if (visible <= 0)
            break;
        sum += visible * strength * (noise(seed + static_cast<quint32>(i), x, y) - 0.5F);
        // Not quite doubled, so that lattice lines of the octaves do not coincide.
        x = x * 2.03F + 17.3F;
        y = y * 2.03F + 9.1F;
        footprint *= 2.03F;
        strength *= 0.55F;
    }
    return sum;
}

} // namespace makeshooting
