// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/PairMatcher.h"

#include "align/Features.h"
#include "align/PairVisit.h"
#include "align/ShiftSearch.h"
#include "align/Tracking.h"
#include "geometry/Angle.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDateTime>
#include <QFileInfo>
#include <algorithm>
#include <cmath>
#include <limits>

namespace align {

namespace {

/// Matches of a pair that are kept.
constexpr std::size_t kKept = 60;
/// Part of half the shorter side that a wrong focal length or a distortion may bend a pair's turn
/// by.
constexpr double kBend = 0.03;
/// Working pixels by which tracking finds a corner off its place.
constexpr double kReach = 60;
/// Part of the corners tracked that must agree on one turn.
constexpr double kPart = 0.3;
/// Part of the corners looked for that agree by chance, where windows look like windows.
constexpr double kChance = 0.45;
/// Part of them that is enough where features have agreed on the place.
constexpr double kRoughPart = 0.4;
/// Part of them beyond which a pair is looked for nowhere else.
constexpr double kClearPart = 0.8;
/// Radians that a feature may be off its place; of a grid at least this part of the field of view.
constexpr double kWideGate = 20 * M_PI / 180;
constexpr double kGridGate = 0.8;
/// Part of the features that must agree on one turn.
constexpr double kFeaturePart = 0.25;
constexpr double kGridFeaturePart = 0.3;
/// To be raised when matches are found in another way: what is kept of earlier runs is then not
/// used.
constexpr int kMethods = 5;

std::vector<Match> chosen(
    const std::vector<Match> &matches, const Agreement &agreement, std::size_t most)
{
    std::vector<Match> result;
    for (const int i : agreement.agreeing) {
        if (result.size() < most)
            result.push_back(matches[static_cast<std::size_t>(i)]);
    }
    return result;
}

QByteArray packed(const PicturePair &pair)
{
    QByteArray value;
    QDataStream stream(&value, QIODevice::WriteOnly);
    stream << pair.corners << pair.distance << pair.isSure << pair.isRough;
    for (const double element : pair.turn.reshaped())
        stream << element;
    stream << static_cast<quint32>(pair.matches.size());
    for (const Match &match : pair.matches)
        stream << match.inFirst.x << match.inFirst.y << match.inSecond.x << match.inSecond.y
               << match.weight;
    return value;
}

void unpack(const QByteArray &value, PicturePair *pair)
{
    QDataStream stream(value);
    quint32 count = 0;
    stream >> pair->corners >> pair->distance >> pair->isSure >> pair->isRough;
    for (double &element : pair->turn.reshaped())
        stream >> element;
    stream >> count;
    pair->matches.clear();
    while (count-- > 0) {
        Match match;
        stream >> match.inFirst.x >> match.inFirst.y >> match.inSecond.x >> match.inSecond.y
            >> match.weight;
        if (stream.status() != QDataStream::Ok)
            break;
        pair->matches.push_back(match);
    }
}

} // namespace

/// What is seen of the first picture where the second one is thought to look.
struct PairMatcher::Sight {
    Tracked tracked;
    Agreement agreement;

