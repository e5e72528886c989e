// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/makeshooting/Scene.h"

#include "apps/makeshooting/Glyphs.h"
#include "apps/makeshooting/Noise.h"

#include <QtMath>
#include <iterator>
#include <optional>

namespace makeshooting {

namespace {

constexpr float kTurn = 6.2831853F;
/// The scene repeats this many times in a turn when asked to.
constexpr int kRepeats = 12;
/// Tangents of the elevation at which things stand on the ground, from the viewer's eye.
constexpr float kFrontBase = -0.075F;
constexpr float kBackBase = -0.030F;
constexpr float kTreeBase = -0.105F;
/// Nothing but sky is above this tangent of the elevation.
constexpr float kSkyline = 0.46F;

constexpr Colour kHaze{0.62F, 0.68F, 0.74F};
constexpr Colour kDark{0.035F, 0.035F, 0.045F};
constexpr Colour kCream{0.82F, 0.76F, 0.62F};

enum Kind : int { kFacade = 1, kBackdrop, kTree, kStone, kFlower, kBalloon, kSwallow };

Colour mix(const Colour &a, const Colour &b, float t)
{
    return a * (1.0F - t) + b * t;
}

bool within(float x, float low, float high)
{
    return x >= low && x < high;
}

/// Position of \a x in units of one \a count-th: the whole part and the rest.
struct Cell {
    Cell(float x, int count)
    {
        const float place = x * static_cast<float>(count);
        index = std::min(std::max(floorInt(place), 0), count - 1);
        rest = place - static_cast<float>(index);
    }
    int index;
    float rest;
};

} // namespace

/// A direction in the coordinates that the elements of the scene are drawn in.
struct Scene::View {
    View(const Vector &d, bool repeat)
        : direction(d)
        , x(static_cast<float>(d.x))
        , y(static_cast<float>(d.y))
        , z(static_cast<float>(d.z))
        , level(std::max(std::sqrt(x * x + z * z), 1e-6F))
        , tangent(y / level)
        , repeats(repeat)
    {
    }

    /// Fills what only the things below the skyline need.
    void locate()
    {
        turn = std::atan2(x, z) / kTurn;
        if (turn < 0)
            turn += 1.0F;
        folded = turn;
        if (repeats) {
            const Cell sector(turn, kRepeats);
            folded = sector.rest / static_cast<float>(kRepeats);
        }
        const float azimuth = folded * kTurn;
        east = repeats ? std::sin(azimuth) : x / level;
        north = repeats ? std::cos(azimuth) : z / level;
    }

    /// Hash of one of \a count cells round the turn, the same in every repetition.
    quint32 cellHash(quint32 seed, int kind, int cell, int count, int row = 0) const
    {
        const int unique = repeats ? cell % (count / kRepeats) : cell;
        return scramble(scramble(seed, kind, row), unique);
    }

