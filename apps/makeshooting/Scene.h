// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/makeshooting/Vector.h"

#include <QtGlobal>
#include <array>
#include <vector>

namespace makeshooting {

/// Light, linear; 1 is the brightest that a picture at the base exposure holds.
struct Colour {
    float r = 0;
    float g = 0;
    float b = 0;
};

inline Colour operator+(const Colour &a, const Colour &b)
{
    return {a.r + b.r, a.g + b.g, a.b + b.b};
}

inline Colour operator*(const Colour &a, float factor)
{
    return {a.r * factor, a.g * factor, a.b * factor};
}

struct SceneOptions {
    quint32 seed = 1;
    /// Pitch in degrees above which there is only the plain blue of the sky, without anything to
    /// recognise; 90: nowhere.
    double plainSkyAbove = 90;
    /// Instead of plain blue, soft patches of low contrast.
    bool blurredSky = false;
    /// Every 30 degrees the same houses, trees, hills and paving; compass marks and sky stay
    /// unique.
    bool repeat = false;
    /// Radians that the middle pixel of a picture covers: textures finer than that are left out.
    double detail = 0.002;
};

/// A square with houses, hills and sky all round, made up from the seed alone: the light that comes
/// from a direction, with no distance and so no parallax. Towers carry the letters of the compass.
class Scene {
public:
    explicit Scene(const SceneOptions &options);

    /// The light from the unit vector \a direction. Safe to call from several threads.
    Colour light(const Vector &direction) const;

private:
    struct View;
    struct Stone;
    struct Balloon {
        Vector centre;
        Vector right;
        Vector up;
        float radius;
        Colour colour;
        Colour stripe;
        int stripes;
    };

    Colour plainSky(float height) const;
    Colour sky(const View &view) const;
    bool swallow(float x, float y) const;
    bool balloons(const View &view, Colour &colour) const;
    bool mountains(const View &view, Colour &colour) const;
    bool hills(const View &view, Colour &colour) const;
    bool houses(const View &view, bool front, Colour &colour) const;
    bool towers(const View &view, Colour &colour) const;
    bool trees(const View &view, Colour &colour) const;
    Colour ground(const View &view) const;
    Colour paving(const View &view, float radius) const;
    bool compassRose(const View &view, float radius, Colour &colour) const;
    void makeBalloons();

    SceneOptions m_options;
    float m_detail;
    float m_plainSkyFrom;
    Vector m_sun;
    /// By the part of the ground that they hang over, so that a place looks at few.
    static constexpr std::size_t kCells = 12;
    std::array<std::vector<Balloon>, kCells * kCells> m_balloonsAbove;
};

} // namespace makeshooting