    double found() const { return static_cast<double>(agreement.agreeing.size()); }
    /// Of the corners looked for, how many are found and agree.
    double part() const { return found() / std::max(tracked.sought, 1); }
    /// More than chance finds, by two deviations.
    bool isSure() const
    {
        const double chance = kChance * tracked.sought;
        return agreement && found() >= chance + 2 * std::sqrt(chance * (1 - kChance));
    }
};

PairMatcher::PairMatcher(const PtoProject &project, const Cameras &cameras, bool isGrid,
    PicturePairs *pairs, MatchCache *cache)
    : m_project(project)
    , m_cameras(cameras)
    , m_isGrid(isGrid)
    , m_pairs(*pairs)
    , m_cache(*cache)
{
}

bool PairMatcher::track(const PicturePairs::Places &wanted, const Progress &progress)
{
    const auto readCorners = [this](int picture) {
        WorkingPicture result = read(picture);
        if (!result.isNull())
            findCorners(&result);
        return result;
    };
    const auto match
        = [&](const WorkingPicture &first, const WorkingPicture &second, PicturePair *pair) {
              if (!first.isNull() && !second.isNull())
                  trackPair(first, second, pair);
          };
    return visit<WorkingPicture>("track", wanted, readCorners, match, progress);
}

PairMatcher::Sight PairMatcher::sightOf(const PicturePair &pair, const TrackedView &one,
    const TrackedView &other, double gate, Shades shades) const
{
    Sight sight;
    sight.tracked = align::track(one, other, shades);
    sight.agreement = agreementOf(pair, one.rotation.transpose() * other.rotation,
        sight.tracked.matches, {kBend * one.lens.unit / one.lens.focal, gate, kPart});
    return sight;
}

void PairMatcher::trackPair(
    const WorkingPicture &first, const WorkingPicture &second, PicturePair *pair)
{
    const Lens &lens = m_cameras.lens(pair->first);
    const TrackedView one{&first, lens, m_cameras.rotation(pair->first)};
    const TrackedView other{
        &second, m_cameras.lens(pair->second), m_cameras.rotation(pair->second)};
    const auto lookTo = [&](const Rotation &place) {
        const TrackedView there{other.picture, other.lens, place};
        const double gate = 2 * kReach * first.scale / lens.focal;
        Sight sight = sightOf(*pair, one, there, gate, Shades::AsTheyAre);
        // Within a stack the lens is equally dark at the same places.
        if (sight.part() < kClearPart && !pair->isInner) {
            Sight again = sightOf(*pair, one, there, gate, Shades::AgainstLight);
            if (again.found() > sight.found())
                return again;
        }
        return sight;
    };
    const auto take = [&](const Sight &sight, bool isFar) {
        pair->turn = sight.agreement.turn;
        // Found far off it was seen through what is known of the lens so far: not for the last
        // time.
        pair->distance = isFar ? std::numeric_limits<double>::infinity()
                               : sight.agreement.distance * lens.focal / first.scale;
        pair->matches = chosen(sight.tracked.matches, sight.agreement, kKept);
        pair->isSure = sight.isSure();
    };
    if (pair->isRough) {
        const Sight sight = lookTo(one.rotation * pair->turn);
        // Features and corners are two witnesses.
        if (sight.agreement && sight.part() >= kRoughPart) {
            take(sight, true);
            pair->isSure = true;
        } else {
            pair->matches.clear();
        }
        pair->isRough = false;
        return;
    }
    const Sight near = lookTo(other.rotation);
    pair->corners = near.tracked.corners;
    const bool isEnough
        = near.isSure() || (!pair->isDoubted && !(pair->isJoined() && pair->isSure));
    const bool isNear = near.agreement && isEnough;
    if (isNear)
        take(near, false);
    if (isNear && (near.part() >= kClearPart || !pair->isDoubted))
        return;
    if (const auto place = searchShift(one, other)) {
        const Sight far = lookTo(*place);
        if (far.isSure() && (!isNear || far.part() > near.part()))
            take(far, true);
    }
}

bool PairMatcher::trackClouds(const PicturePairs::Places &wanted, const Progress &progress)
{
    const auto readClouds = [this](int picture) {
        const WorkingPicture whole = read(picture);
        WorkingPicture result = whole.isNull() ? whole : cloudsOf(whole);
        if (!result.isNull())
            findCorners(&result);
        return result;
    };
    const auto match
        = [this](const WorkingPicture &first, const WorkingPicture &second, PicturePair *pair) {
              if (first.isNull() || second.isNull())
                  return;
              const Lens &lens = m_cameras.lens(pair->first);
              const Sight sight = sightOf(*pair, {&first, lens, m_cameras.rotation(pair->first)},
                  {&second, m_cameras.lens(pair->second), m_cameras.rotation(pair->second)},
                  kReach * m_cameras.scale(pair->first) / lens.focal, Shades::AsTheyAre);
              if (!sight.isSure())
                  return;
              pair->turn = sight.agreement.turn;
              pair->distance = 0;
              pair->matches = chosen(sight.tracked.matches, sight.agreement, kKept);
              for (Match &match : pair->matches)
                  match.weight *= m_cameras.scale(pair->first) / first.scale;
              pair->isSure = true;
          };
    return visit<WorkingPicture>("clouds", wanted, readClouds, match, progress);
}

bool PairMatcher::search(const PicturePairs::Places &wanted, const Progress &progress)
{
    const auto readFeatures
        = [this](int picture) { return findFeatures(read(picture), m_cameras.lens(picture)); };
    const auto match = [this](const Features &first, const Features &second, PicturePair *pair) {
        const Lens &lens = m_cameras.lens(pair->first);
        const double gate
            = m_isGrid ? std::max(kWideGate, kGridGate * lens.unit / lens.focal) : kWideGate;
        const std::vector<Match> matches
            = matchFeatures({&first, lens, m_cameras.rotation(pair->first)},
                {&second, m_cameras.lens(pair->second), m_cameras.rotation(pair->second)}, gate);
        const Agreement agreement
            = agreementOf(*pair, m_cameras.turnBetween(pair->first, pair->second), matches,
                {kBend * lens.unit / lens.focal, gate, m_isGrid ? kGridFeaturePart : kFeaturePart});
        pair->matches = chosen(matches, agreement, matches.size());
        pair->isRough = pair->isJoined();
        if (agreement)
            pair->turn = agreement.turn;
    };
    return visit<Features>("search", wanted, readFeatures, match, progress);
}

/// Has \a match done for each pair of \a wanted that no earlier run matched like this.
template <class Picture, class Read, class Match>
bool PairMatcher::visit(const char *method, const PicturePairs::Places &wanted, const Read &read,
    const Match &match, const Progress &progress)
{
    PicturePairs::Places places;
    std::vector<QByteArray> keys;
    std::vector<QPair<int, int>> pictures;
    for (const int place : wanted) {
        PicturePair &pair = m_pairs[place];
        const QByteArray key = m_cache.isUsed() ? keyOf(pair, method) : QByteArray();
        const QByteArray known = m_cache.value(key);
        if (!known.isEmpty()) {
            unpack(known, &pair);
            continue;
        }
        places.push_back(place);
        keys.push_back(key);
        pictures.emplace_back(pair.first, pair.second);
    }
    int done = 0;
    return visitPairs<Picture>(
        pictures, read, [&](int i, const Picture &first, const Picture &second) {
            PicturePair &pair = m_pairs[places[static_cast<std::size_t>(i)]];
            match(first, second, &pair);
            m_cache.insert(keys[static_cast<std::size_t>(i)], packed(pair));
            return progress(++done, static_cast<int>(places.size()));
        });
}

WorkingPicture PairMatcher::read(int picture) const
{
    const PtoProject::Picture &entry = m_project.pictures.at(picture);
    return readWorkingPicture(entry.path, entry.lens.size);
}

Agreement PairMatcher::agreementOf(const PicturePair &pair, const Rotation &expected,
    const std::vector<Match> &matches, const AgreementLimits &limits) const
{
    const Lens &first = m_cameras.lens(pair.first);
    const Lens &second = m_cameras.lens(pair.second);
    std::vector<MatchedRays> rays;
    rays.reserve(matches.size());
    for (const Match &match : matches)
        rays.push_back({first.ray(match.inFirst), second.ray(match.inSecond)});
    return agreedTurn(rays, expected, limits,
        static_cast<std::uint32_t>(pair.first) * 7919U + static_cast<std::uint32_t>(pair.second));
}

QByteArray PairMatcher::keyOf(const PicturePair &pair, const char *method) const
{
    QByteArray text;
    QDataStream stream(&text, QIODevice::WriteOnly);
    stream << kMethods << QByteArray(method) << pair.isDoubted << (pair.isJoined() && pair.isSure)
           << m_isGrid << pair.isRough;
    for (const int picture : {pair.first, pair.second}) {
        const PtoProject::Picture &entry = m_project.pictures.at(picture);
        const QFileInfo file(entry.path);
        const Lens &lens = m_cameras.lens(picture);
        stream << file.fileName() << file.size() << file.lastModified().toMSecsSinceEpoch()
               << entry.lens.size << lens.focal << lens.distortion << lens.fisheye;
    }
    const Rotation turn = m_cameras.turnBetween(pair.first, pair.second);
    for (const double value : (pair.isRough ? pair.turn : turn).reshaped())
        stream << value;
    return QCryptographicHash::hash(text, QCryptographicHash::Md5);
}

} // namespace align