    const Vector &direction;
    float x;
    float y;
    float z;
    float level;
    /// Of the elevation.
    float tangent;
    bool repeats;
    /// Azimuth in turns, 0 north, 0.25 east; and the same within its repetition.
    float turn = 0;
    float folded = 0;
    /// Unit vector of the (folded) azimuth.
    float east = 0;
    float north = 1;
};

Scene::Scene(const SceneOptions &options)
    : m_options(options)
    , m_detail(static_cast<float>(options.detail))
    , m_plainSkyFrom(static_cast<float>(std::sin(qDegreesToRadians(options.plainSkyAbove))))
{
    if (options.plainSkyAbove >= 90)
        m_plainSkyFrom = 2;
    const double azimuth = qDegreesToRadians(205.0 + scramble(options.seed) % 40);
    const double height = qDegreesToRadians(27.0);
    m_sun = {std::sin(azimuth) * std::cos(height), std::sin(height),
        std::cos(azimuth) * std::cos(height)};
    makeBalloons();
}

void Scene::makeBalloons()
{
    static constexpr Colour kColours[] = {{0.80F, 0.10F, 0.08F}, {0.90F, 0.55F, 0.05F},
        {0.10F, 0.30F, 0.70F}, {0.15F, 0.50F, 0.20F}, {0.55F, 0.12F, 0.45F}, {0.85F, 0.80F, 0.20F}};
    constexpr int kCount = 34;
    for (int i = 0; i < kCount; ++i) {
        const quint32 hash = scramble(m_options.seed, kBalloon, i);
        // The golden angle spreads them over the turn, equal steps of height over the sky.
        const double azimuth = 2.39996 * i + fraction(hash);
        const double height = 0.42 + 0.55 * (i + 0.5 * fraction(hash, 1)) / kCount;
        const double level = std::sqrt(1.0 - height * height);
        Balloon balloon;
        balloon.centre = {std::sin(azimuth) * level, height, std::cos(azimuth) * level};
        balloon.right = {std::cos(azimuth), 0, -std::sin(azimuth)};
        balloon.up = cross(balloon.centre, balloon.right);
        balloon.radius = 0.022F + 0.035F * fraction(hash, 2) * fraction(hash, 3);
        balloon.colour = kColours[scramble(hash, 4) % std::size(kColours)];
        balloon.stripe = i % 3 == 0 ? kCream : kColours[scramble(hash, 5) % std::size(kColours)];
        balloon.stripes = 6 + static_cast<int>(scramble(hash, 6) % 5);
        for (std::size_t cell = 0; cell < m_balloonsAbove.size(); ++cell) {
            const std::size_t column = cell % kCells;
            const std::size_t row = cell / kCells;
            const double dx
                = balloon.centre.x - (static_cast<double>(column) + 0.5) * 2.0 / kCells + 1.0;
            const double dz
                = balloon.centre.z - (static_cast<double>(row) + 0.5) * 2.0 / kCells + 1.0;
            // Half a cell's diagonal and a balloon with its basket.
            if (std::hypot(dx, dz) < 1.5 / kCells + 2.0 * static_cast<double>(balloon.radius))
                m_balloonsAbove[cell].push_back(balloon);
        }
    }
}

Colour Scene::light(const Vector &direction) const
{
    View view(direction, m_options.repeat);
    if (view.y > m_plainSkyFrom)
        return sky(view);
    if (view.tangent > kSkyline) {
        Colour colour;
        return balloons(view, colour) ? colour : sky(view);
    }
    view.locate();
    Colour colour;
    if (trees(view, colour) || towers(view, colour) || houses(view, true, colour)
        || houses(view, false, colour))
        return colour;
    if (view.tangent < kBackBase)
        return ground(view);
    if (hills(view, colour) || mountains(view, colour) || balloons(view, colour))
        return colour;
    return sky(view);
}

Colour Scene::plainSky(float height) const
{
    const float h = std::max(height, 0.0F);
    const Colour low
        = mix({0.78F, 0.82F, 0.84F}, {0.28F, 0.47F, 0.78F}, smoothStep(0.0F, 0.45F, h));
    return mix(low, {0.09F, 0.22F, 0.56F}, smoothStep(0.3F, 1.0F, h));
}

Colour Scene::sky(const View &view) const
{
    const Colour plain = plainSky(view.y);
    const float k = 1.0F / (view.y + 0.22F);
    const float px = view.x * k;
    const float py = view.z * k;
    // Clouds thin out below the plain part, so that it has no border to recognise.
    const float clear
        = m_plainSkyFrom > 1 ? 0 : smoothStep(m_plainSkyFrom - 0.09F, m_plainSkyFrom, view.y);
    Colour colour = plain;
    if (m_options.blurredSky && clear > 0) {
        const float patch = fractalNoise(m_options.seed + 900, px * 3.0F, py * 3.0F, 0, 2);
        colour = colour + Colour{0.25F, 0.22F, 0.18F} * ((patch - 0.4F) * clear);
    }
    if (clear >= 1)
        return colour;

    const auto towardsSun = static_cast<float>(dot(view.direction, m_sun));
    const float s = std::max(towardsSun, 0.0F);
    const float s4 = s * s * s * s;
    const float s16 = s4 * s4 * s4 * s4;
    const float s64 = s16 * s16 * s16 * s16;
    const Colour glow
        = Colour{0.30F, 0.22F, 0.10F} * (0.5F * s4 * s4) + Colour{0.8F, 0.65F, 0.35F} * (s64 * s64);
    colour = colour + glow * (1.0F - clear);
    if (towardsSun > 0.99965F && clear <= 0)
        return {6, 5.6F, 4.6F};

    const float footprint = m_detail * k * std::max(k, 1.0F);
    if (swallow(px * 11.0F, py * 11.0F))
        return mix(kDark, colour, clear);
    // High streaks, stretched along the wind, and below them heaps, lit from the sun's side.
    const float streak = fractalNoise(
        m_options.seed + 300, px * 2.2F + py, (py - px * 0.4F) * 7.0F, footprint * 8.0F, 6);
    colour = mix(
        colour, {0.86F, 0.88F, 0.92F}, 0.75F * smoothStep(0.42F, 0.85F, streak) * (1.0F - clear));
    const float bend = noise(m_options.seed + 400, px * 1.1F, py * 1.1F);
    const float x = px * 2.3F + bend;
    const float y = py * 2.3F - bend;
    const float heap = fractalNoise(m_options.seed + 500, x, y, footprint * 2.8F, 7);
    const float cover = smoothStep(0.52F, 0.62F, heap) * (1.0F - clear);
    if (cover <= 0)
        return colour;
    const float lit = fractalNoise(m_options.seed + 500, x + 0.16F * static_cast<float>(m_sun.x),
        y + 0.16F * static_cast<float>(m_sun.z), footprint * 2.8F, 4);
    const float puffs
        = fractalNoise(m_options.seed + 600, x * 11.0F, y * 11.0F, footprint * 31.0F, 3);
    const float shade
        = clamp01(0.60F + 3.2F * (heap - lit) - 0.9F * (heap - 0.6F) + 0.8F * (puffs - 0.5F));
    const Colour cloud = mix({0.36F, 0.41F, 0.50F}, {0.97F, 0.94F, 0.89F}, shade);
    return mix(colour, cloud, cover * 0.96F);
}

/// Birds on a plane above: at most one in each cell of a lattice, each heading its own way.
bool Scene::swallow(float x, float y) const
{
    const quint32 hash = scramble(scramble(m_options.seed, kSwallow, floorInt(x)), floorInt(y));
    if (fraction(hash) > 0.55F)
        return false;
    const float dx = x - std::floor(x) - 0.3F - 0.4F * fraction(hash, 1);
    const float dy = y - std::floor(y) - 0.3F - 0.4F * fraction(hash, 2);
    const float span = 0.035F + 0.05F * fraction(hash, 3);
    if (dx * dx + dy * dy > span * span)
        return false;
    const float heading = kTurn * fraction(hash, 4);
    const float across = std::abs(dx * std::cos(heading) - dy * std::sin(heading)) / span;
    const float along = (dx * std::sin(heading) + dy * std::cos(heading)) / span;
    const bool wing = std::abs(along - 0.45F * across * across + 0.1F) < 0.16F * (1.15F - across);
    const bool body = across < 0.09F && along < 0.25F;
    return wing || body;
}

bool Scene::balloons(const View &view, Colour &colour) const
{
    const auto cellOf
        = [](float v) { return static_cast<std::size_t>((v + 1.0F) * 0.4999F * kCells); };
    for (const Balloon &balloon : m_balloonsAbove[cellOf(view.z) * kCells + cellOf(view.x)]) {
        const auto ahead = static_cast<float>(dot(balloon.centre, view.direction));
        if (ahead < 0.98F)
            continue;
        const float x = static_cast<float>(dot(balloon.right, view.direction)) / balloon.radius;
        const float y = static_cast<float>(dot(balloon.up, view.direction)) / balloon.radius;
        const float width = y > 0 ? std::sqrt(std::max(0.0F, 1.0F - y * y))
                                  : 1.0F - 0.62F * smoothStep(0.0F, 1.3F, -y);
        if (within(y, -1.3F, 1.0F) && std::abs(x) < width) {
            const float across = std::asin(x / width) / 3.1416F + 0.5F;
            const Cell stripe(across, balloon.stripes);
            const Cell band((y + 1.3F) / 2.3F, 7);
            const bool other = (stripe.index + (band.index == 4 ? 1 : 0)) % 2 != 0;
            const float round = 0.55F + 0.6F * clamp01(0.6F - 0.5F * x + 0.35F * y);
            const float seam = stripe.rest < 0.06F ? 0.7F : 1.0F;
            colour = (other ? balloon.stripe : balloon.colour) * (round * seam);
            return true;
        }
        if (within(y, -1.95F, -1.6F) && std::abs(x) < 0.20F) {
            colour = std::abs(y + 1.66F) < 0.04F ? kDark : Colour{0.30F, 0.18F, 0.08F};
            return true;
        }
        if (within(y, -1.6F, -1.3F) && std::abs(std::abs(x) - 0.17F) < 0.015F) {
            colour = kDark;
            return true;
        }
    }
    return false;
}

bool Scene::mountains(const View &view, Colour &colour) const
{
    if (view.tangent > 0.36F)
        return false;
    const float ridge = fractalNoise(
        m_options.seed + 20, view.east * 2.7F, view.north * 2.7F, m_detail * 2.7F, 7);
    const float peak = 0.02F + 0.42F * std::max(ridge - 0.28F, 0.0F);
    if (view.tangent > peak)
        return false;
    const float x = (view.east + 2.0F) * 13.0F;
    const float y = view.north * 13.0F + view.tangent * 26.0F;
    const float rock = fractalNoise(m_options.seed + 30, x, y, m_detail * 26.0F, 5);
    const float lit = fractalNoise(m_options.seed + 30, x + 0.25F, y + 0.2F, m_detail * 26.0F, 4);
    const float snowLine = 0.135F + 0.10F * (rock - 0.5F);
    const Colour stone = mix({0.16F, 0.19F, 0.26F}, {0.36F, 0.36F, 0.38F}, rock);
    const Colour ground = view.tangent > snowLine ? Colour{0.90F, 0.92F, 0.97F} : stone;
    const float shade = clamp01(0.72F + 2.4F * (rock - lit));
    colour = mix(ground * shade, kHaze, 0.55F - 1.6F * std::max(view.tangent, 0.0F));
    return true;
}

bool Scene::hills(const View &view, Colour &colour) const
{
    if (view.tangent > 0.11F)
        return false;
    const float ridge = fractalNoise(
        m_options.seed + 40, view.east * 4.0F, view.north * 4.0F, m_detail * 4.0F, 6);
    if (view.tangent > 0.15F * (ridge - 0.12F))
        return false;
    const float x = (view.east + 2.0F) * 45.0F;
    const float y = view.north * 45.0F + view.tangent * 110.0F;
    const float wood = fractalNoise(m_options.seed + 50, x, y, m_detail * 110.0F, 4);
    const float field = noise(m_options.seed + 60, x * 0.18F, y * 0.18F);
    const Colour green = mix({0.06F, 0.15F, 0.04F}, {0.20F, 0.33F, 0.10F}, wood);
    const Colour meadow = mix({0.36F, 0.42F, 0.14F}, {0.52F, 0.46F, 0.20F}, wood);
    colour = mix(mix(green, meadow, smoothStep(0.52F, 0.60F, field)), kHaze, 0.22F);
    return true;
}

namespace {

constexpr Colour kRoofs[]
    = {{0.40F, 0.13F, 0.08F}, {0.28F, 0.11F, 0.08F}, {0.16F, 0.17F, 0.20F}, {0.46F, 0.20F, 0.10F}};

/// One of a row of houses, at the place that is looked at.
struct House {
    bool isFront;
    quint32 hash;
    /// Tangents: across the house, and of a storey.
    float width;
    float floor;
    int floors;
    /// 0 to 1 from its left to its right.
    float across;
    /// Tangents above its foot, and of the wall's upper edge.
    float up;
    float wallTop;
};

/// Nothing beside and above it.
std::optional<Colour> roofOf(const House &house, float detail)
{
    const float over = house.up - house.wallTop;
    const float gable = (house.isFront ? 0.040F : 0.022F) * (0.4F + fraction(house.hash, 3));
    const bool pointed = fraction(house.hash, 4) < 0.55F;
    const float top
        = pointed ? gable * (1.0F - std::abs(2.0F * house.across - 1.0F)) : 0.3F * gable;
    const float chimney = 0.15F + 0.6F * fraction(house.hash, 5);
    const bool stack = std::abs(house.across - chimney) < 0.045F && over < gable;
    if (over >= top && !stack)
        return std::nullopt;
    const float tile = noise(house.hash, house.across * house.width / 0.006F, over / 0.003F);
    const float row = 0.75F + 0.5F * (over / 0.006F - std::floor(over / 0.006F));
    const float rows = makeshooting::mix(1.0F, row, clamp01(2.0F - detail / 0.0022F));
    const Colour tiles
        = kRoofs[scramble(house.hash, 6) % std::size(kRoofs)] * (rows * (0.75F + 0.5F * tile));
    return over >= top ? Colour{0.34F, 0.15F, 0.11F} : tiles;
}

/// A window, a door or flowers, or the wall beside them.
Colour openingOf(const House &house, const Cell &storey, const Colour &plain)
{
    const int columns = (house.isFront ? 3 : 4) + static_cast<int>(scramble(house.hash, 8) % 3);
    const Cell column(house.across, columns);
    const quint32 hash = scramble(house.hash, 16 + column.index, storey.index);
    const bool ground = house.isFront && storey.index == 0;
    const bool door = ground
        && column.index
            == static_cast<int>(scramble(house.hash, 11) % static_cast<quint32>(columns));
    const float x = std::abs(column.rest - 0.5F);
    const float low = door ? 0.0F : 0.24F;
    const float high = ground ? 0.64F : 0.82F;
    const float half = 0.20F + 0.08F * fraction(house.hash, 12);
    if (x < half + 0.05F && within(storey.rest, low - 0.05F, high + 0.06F)) {
        if (x >= half || !within(storey.rest, low, high))
            return plain * 0.62F + Colour{0.16F, 0.15F, 0.14F};
        const float pane = fraction(hash);
        if (door)
            return Colour{0.24F, 0.12F, 0.06F} * (x < 0.015F ? 0.4F : 0.8F + 0.5F * pane);
        if (fraction(hash, 1) > 0.6F && x > half * 0.62F)
            return Colour{0.70F, 0.68F, 0.60F} * (0.6F + 0.4F * fraction(hash, 2));
        if (x < 0.02F || std::abs(storey.rest - 0.58F) < 0.025F)
            return {0.74F, 0.72F, 0.68F};
        if (pane > 0.86F)
            return {0.85F, 0.66F, 0.30F};
        const float shine = clamp01((storey.rest - low) / (high - low) - x + 0.2F * pane);
        return mix(kDark, {0.38F, 0.50F, 0.62F}, pane * shine);
    }
    if (!door && within(storey.rest, 0.12F, 0.19F) && x < half + 0.06F
        && fraction(hash, 3) > 0.55F) {
        const float bloom = fraction(scramble(hash, floorInt(column.rest * 24.0F)));
        return bloom > 0.5F ? Colour{0.62F, 0.08F, 0.12F} : Colour{0.10F, 0.24F, 0.05F};
    }
    return plain;
}

Colour wallOf(const House &house, float detail)
{
    static constexpr Colour kWalls[] = {{0.72F, 0.55F, 0.32F}, {0.62F, 0.28F, 0.18F},
        {0.75F, 0.70F, 0.58F}, {0.45F, 0.50F, 0.55F}, {0.78F, 0.62F, 0.40F}, {0.50F, 0.56F, 0.42F},
        {0.68F, 0.42F, 0.32F}, {0.80F, 0.78F, 0.72F}};
    static constexpr const char *kSigns[]
        = {"CAFE", "HOTEL", "BOOKS", "PANORAMA", "BAKER", "LENS", "HOME", "ROMA"};
    const Colour paint = kWalls[scramble(house.hash, 7) % std::size(kWalls)];
    const float stain = fractalNoise(
        house.hash, house.across * house.width * 40.0F, house.up * 40.0F, detail * 40.0F, 5);
    const Colour plain = paint * (0.72F + 0.56F * stain);

    const float storeys = house.floor * static_cast<float>(house.floors);
    const Cell storey(house.up / storeys, house.floors);
    const bool edge = house.across < 0.02F || house.across > 0.98F;
    const bool cornice = house.wallTop - house.up < house.floor * 0.16F;
    if (edge || cornice)
        return plain * (edge ? 0.7F : 1.15F);
    if (house.isFront && storey.index == 0 && storey.rest > 0.68F) {
        const char *sign = kSigns[scramble(house.hash, 9) % std::size(kSigns)];
        const float x = (house.across - 0.12F) / 0.76F;
        const float y = (0.95F - storey.rest) / 0.20F;
        if (!within(x, -0.04F, 1.04F))
            return plain;
        const Colour board = kRoofs[scramble(house.hash, 10) % std::size(kRoofs)];
        return textCovers(sign, x, y) ? Colour{0.85F, 0.78F, 0.45F} : board * 0.8F;
    }
    return house.up < storeys ? openingOf(house, storey, plain) : plain;
}

} // namespace

bool Scene::houses(const View &view, bool front, Colour &colour) const
{
    const float base = front ? kFrontBase : kBackBase;
    const float highest = front ? 0.20F : 0.29F;
    if (!within(view.tangent, base, highest))
        return false;

    const int count = front ? 48 : 84;
    const Cell cell(view.turn, count);
    House house{};
    house.isFront = front;
    house.hash = view.cellHash(m_options.seed, front ? kFacade : kBackdrop, cell.index, count);
    if (front && fraction(house.hash) < 0.24F)
        return false; // a gap through which one sees the row behind
    house.width = kTurn / static_cast<float>(count);
    house.floor = front ? 0.034F : 0.020F;
    house.floors = 2 + static_cast<int>(scramble(house.hash, 2) % (front ? 4 : 9));
    house.across = cell.rest;
    house.up = view.tangent - base;
    house.wallTop = house.floor * (static_cast<float>(house.floors) + 0.35F);
    const std::optional<Colour> seen
        = house.up < house.wallTop ? wallOf(house, m_detail) : roofOf(house, m_detail);
    if (!seen)
        return false;
    const auto sunSide = static_cast<float>(-(view.x * m_sun.x + view.z * m_sun.z)) / view.level;
    const float lit = 0.62F + 0.42F * std::max(sunSide, -0.35F);
    colour = mix(*seen * lit, kHaze, front ? 0.0F : 0.20F);
    return true;
}

bool Scene::towers(const View &view, Colour &colour) const
{
    if (!within(view.tangent, kFrontBase, kSkyline))
        return false;
    static constexpr char kLetters[] = "NESW";
    static constexpr Colour kPanels[] = {
        {0.70F, 0.07F, 0.06F}, {0.80F, 0.52F, 0.05F}, {0.08F, 0.42F, 0.18F}, {0.08F, 0.22F, 0.60F}};
    const float quarter = view.turn * 4.0F + 0.5F;
    const int side = floorInt(quarter);
    const float x = (quarter - static_cast<float>(side) - 0.5F) * kTurn / 4.0F;
    constexpr float kHalf = 0.060F;
    constexpr float kTop = 0.315F;
    if (std::abs(x) > kHalf + 0.012F)
        return false;
    const float h = view.tangent;
    const float roof = kTop + 0.115F * (1.0F - std::abs(x) / (kHalf + 0.012F));
    if (h > roof)
        return false;
    const Colour panel = kPanels[side % 4];
    if (h > kTop) {
        const float tiles = noise(m_options.seed + 70, x / 0.004F, h / 0.003F);
        colour = panel * ((x < 0 ? 0.95F : 0.65F) * (0.6F + 0.5F * tiles));
        return true;
    }
    if (std::abs(x) > kHalf)
        return false;
    const float row = (h - kFrontBase) / 0.011F;
    const Cell course(row / 64.0F, 64);
    const float shift = course.index % 2 == 0 ? 0.0F : 0.5F;
    const float brick = x / 0.020F + shift + 16.0F;
    const float joint = brick - std::floor(brick);
    const quint32 hash
        = scramble(scramble(m_options.seed, side % 4, 77), floorInt(brick), course.index);
    const float grain = fractalNoise(m_options.seed + 80,
        x * 90.0F + 9.0F * static_cast<float>(side), h * 90.0F, m_detail * 90.0F, 3);
    colour = kCream * ((0.55F + 0.28F * fraction(hash)) * (0.7F + 0.5F * grain));
    if (joint < 0.06F || course.rest < 0.10F)
        colour = colour * 0.72F;
    const float py = (h - 0.175F) / 0.110F;
    if (std::abs(x) < 0.052F && within(py, -0.06F, 1.06F)) {
        colour = panel * 0.9F;
        const bool rim = std::abs(x) > 0.048F || !within(py, -0.01F, 1.01F);
        if (rim || glyphCovers(kLetters[side % 4], x / 0.078F + 0.5F, 1.08F - 1.16F * py))
            colour = {0.92F, 0.90F, 0.84F};
    } else if (std::abs(x) < 0.014F && (within(h, 0.03F, 0.075F) || within(h, 0.10F, 0.145F))) {
        colour = kDark;
    } else if (std::abs(x) < 0.018F && h < -0.02F) {
        colour = {0.16F, 0.09F, 0.05F};
    }
    return true;
}

bool Scene::trees(const View &view, Colour &colour) const
{
    constexpr int kCount = 72;
    if (!within(view.tangent, kTreeBase - 0.01F, 0.085F))
        return false;
    const Cell cell(view.turn, kCount);
    const quint32 hash = view.cellHash(m_options.seed, kTree, cell.index, kCount);
    if (fraction(hash) > 0.42F)
        return false;
    constexpr float kWidth = kTurn / kCount;
    const float radius = kWidth * (0.34F + 0.10F * fraction(hash, 1));
    const float x = (cell.rest - 0.5F) * kWidth;
    const float centre = 0.0F + 0.045F * fraction(hash, 2);
    const float y = (view.tangent - centre) / 1.25F;
    const float leaf
        = fractalNoise(hash, (x + 1.0F) * 110.0F, (y + 1.0F) * 110.0F, m_detail * 110.0F, 4);
    const float distance = std::sqrt(x * x + y * y) / radius;
    if (distance < 0.72F + 0.56F * (leaf - 0.25F) && distance < 1.0F) {
        const float side = clamp01(0.62F + 0.4F * y / radius - 0.2F * x / radius);
        const Colour shadow{0.03F, 0.08F, 0.02F};
        const Colour sunny
            = fraction(hash, 3) > 0.7F ? Colour{0.42F, 0.30F, 0.06F} : Colour{0.22F, 0.40F, 0.08F};
        colour = mix(shadow, sunny, clamp01(side * (0.15F + 1.5F * (leaf - 0.15F))));
        return true;
    }
    if (std::abs(x) < 0.0042F && within(view.tangent, kTreeBase, centre)) {
        colour = Colour{0.13F, 0.08F, 0.05F} * (x < 0 ? 1.3F : 0.8F);
        return true;
    }
    return false;
}

Colour Scene::ground(const View &view) const
{
    const float k = -1.0F / view.tangent;
    const float radius = k;
    const float x = view.east * radius;
    const float y = view.north * radius;
    const float depth = -view.y;
    const float footprint = m_detail / (depth * std::sqrt(depth));
    Colour colour;
    if (compassRose(view, radius, colour))
        return colour;
    const float grain
        = fractalNoise(m_options.seed + 100, x * 9.0F + 500, y * 9.0F + 500, footprint * 9.0F, 5);
    const float speckle
        = fractalNoise(m_options.seed + 105, x * 40.0F, y * 40.0F, footprint * 40.0F, 3);
    const float spot = noise(m_options.seed + 110, x * 0.35F + 50, y * 0.35F + 50);
    const float bed = view.turn * kRepeats;
    const float spoke = std::abs(bed - std::floor(bed) - 0.5F) / kRepeats * kTurn * radius;
    const bool lawn = within(radius, 4.6F, 9.2F) && spoke > 0.75F;
    const bool farLawn = radius > 13.6F;
    if (!lawn && !farLawn)
        return paving(view, radius) * ((0.72F + 0.56F * grain) * (0.72F + 0.56F * speckle));
    const float blades
        = fractalNoise(m_options.seed + 120, x * 26.0F, y * 26.0F, footprint * 26.0F, 3);
    colour = mix({0.07F, 0.17F, 0.03F}, {0.27F, 0.40F, 0.09F}, 0.55F * grain + 0.45F * blades)
        * (0.7F + 0.6F * spot);
    if (!lawn)
        return colour;
    if (spoke < 0.92F || !within(radius, 4.75F, 9.05F))
        return kCream * (0.55F + 0.4F * grain);
    // Flowers: one point in each cell of a lattice, with a random place and size.
    const float fx = x * 3.2F + 200;
    const float fy = y * 3.2F + 200;
    const quint32 hash = scramble(scramble(m_options.seed, kFlower, floorInt(fx)), floorInt(fy));
    const float dx = fx - std::floor(fx) - 0.3F - 0.4F * fraction(hash);
    const float dy = fy - std::floor(fy) - 0.3F - 0.4F * fraction(hash, 1);
    const float size = 0.10F + 0.16F * fraction(hash, 2);
    const float distance = dx * dx + dy * dy;
    if (fraction(hash, 3) > 0.45F + 0.5F * spot || distance > size * size)
        return colour;
    static constexpr Colour kPetals[] = {
        {0.80F, 0.10F, 0.14F}, {0.88F, 0.70F, 0.08F}, {0.78F, 0.74F, 0.80F}, {0.46F, 0.18F, 0.58F}};
    return distance < 0.1F * size * size ? Colour{0.85F, 0.65F, 0.1F}
                                         : kPetals[scramble(hash, 4) % std::size(kPetals)];
}

/// The stone that covers a place, of rings of stones round the viewer.
struct Scene::Stone {
    /// Rings of \a height, each of stones about \a length long.
    Stone(const View &view, quint32 seed, float radius, float height, float length)
    {
        const Cell ring(radius / (height * 128.0F), 128);
        row = ring.index;
        const float around = kTurn * height * (static_cast<float>(row) + 0.5F);
        const int count
            = kRepeats * std::max(1, static_cast<int>(std::lround(around / length / kRepeats)));
        const float turn = view.turn + (row % 2 == 0 ? 0.0F : 0.5F / static_cast<float>(count));
        const Cell stone(turn - std::floor(turn), count);
        hash = view.cellHash(seed, kStone, stone.index, count, row);
        const float side
            = std::min(stone.rest, 1.0F - stone.rest) * around / static_cast<float>(count);
        joint = std::min(std::min(ring.rest, 1.0F - ring.rest) * height, side);
    }

