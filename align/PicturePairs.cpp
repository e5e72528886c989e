// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/PicturePairs.h"

#include "align/DisjointSets.h"
#include "align/LocationPairs.h"
#include "geometry/Median.h"

#include <QSet>
#include <algorithm>
#include <numeric>

namespace align {

namespace {

/// Corners that both pictures of a pair must have where they overlap for something to be expected.
constexpr int kTextured = 20;
/// Working pixels from where it was expected beyond which a pair found is tracked again from where
/// it was found, and beyond which that is worth a round of its own.
constexpr double kDistant = 10;
constexpr double kFar = 40;
/// Working pixels by which sure pairs are off, in the middle, beyond which the head is no guide to
/// the others; and by which unsure ones may be, for chance would scatter them further.
constexpr double kHeadNear = 80;
constexpr double kUnsureNear = 10;
/// Matches that are few for a pair found far off.
constexpr std::size_t kPoor = 15;
/// Working pixels beyond which a match is wrong, and how many times the middle distance.
constexpr double kOutlier = 1;
constexpr double kOutlierTimes = 4;
/// Working pixels beyond which all of a pair is wrong, and how many times the middle distance.
constexpr double kWrong = 3;
constexpr double kWrongTimes = 6;
/// Working pixels that no parallax and no bent lens makes.
constexpr double kHopeless = 20;

std::size_t at(int i)
{
    return static_cast<std::size_t>(i);
}

} // namespace

bool PicturePair::isTextured() const
{
    return corners >= kTextured;
}

void PicturePairs::choose(
    const ProjectRecord &record, const PictureTable &pictures, const PtoProject &project)
{
    // Of each location the first picture and the one that stands for all.
    std::vector<int> starts;
    std::vector<int> references;
    std::vector<Outlook> outlooks;
    int start = 0;
    for (const QStringList &stack : record.groups) {
        const int reference
            = stack.isEmpty() ? 0 : start + referencePicture(record, stack, pictures);
        starts.push_back(start);
        references.push_back(reference);
        outlooks.push_back({m_cameras.recorded(reference), project.pictures.at(reference).lens});
        start += static_cast<int>(stack.size());
    }
    const auto add = [this](int first, int second, bool isInner) {
        PicturePair pair;
        pair.first = std::min(first, second);
        pair.second = std::max(first, second);
        pair.isInner = isInner;
        m_pairs.push_back(pair);
    };
    for (const auto &[a, b] : locationPairs(record, outlooks)) {
        const auto common
            = static_cast<int>(std::min(record.groups.at(a).size(), record.groups.at(b).size()));
        if (common == 0)
            continue;
        if (record.levelLinking == 0) {
            add(references[at(a)], references[at(b)], false);
            continue;
        }
        for (int level = 0; level < common; ++level)
            add(starts[at(a)] + level, starts[at(b)] + level, false);
    }
    for (int location = 0; location < record.groups.size() && record.stackLinking != 0;
         ++location) {
        const int reference = references[at(location)];
        for (int i = 0; i < record.groups.at(location).size(); ++i) {
            if (starts[at(location)] + i != reference)
                add(starts[at(location)] + i, reference, true);
        }
    }
}

PicturePairs::Places PicturePairs::all() const
{
    Places places(m_pairs.size());
    std::iota(places.begin(), places.end(), 0);
    return places;
}

template <class Condition>
PicturePairs::Places PicturePairs::where(const Condition &condition) const
{
    Places places;
    for (int i = 0; i < count(); ++i) {
        if (condition((*this)[i]))
            places.push_back(i);
    }
    return places;
}

PicturePairs::Places PicturePairs::failed() const
{
    return where([](const PicturePair &pair) {
        return !pair.isJoined() && (pair.isTextured() || (pair.isDoubted && pair.corners > 0));
    });
}

PicturePairs::Places PicturePairs::clouds() const
{
    std::vector<bool> isJoined(at(m_cameras.count()), false);
    for (const PicturePair &pair : m_pairs) {
        if (pair.isJoined() && !pair.isInner)
            isJoined[at(pair.first)] = isJoined[at(pair.second)] = true;
    }
    // The others of its stack know better than clouds where a picture looks.
    std::vector<bool> isHeld(at(m_cameras.count()), false);
    for (const PicturePair &pair : m_pairs) {
        if (pair.isInner) {
            isHeld[at(pair.first)] = isHeld[at(pair.first)] || isJoined[at(pair.second)];
            isHeld[at(pair.second)] = isHeld[at(pair.second)] || isJoined[at(pair.first)];
        }
    }
    return loose(where([&](const PicturePair &pair) {
        return !pair.isJoined() && !pair.isInner
            && !(isHeld[at(pair.first)] && isHeld[at(pair.second)]);
    }));
}

PicturePairs::Places PicturePairs::textured() const
{
    return where([](const PicturePair &pair) { return pair.isJoined() || pair.isTextured(); });
}

PicturePairs::Places PicturePairs::distant() const
{
    return where(
        [](const PicturePair &pair) { return pair.isJoined() && pair.distance > kDistant; });
}

PicturePairs::Head PicturePairs::head() const
{
    std::vector<double> sure;
    std::vector<double> all;
    for (const PicturePair &pair : m_pairs) {
        if (!pair.isJoined() || pair.isInner)
            continue;
        all.push_back(geometry::upperMedian(
            distances(pair, m_cameras.recorded(pair.first), m_cameras.recorded(pair.second))));
        if (pair.isSure)
            sure.push_back(all.back());
    }
    if (!sure.empty())
        return geometry::upperMedian(std::move(sure)) <= kHeadNear ? Head::Near : Head::Far;
    const bool isNear = !all.empty() && geometry::upperMedian(std::move(all)) <= kUnsureNear;
    return isNear ? Head::Near : Head::Unknown;
}

void PicturePairs::doubt()
{
    const std::vector<int> parts
        = partsJoinedBy([](const PicturePair &pair) { return pair.isSure || pair.isInner; });
    const bool isNear = head() == Head::Near;
    for (PicturePair &pair : m_pairs) {
        pair.isDoubted
            = !isNear && !pair.isInner && parts[at(pair.first)] != parts[at(pair.second)];
        if (pair.isDoubted && !pair.isSure)
            pair.matches.clear();
    }
}

bool PicturePairs::hasPoor() const
{
    return std::any_of(m_pairs.begin(), m_pairs.end(), [](const PicturePair &pair) {
        return pair.isJoined()
            && (pair.distance > kFar || (pair.distance > kDistant && pair.matches.size() < kPoor));
    });
}

PicturePairs::Places PicturePairs::loose(const Places &failed) const
{
    const std::vector<int> parts = this->parts();
    std::vector<QSet<int>> neighbours(at(m_cameras.count()));
    for (const PicturePair &pair : m_pairs) {
        const int a = m_cameras.owner(pair.first);
        const int b = m_cameras.owner(pair.second);
        if (!pair.isJoined() || pair.isInner || a == b)
            continue;
        neighbours[at(a)].insert(b);
        neighbours[at(b)].insert(a);
    }
    Places loose;
    for (const int place : failed) {
        const PicturePair &pair = (*this)[place];
        const auto hangs = [&](int owner) { return neighbours[at(owner)].size() < 2; };
        const int a = m_cameras.owner(pair.first);
        const int b = m_cameras.owner(pair.second);
        if (parts[at(pair.first)] != parts[at(pair.second)]
            || (!pair.isInner && !neighbours[at(a)].contains(b) && (hangs(a) || hangs(b))))
            loose.push_back(place);
    }
    return loose;
}

std::vector<int> PicturePairs::parts() const
{
    return partsJoinedBy([](const PicturePair &) { return true; });
}

template <class Condition>
std::vector<int> PicturePairs::partsJoinedBy(const Condition &condition) const
{
    DisjointSets sets(m_cameras.count());
    for (int i = 0; i < m_cameras.count(); ++i)
        sets.join(i, m_cameras.owner(i));
    for (const PicturePair &pair : m_pairs) {
        if (pair.isJoined() && condition(pair))
            sets.join(pair.first, pair.second);
    }
    std::vector<int> parts;
    parts.reserve(at(m_cameras.count()));
    for (int i = 0; i < m_cameras.count(); ++i)
        parts.push_back(sets.smallest(i));
    return parts;
}

std::vector<double> PicturePairs::residuals(const PicturePair &pair) const
{
    return distances(pair, m_cameras.rotation(pair.first), m_cameras.rotation(pair.second));
}

/// Of each match of \a pair the working pixels by which its rays miss each other where its cameras
/// look to \a one and \a other.
std::vector<double> PicturePairs::distances(
    const PicturePair &pair, const Rotation &one, const Rotation &other) const
{
    const Lens &first = m_cameras.lens(pair.first);
    const Lens &second = m_cameras.lens(pair.second);
    const double pixels = first.focal / m_cameras.scale(pair.first);
    std::vector<double> result;
    result.reserve(pair.matches.size());
    for (const Match &match : pair.matches)
        result.push_back(
            pixels * (one * first.ray(match.inFirst) - other * second.ray(match.inSecond)).norm());
    return result;
}

void PicturePairs::dropOutliers()
{
    std::vector<double> all;
    for (const PicturePair &pair : m_pairs) {
        const std::vector<double> some = residuals(pair);
        all.insert(all.end(), some.begin(), some.end());
    }
    const double limit = std::max(kOutlier, kOutlierTimes * geometry::upperMedian(std::move(all)));
    for (PicturePair &pair : m_pairs) {
        const std::vector<double> distances = residuals(pair);
        std::vector<Match> kept;
        for (std::size_t i = 0; i < distances.size(); ++i) {
            // A match whose place is unsure may be off by more.
            if (distances[i] * pair.matches[i].weight <= limit)
                kept.push_back(pair.matches[i]);
        }
        if (kept.size() < 6 || 4 * kept.size() < pair.matches.size())
            kept.clear();
        pair.matches = std::move(kept);
    }
}

void PicturePairs::dropWrong()
{
    const std::vector<double> middles = middleResiduals();
    std::vector<double> joined;
    for (int i = 0; i < count(); ++i) {
        if ((*this)[i].isJoined())
            joined.push_back(middles[at(i)]);
    }
    const double middle = geometry::upperMedian(std::move(joined));
    dropBeyond(std::clamp(kWrongTimes * middle, kWrong, kHopeless), middles);
}

bool PicturePairs::dropHopeless()
{
    return dropBeyond(kHopeless, middleResiduals());
}

bool PicturePairs::dropBeyond(double limit, const std::vector<double> &middles)
{
    bool isDropped = false;
    for (int i = 0; i < count(); ++i) {
        if (middles[at(i)] > limit) {
            (*this)[i].matches.clear();
            isDropped = true;
        }
    }
    return isDropped;
}

/// Of each pair; 0 where nothing was found.
std::vector<double> PicturePairs::middleResiduals() const
{
    std::vector<double> middles;
    middles.reserve(m_pairs.size());
    for (const PicturePair &pair : m_pairs)
        middles.push_back(geometry::upperMedian(residuals(pair)));
    return middles;
}

} // namespace align
