// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Agreement.h"

#include <Eigen/Geometry>
#include <algorithm>
#include <cmath>
#include <random>

namespace align {

namespace {

constexpr int kDraws = 150;
constexpr std::size_t kFewest = 6;
/// Radians that two pictures may be turned against each other other than expected.
constexpr double kMostTurn = 15 * M_PI / 180;

/// The axes that two directions span.
Rotation frameOf(const Vector &a, const Vector &b)
{
    Rotation frame;
    frame.col(0) = a;
    frame.col(2) = a.cross(b).normalized();
    frame.col(1) = frame.col(2).cross(a);
    return frame;
}

std::vector<int> agreeingWith(
    const Rotation &turn, const std::vector<MatchedRays> &rays, double tolerance)
{
    std::vector<int> result;
    for (std::size_t i = 0; i < rays.size(); ++i) {
        if ((turn * rays[i].second - rays[i].first).squaredNorm() < tolerance * tolerance)
            result.push_back(static_cast<int>(i));
    }
    return result;
}

Rotation fitted(const std::vector<MatchedRays> &rays, const std::vector<int> &places)
{
    TurnFit fit;
    for (const int place : places) {
        const MatchedRays &pair = rays[static_cast<std::size_t>(place)];
        fit.add(pair.second, pair.first);
    }
    return fit.turn();
}

} // namespace

Agreement agreedTurn(const std::vector<MatchedRays> &rays, const Rotation &expected,
    const AgreementLimits &limits, std::uint32_t seed)
{
    Agreement best;
    if (rays.size() < kFewest)
        return best;
    std::minstd_rand random(seed % 2147483646 + 1);
    const auto drawn = [&] { return random() % rays.size(); };
    const auto distance
        = [&](const MatchedRays &pair) { return (expected * pair.second - pair.first).norm(); };
    // Of a narrow picture a turn round its own axis is large before it takes points far.
    const auto isNear = [&](const Rotation &turn) {
        return angleOf(turn * expected.transpose()) < std::max(limits.gate, kMostTurn);
    };
    // Directions closer together tell little about the turn round them.
    const double apart = 3 * limits.tolerance;
    for (int draw = 0; draw < kDraws; ++draw) {
        const MatchedRays &a = rays[drawn()];
        const MatchedRays &b = rays[drawn()];
        if ((a.first - b.first).norm() < apart || (a.second - b.second).norm() < apart
            || distance(a) > limits.gate || distance(b) > limits.gate)
            continue;
        const Rotation turn = frameOf(a.first, b.first) * frameOf(a.second, b.second).transpose();
        if (!isNear(turn))
            continue;
        std::vector<int> agreeing = agreeingWith(turn, rays, limits.tolerance);
        if (agreeing.size() > best.agreeing.size())
            best = {turn, std::move(agreeing), 0};
        if (best.agreeing.size() == rays.size())
            break;
    }
    if (best.agreeing.size() < kFewest)
        return {};
    for (int round = 0; round < 2 && best.agreeing.size() >= kFewest; ++round) {
        best.turn = fitted(rays, best.agreeing);
        best.agreeing = agreeingWith(best.turn, rays, limits.tolerance);
    }
    const auto fewest = std::max(
        kFewest, static_cast<std::size_t>(limits.part * static_cast<double>(rays.size())));
    if (best.agreeing.size() < fewest || !isNear(best.turn))
        return {};
    for (const int place : best.agreeing)
        best.distance += distance(rays[static_cast<std::size_t>(place)]);
    best.distance /= static_cast<double>(best.agreeing.size());
    if (best.distance > limits.gate)
        return {};
    return best;
}

} // namespace align