    /// Darkens by the joint of \a width. One thinner than a pixel darkens by its share.
    float shade(float width, float footprint) const
    {
        const float seen = std::max(width, footprint);
        return 1.0F - 0.6F * (width / seen) * (1.0F - smoothStep(0.6F * seen, seen, joint));
    }

    int row;
    quint32 hash;
    /// Distance from the stone's nearest edge.
    float joint;
};

Colour Scene::paving(const View &view, float radius) const
{
    const Stone stone(view, m_options.seed, radius, 0.30F, 0.42F);
    Colour colour = mix({0.46F, 0.42F, 0.37F}, {0.62F, 0.52F, 0.42F}, fraction(stone.hash, 1))
        * (0.62F + 0.5F * fraction(stone.hash));
    if (stone.row % 5 == 4)
        colour = colour * 0.55F;
    return colour * stone.shade(0.016F, m_detail * (1.0F + radius * radius));
}

bool Scene::compassRose(const View &view, float radius, Colour &colour) const
{
    if (radius > 2.3F)
        return false;
    const Colour light{0.80F, 0.76F, 0.66F};
    const Colour inlay{0.10F, 0.12F, 0.18F};
    const float sx = view.x / view.level * radius;
    const float sy = view.z / view.level * radius;
    const float grain
        = fractalNoise(m_options.seed + 130, sx * 14.0F + 90, sy * 14.0F + 90, m_detail * 20.0F, 4);
    const float marble = 0.68F + 0.6F * grain;
    if (radius > 1.75F) {
        // A scale of degrees, labelled every 30.
        const Cell sector(view.turn + 1.0F / 24.0F - std::floor(view.turn + 1.0F / 24.0F), 12);
        const float x = (sector.rest - 0.5F) / 12.0F * kTurn * 2.0F;
        const float y = (2.17F - radius) / 0.22F;
        const char label[4] = {static_cast<char>('0' + sector.index * 30 / 100),
            static_cast<char>('0' + sector.index * 3 % 10), '0', '\0'};
        const Cell tick(view.turn, 72);
        const bool mark = textCovers(label, x / 0.46F + 0.5F, y)
            || (radius < 1.84F && std::abs(tick.rest - 0.5F) > 0.42F);
        colour = (mark ? inlay : light) * marble;
        if (radius > 2.25F)
            colour = inlay * marble;
        return true;
    }
    // Eight points, the four main ones longer, each half light and half dark.
    const float eighth = view.turn * 8.0F + 0.5F;
    const int point = floorInt(eighth);
    const float off = (eighth - static_cast<float>(point) - 0.5F) * kTurn / 8.0F;
    const float reach = point % 2 == 0 ? 1.12F : 0.75F;
    const float along = radius * std::cos(off);
    const float across = radius * std::sin(off);
    const float half = 0.16F * (1.0F - along / reach);
    static constexpr char kLetters[] = "NESW";
    if (std::abs(across) < half) {
        const Colour main
            = point % 2 == 0 ? Colour{0.62F, 0.10F, 0.08F} : Colour{0.10F, 0.22F, 0.45F};
        colour = (across < 0 ? main : light) * marble;
    } else if (point % 2 == 0
        && glyphCovers(kLetters[point / 2 % 4], across / 0.36F + 0.5F, (1.62F - along) / 0.36F)) {
        colour = inlay * marble;
    } else {
        static constexpr Colour kTiles[] = {{0.62F, 0.52F, 0.38F}, {0.44F, 0.30F, 0.22F},
            {0.72F, 0.66F, 0.54F}, {0.30F, 0.36F, 0.40F}, {0.54F, 0.44F, 0.32F}};
        const Stone tile(view, m_options.seed + 1, radius, 0.055F, 0.055F);
        const bool ring = within(radius, 0.62F, 0.66F) || radius > 1.70F;
        const Colour mosaic = mix(kTiles[scramble(tile.hash, 1) % std::size(kTiles)], light,
            radius < 0.64F ? 0.65F : 0.1F);
        colour = ring ? inlay * marble
                      : mosaic * ((0.3F + 0.7F * marble) * tile.shade(0.005F, m_detail));
    }
    return true;
}

} // namespace makeshooting
