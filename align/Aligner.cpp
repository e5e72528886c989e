// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Aligner.h"

#include "align/PairVisit.h"
#include "align/ShiftSearch.h"
#include "geometry/Angle.h"

#include <opencv2/core/utility.hpp>

#include <QCryptographicHash>
#include <QDataStream>
#include <QDateTime>
#include <QFileInfo>
#include <QSet>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <queue>

namespace align {

namespace {

constexpr double kDegree = geometry::kPi / 180;
/// Corners that both pictures of a pair must have where they overlap for something to be expected.
constexpr int kTextured = 20;
/// Part of the picture.
constexpr double kOverlap = 0.06;
/// Matches of a pair that are kept.
constexpr std::size_t kKept = 60;
/// Part of half the shorter side that a wrong focal length or a distortion may bend a pair's turn
/// by.
constexpr double kBend = 0.03;
/// Working pixels by which tracking finds a corner off its place.
constexpr double kReach = 60;
/// Part of the corners tracked that must agree on one turn.
constexpr double kPart = 0.3;
/// Part of the corners looked for that must be found where much that is alike may be nearer.
constexpr double kSurePart = 0.4;
/// Radians that a feature may be off its place.
constexpr double kWideGate = 20 * kDegree;
/// Working pixels beyond which a match is wrong, and how many times the middle distance.
constexpr double kOutlier = 1;
constexpr double kOutlierTimes = 4;
/// Working pixels from where it was expected beyond which a pair found is tracked again from where
/// it was found, and beyond which that is worth a round of its own.
constexpr double kDistant = 10;
constexpr double kFar = 40;
/// Working pixels beyond which all of a pair is wrong, and how many times the middle distance.
constexpr double kWrong = 3;
constexpr double kWrongTimes = 6;
/// To be raised when matches are found in another way: what is kept of earlier runs is then not
/// used.
constexpr int kMethods = 2;
/// How often failed pairs are tried again.
constexpr int kRounds = 2;
/// Degrees from the head's word beyond which a picture is doubtful.
constexpr double kStumble = 3;

std::size_t at(int i)
{
    return static_cast<std::size_t>(i);
}

double middleOf(std::vector<double> values)
{
    if (values.empty())
        return 0;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace

Aligner::Aligner(const ProjectRecord &record, const PictureTable &pictures, PtoProject project,
    const AlignOptions &options, const Progress &progress)
    : m_record(record)
    , m_table(pictures)
    , m_options(options)
    , m_progress(progress)
    , m_project(std::move(project))
    , m_cache(options.cacheFolder, options.fresh)
    , m_isGrid(record.yaws.isEmpty())
    , m_isGuided(record.guidedOptimization || record.yaws.isEmpty())
{
    m_clock.start();
    takeLenses();
}

void Aligner::takeLenses()
{
    QHash<PictureOptics, int> places;
    for (int i = 0; i < m_project.pictures.size(); ++i) {
        const PtoProject::Picture &picture = m_project.pictures.at(i);
        auto place = places.constFind(picture.lens);
        if (place == places.constEnd()) {
            place = places.insert(picture.lens, static_cast<int>(m_nominal.size()));
            m_nominal.push_back(Lens::of(picture.lens));
            m_scales.push_back(workingScale(picture.lens.size));
        }
        m_lensOf.push_back(*place);
        m_recorded.push_back(rotationOf(picture.place));
        m_owner.push_back(picture.positionOwner >= 0 ? picture.positionOwner : i);
        while (static_cast<int>(m_starts.size()) <= picture.location)
            m_starts.push_back(i);
    }
    while (static_cast<int>(m_starts.size()) <= m_record.groups.size())
        m_starts.push_back(static_cast<int>(m_project.pictures.size()));
    m_lenses = m_nominal;
    m_rotations = m_recorded;
}

int Aligner::referenceOf(int location) const
{
    return m_starts[at(location)]
        + referencePicture(m_record, m_record.groups.at(location), m_table);
}

void Aligner::choosePairs()
{
    std::vector<Outlook> outlooks;
    std::vector<int> locations;
    for (int location = 0; location < m_record.groups.size(); ++location) {
        if (m_record.groups.at(location).isEmpty()) {
            outlooks.push_back({Rotation::Identity(), m_project.pictures.first().lens});
            continue;
        }
        const int reference = referenceOf(location);
        outlooks.push_back({m_recorded[at(reference)], m_project.pictures.at(reference).lens});
    }
    const auto addPair = [this](int first, int second, bool isInner) {
        PicturePair pair;
        pair.first = first;
        pair.second = second;
        pair.isInner = isInner;
        m_pairs.push_back(pair);
    };
    for (const auto &[a, b] : locationPairs(m_record, outlooks)) {
        const int sizes[2] = {static_cast<int>(m_record.groups.at(a).size()),
            static_cast<int>(m_record.groups.at(b).size())};
        if (std::min(sizes[0], sizes[1]) == 0)
            continue;
        if (m_record.levelLinking == 0) {
            addPair(referenceOf(a), referenceOf(b), false);
            continue;
        }
        for (int level = 0; level < std::min(sizes[0], sizes[1]); ++level)
            addPair(m_starts[at(a)] + level, m_starts[at(b)] + level, false);
    }
    for (int location = 0; location < m_record.groups.size() && m_record.stackLinking != 0;
         ++location) {
        for (int i = 0; i < m_record.groups.at(location).size(); ++i) {
            const int reference = referenceOf(location);
            const int picture = m_starts[at(location)] + i;
            if (picture != reference)
                addPair(std::min(picture, reference), std::max(picture, reference), true);
        }
    }
}

bool Aligner::run()
{
    // One picture at a time is followed; the threads of the library would only wait for each other.
    cv::setNumThreads(1);
    if (m_record.autoDetection) {
        choosePairs();
        if (!matchAll())
            return false;
    }
    settle();
    if (!m_options.keep)
        m_cache.remove();
    return true;
}

bool Aligner::matchAll()
{
    Places all(m_pairs.size());
    std::iota(all.begin(), all.end(), 0);
    if (!trackPairs(all, QStringLiteral("matching")))
        return false;

    // Where most fail, the others may have been found by chance. Of a grid, whose overlap is but
    // stated, less will do.
    Places again = failedPairs();
    const Places textured = texturedPairs();
    const bool isLost = (m_isGrid ? 8 : 2) * again.size() > textured.size();
    if (isLost)
        again = textured;
    // What the first places do not help to join, either, is searched.
    const int searchRound = isLost ? 0 : 1;
    for (int round = 0; round < kRounds; ++round) {
        const Places sought = round != searchRound ? Places() : isLost ? again : loosePairs(again);
        if (!sought.empty() && !searchPairs(sought))
            return false;
        if (again.empty() && !hasPoorPairs())
            break;
        if (m_isGrid && round == 0)
            restepGrid();
        if (!solve(false))
            return false;
        dropWrongPairs();
        const Places distant = distantPairs();
        Places next = failedPairs();
        next.insert(next.end(), distant.begin(), distant.end());
        next.insert(next.end(), sought.begin(), sought.end());
        std::sort(next.begin(), next.end());
        next.erase(std::unique(next.begin(), next.end()), next.end());
        if (!trackPairs(next, QStringLiteral("matching again")))
            return false;
        again = failedPairs();
    }
    return solve(true);
}

Agreement Aligner::agreementOf(const PicturePair &pair, const std::vector<Match> &matches,
    double tolerancePixels, double gate, double part) const
{
    const Lens &first = m_lenses[at(m_lensOf[at(pair.first)])];
    const Lens &second = m_lenses[at(m_lensOf[at(pair.second)])];
    std::vector<MatchedRays> rays;
    rays.reserve(matches.size());
    for (const Match &match : matches)
        rays.push_back({first.ray(match.inFirst), second.ray(match.inSecond)});
    const Rotation expected
        = m_rotations[at(pair.first)].transpose() * m_rotations[at(pair.second)];
    return agreedTurn(rays, expected, {tolerancePixels / first.focal, gate, part},
        static_cast<std::uint32_t>(pair.first * 7919 + pair.second));
}

QByteArray Aligner::keyOf(const PicturePair &pair, const char *method) const
{
    if (m_options.cacheFolder.isEmpty())
        return {};
    QByteArray text;
    QDataStream stream(&text, QIODevice::WriteOnly);
    stream << kMethods << QByteArray(method) << m_isGrid;
    for (const int picture : {pair.first, pair.second}) {
        const PtoProject::Picture &entry = m_project.pictures.at(picture);
        const QFileInfo file(entry.path);
        const Lens &lens = m_lenses[at(m_lensOf[at(picture)])];
        stream << file.fileName() << file.size() << file.lastModified().toMSecsSinceEpoch()
               << entry.lens.size << lens.focal << lens.distortion << lens.fisheye;
    }
    const Rotation turn = m_rotations[at(pair.first)].transpose() * m_rotations[at(pair.second)];
    for (const double value : turn.reshaped())
        stream << value;
    return QCryptographicHash::hash(text, QCryptographicHash::Md5);
}

Aligner::Places Aligner::uncached(const Places &pairs, const char *method)
{
    if (m_options.cacheFolder.isEmpty())
        return pairs;
    Places rest;
    for (const int place : pairs) {
        PicturePair &pair = m_pairs[at(place)];
        const QByteArray value = m_cache.value(keyOf(pair, method));
        if (value.isEmpty()) {
            rest.push_back(place);
            continue;
        }
        QDataStream stream(value);
        quint32 count = 0;
        stream >> pair.corners >> pair.distance;
        for (double &element : pair.turn.reshaped())
            stream >> element;
        stream >> count;
        pair.matches.clear();
        for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
            Match match;
            stream >> match.inFirst.x >> match.inFirst.y >> match.inSecond.x >> match.inSecond.y
                >> match.weight;
            pair.matches.push_back(match);
        }
    }
    return rest;
}

void Aligner::keep(const PicturePair &pair, const QByteArray &key)
{
    QByteArray value;
    QDataStream stream(&value, QIODevice::WriteOnly);
    stream << pair.corners << pair.distance;
    for (const double element : pair.turn.reshaped())
        stream << element;
    stream << static_cast<quint32>(pair.matches.size());
    for (const Match &match : pair.matches)
        stream << match.inFirst.x << match.inFirst.y << match.inSecond.x << match.inSecond.y
               << match.weight;
    m_cache.insert(key, value);
}

bool Aligner::trackPairs(const Places &wanted, const QString &step)
{
    const Places places = uncached(wanted, "track");
    std::vector<QPair<int, int>> pairs;
    for (const int place : places)
        pairs.emplace_back(m_pairs[at(place)].first, m_pairs[at(place)].second);
    const auto read = [this](int picture) {
        WorkingPicture result = this->read(picture);
        if (!result.isNull())
            findCorners(&result);
        return result;
    };
    const auto lensOf = [this](int picture) { return m_lenses[at(m_lensOf[at(picture)])]; };
    int done = 0;
    const auto visit = [&](int place, const WorkingPicture &first, const WorkingPicture &second) {
        PicturePair &pair = m_pairs[at(places[at(place)])];
        const QByteArray key = keyOf(pair, "track");
        if (!first.isNull() && !second.isNull()) {
            const Lens lens = lensOf(pair.first);
            const View one{&first, lens, m_rotations[at(pair.first)]};
            View other{&second, lensOf(pair.second), m_rotations[at(pair.second)]};
            const auto agreed = [&](const std::vector<Match> &matches, double reach) {
                return agreementOf(
                    pair, matches, kBend * lens.unit, 2 * reach * first.scale / lens.focal, kPart);
            };
            Tracked tracked = track(one, other);
            Agreement agreement = agreed(tracked.matches, kReach);
            pair.corners = tracked.corners;
            if (!agreement) {
                if (const auto found = searchShift(one, other)) {
                    other.rotation = *found;
                    tracked = track(one, other);
                    agreement = agreed(tracked.matches,
                        kReach + kShiftReach * std::max(first.grey.cols, first.grey.rows));
                    if (double(agreement.agreeing.size()) < kSurePart * tracked.sought)
                        agreement = {};
                }
            }
            if (agreement) {
                pair.turn = agreement.turn;
                pair.distance = agreement.distance * lens.focal / first.scale;
                pair.matches.clear();
                for (const int i : agreement.agreeing) {
                    if (pair.matches.size() < kKept)
                        pair.matches.push_back(tracked.matches[at(i)]);
                }
            }
        }
        keep(pair, key);
        return tell(step, ++done, static_cast<int>(places.size()));
    };
    const bool isDone = visitPairs<WorkingPicture>(pairs, read, visit);
    endStep(step);
    return isDone;
}

bool Aligner::searchPairs(const Places &wanted)
{
    const QString step = QStringLiteral("searching");
    const Places places = uncached(wanted, "search");
    std::vector<QPair<int, int>> pairs;
    for (const int place : places)
        pairs.emplace_back(m_pairs[at(place)].first, m_pairs[at(place)].second);
    const auto lensOf = [this](int picture) { return m_lenses[at(m_lensOf[at(picture)])]; };
    const auto readFeatures
        = [&](int picture) { return findFeatures(read(picture), lensOf(picture)); };
    int done = 0;
    const auto visit = [&](int place, const Features &first, const Features &second) {
        PicturePair &pair = m_pairs[at(places[at(place)])];
        const QByteArray key = keyOf(pair, "search");
        const Lens lens = lensOf(pair.first);
        // Of a grid only the order is sure.
        const double gate
            = m_isGrid ? std::max(kWideGate, 0.8 * lens.unit / lens.focal) : kWideGate;
        const std::vector<Match> matches
            = matchFeatures({&first, lens, m_rotations[at(pair.first)]},
                {&second, lensOf(pair.second), m_rotations[at(pair.second)]}, gate);
        const Agreement agreement
            = agreementOf(pair, matches, kBend * lens.unit, gate, m_isGrid ? 0.3 : 0.25);
        pair.matches.clear();
        if (agreement) {
            pair.turn = agreement.turn;
            pair.distance = 2 * kFar;
            for (const int i : agreement.agreeing)
                pair.matches.push_back(matches[at(i)]);
        }
        keep(pair, key);
        return tell(step, ++done, static_cast<int>(places.size()));
    };
    const bool isDone = visitPairs<Features>(pairs, readFeatures, visit);
    endStep(step);
    return isDone;
}

Aligner::Places Aligner::failedPairs() const
{
    Places failed;
    for (std::size_t i = 0; i < m_pairs.size(); ++i) {
        if (!m_pairs[i].isJoined() && m_pairs[i].corners >= kTextured)
            failed.push_back(static_cast<int>(i));
    }
    return failed;
}

Aligner::Places Aligner::texturedPairs() const
{
    Places textured;
    for (std::size_t i = 0; i < m_pairs.size(); ++i) {
        if (m_pairs[i].isJoined() || m_pairs[i].corners >= kTextured)
            textured.push_back(static_cast<int>(i));
    }
    return textured;
}

/// Pairs that were found so far from where they were expected that more will be found there.
Aligner::Places Aligner::distantPairs() const
{
    Places distant;
    for (std::size_t i = 0; i < m_pairs.size(); ++i) {
        if (m_pairs[i].isJoined() && m_pairs[i].distance > kDistant)
            distant.push_back(static_cast<int>(i));
    }
    return distant;
}

/// Whether there are pairs that want tracking again.
bool Aligner::hasPoorPairs() const
{
    return std::any_of(m_pairs.begin(), m_pairs.end(), [](const PicturePair &pair) {
        return pair.isJoined()
            && (pair.distance > kFar
                || (pair.distance > kDistant && pair.matches.size() < kKept / 4));
    });
}

/// Forgets the matches of pairs that agreed on a turn that nothing else bears out.
void Aligner::dropWrongPairs()
{
    std::vector<double> middles;
    for (const PicturePair &pair : m_pairs)
        middles.push_back(middleOf(residualsOf(pair)));
    std::vector<double> joined;
    for (std::size_t i = 0; i < m_pairs.size(); ++i) {
        if (m_pairs[i].isJoined())
            joined.push_back(middles[i]);
    }
    const double limit = std::max(kWrong, kWrongTimes * middleOf(std::move(joined)));
    for (std::size_t i = 0; i < m_pairs.size(); ++i) {
        if (middles[i] > limit)
            m_pairs[i].matches.clear();
    }
}

/// Of each place (by its owner) the smallest owner that it hangs together with.
std::vector<int> Aligner::partsOf() const
{
    std::vector<int> parent(m_owner);
    const auto root = [&parent](int i) {
        while (parent[at(i)] != i)
            i = parent[at(i)] = parent[at(parent[at(i)])];
        return i;
    };
    for (const PicturePair &pair : m_pairs) {
        if (!pair.isJoined())
            continue;
        const int a = root(pair.first);
        const int b = root(pair.second);
        parent[at(std::max(a, b))] = std::min(a, b);
    }
    std::vector<int> parts;
    for (std::size_t i = 0; i < parent.size(); ++i)
        parts.push_back(root(static_cast<int>(i)));
    return parts;
}

/// Those of \a failed that would join parts, or hold a place that hangs on one other.
Aligner::Places Aligner::loosePairs(const Places &failed) const
{
    const std::vector<int> parts = partsOf();
    std::vector<QSet<int>> neighbours(m_owner.size());
    for (const PicturePair &pair : m_pairs) {
        const int a = m_owner[at(pair.first)];
        const int b = m_owner[at(pair.second)];
        if (!pair.isJoined() || pair.isInner || a == b)
            continue;
        neighbours[at(a)].insert(b);
        neighbours[at(b)].insert(a);
    }
    Places loose;
    for (const int place : failed) {
        const PicturePair &pair = m_pairs[at(place)];
        const auto hangs
            = [&](int picture) { return neighbours[at(m_owner[at(picture)])].size() < 2; };
        if (parts[at(pair.first)] != parts[at(pair.second)]
            || (!pair.isInner && (hangs(pair.first) || hangs(pair.second))))
            loose.push_back(place);
    }
    return loose;
}

/// Sets the rows and columns of a grid apart as the pairs found say: the stated overlap is but a
/// guess.
void Aligner::restepGrid()
{
    std::vector<double> steps[2];
    for (const ProjectLink &link : m_record.links) {
        if ((link.kind != 1 && link.kind != 2) || link.indices.size() != 2)
            continue;
        for (const PicturePair &pair : m_pairs) {
            const int a = m_project.pictures.at(pair.first).location;
            const int b = m_project.pictures.at(pair.second).location;
            if (pair.isJoined()
                && std::minmax(a, b) == std::minmax(link.indices[0], link.indices[1]))
                steps[link.kind - 1].push_back(angleOf(pair.turn) / kDegree);
        }
    }
    const PtoProject::Picture &first = m_project.pictures.first();
    const bool isTurned = m_table.value(first.path).uprightTurn() % 180 != 0;
    const auto placesFor = [&](const std::vector<double> &found, bool isColumn) {
        ProjectRecord record = m_record;
        const bool isWidth = isColumn != isTurned;
        const QSize &size = first.lens.size;
        const double angle
            = first.lens.angleAcross(isWidth ? size.width() : size.height()) / kDegree;
        if (found.size() >= 3)
            record.overlap = 100 * (1 - middleOf(found) / angle);
        QString problem;
        return placementsOf(record, first.lens, isTurned, &problem);
    };
    const auto rows = placesFor(steps[0], false);
    const auto columns = placesFor(steps[1], true);
    if (!rows || !columns)
        return;
    for (std::size_t i = 0; i < m_recorded.size(); ++i) {
        const PtoProject::Picture &picture = m_project.pictures.at(static_cast<int>(i));
        const int location = picture.location;
        // The roll is the stored picture's.
        m_recorded[i]
            = rotationOf({columns->at(location).yaw, rows->at(location).pitch, picture.place.roll});
    }
    m_rotations = m_recorded;
}

/// Lets the pictures that matches join look where those say, the first of each part being where it
/// was, and each part as a whole as near to the recorded positions as can be.
void Aligner::chain()
{
    const std::size_t count = m_recorded.size();
    std::vector<std::vector<int>> pairsOf(count);
    for (std::size_t i = 0; i < m_pairs.size(); ++i) {
        if (!m_pairs[i].isJoined()
            || m_owner[at(m_pairs[i].first)] == m_owner[at(m_pairs[i].second)])
            continue;
        pairsOf[at(m_owner[at(m_pairs[i].first)])].push_back(static_cast<int>(i));
        pairsOf[at(m_owner[at(m_pairs[i].second)])].push_back(static_cast<int>(i));
    }
    // By owner: the turn of the world from the recorded place.
    std::vector<Rotation> turns(count, Rotation::Identity());
    std::vector<bool> isDone(count, false);
    using Step = std::pair<std::size_t, int>;
    for (std::size_t start = 0; start < count; ++start) {
        if (m_owner[start] != static_cast<int>(start) || isDone[start] || pairsOf[start].empty())
            continue;
        std::vector<std::size_t> part{start};
        isDone[start] = true;
        std::priority_queue<Step> steps;
        const auto reach = [&](std::size_t owner) {
            for (const int pair : pairsOf[owner])
                steps.emplace(m_pairs[at(pair)].matches.size(), pair);
        };
        reach(start);
        while (!steps.empty()) {
            const PicturePair &pair = m_pairs[at(steps.top().second)];
            steps.pop();
            const std::size_t a = at(m_owner[at(pair.first)]);
            const std::size_t b = at(m_owner[at(pair.second)]);
            if (isDone[a] == isDone[b])
                continue;
            const std::size_t from = isDone[a] ? a : b;
            const std::size_t to = isDone[a] ? b : a;
            const int known = isDone[a] ? pair.first : pair.second;
            const int other = isDone[a] ? pair.second : pair.first;
            const Rotation turn = isDone[a] ? pair.turn : Rotation(pair.turn.transpose());
            turns[to]
                = turns[from] * m_recorded[at(known)] * turn * m_recorded[at(other)].transpose();
            isDone[to] = true;
            part.push_back(to);
            reach(to);
        }
        TurnFit fit;
        for (const std::size_t owner : part)
            fit.add(turns[owner] * m_recorded[owner], m_recorded[owner]);
        const Rotation back = fit.turn();
        for (const std::size_t owner : part)
            turns[owner] = back * turns[owner];
    }
    for (std::size_t i = 0; i < count; ++i)
        m_rotations[i] = turns[at(m_owner[i])] * m_recorded[i];
}

AdjustmentTask Aligner::task() const
{
    AdjustmentTask task;
    std::vector<int> placeOf(m_recorded.size(), -1);
    for (std::size_t i = 0; i < m_recorded.size(); ++i) {
        if (m_owner[i] == static_cast<int>(i))
            placeOf[i] = task.places++;
    }
    std::vector<bool> isJoined(at(task.places), false);
    for (std::size_t i = 0; i < m_recorded.size(); ++i)
        task.pictures.push_back(
            {placeOf[at(m_owner[i])], m_lensOf[i], m_isGuided ? m_recorded[i] : m_rotations[i]});
    for (std::size_t i = 0; i < m_nominal.size(); ++i)
        task.lenses.push_back({m_nominal[i], m_scales[i]});
    for (const PicturePair &pair : m_pairs) {
        const int a = task.pictures[at(pair.first)].place;
        const int b = task.pictures[at(pair.second)].place;
        if (a == b)
            continue;
        if (pair.isJoined()) {
            task.pairs.push_back({pair.first, pair.second, pair.matches});
            isJoined[at(a)] = isJoined[at(b)] = true;
        }
        task.neighbours.push_back({std::min(a, b), std::max(a, b), pair.isInner});
    }
    // Levels of one stack and another may be many pairs of the same places.
    auto &neighbours = task.neighbours;
    const auto key = [](const AdjustmentTask::Neighbours &each) {
        return std::make_pair(each.first, each.second);
    };
    std::sort(neighbours.begin(), neighbours.end(),
        [&](const auto &a, const auto &b) { return key(a) < key(b); });
    neighbours.erase(std::unique(neighbours.begin(), neighbours.end(),
                         [&](const auto &a, const auto &b) { return key(a) == key(b); }),
        neighbours.end());
    if (!m_isGuided) {
        // Only pictures without matches are held by the head.
        neighbours.erase(std::remove_if(neighbours.begin(), neighbours.end(),
                             [&](const auto &pair) {
                                 return isJoined[at(pair.first)] && isJoined[at(pair.second)];
                             }),
            neighbours.end());
    }
    for (const bool joined : isJoined)
        task.trusted.push_back(m_isGuided || !joined);
    return task;
}

/// Adjusts all places to the matches; the last time after wrong matches are dropped.
bool Aligner::solve(bool isLast)
{
    const QString step = QStringLiteral("adjusting");
    const auto goOn = [&] { return tell(step, 0, 0); };
    for (int round = 0; round < (isLast && m_record.cleanLinks ? 2 : 1); ++round) {
        if (!m_isGuided)
            chain();
        const AdjustmentTask task = this->task();
        const AdjustmentResult result = adjust(task, goOn);
        if (result.isCancelled)
            return false;
        for (std::size_t i = 0; i < m_rotations.size(); ++i)
            m_rotations[i] = result.turns[at(task.pictures[i].place)] * task.pictures[i].base;
        m_lenses = result.lenses;
        if (round == 0 && isLast && m_record.cleanLinks)
            dropOutliers();
    }
    endStep(step);
    return true;
}

/// The distances of the rays of \a pair's matches, in working pixels.
std::vector<double> Aligner::residualsOf(const PicturePair &pair) const
{
    const Lens &first = m_lenses[at(m_lensOf[at(pair.first)])];
    const Lens &second = m_lenses[at(m_lensOf[at(pair.second)])];
    const double pixels = first.focal / m_scales[at(m_lensOf[at(pair.first)])];
    std::vector<double> result;
    result.reserve(pair.matches.size());
    for (const Match &match : pair.matches)
        result.push_back(pixels
            * (m_rotations[at(pair.first)] * first.ray(match.inFirst)
                - m_rotations[at(pair.second)] * second.ray(match.inSecond))
                  .norm());
    return result;
}

void Aligner::dropOutliers()
{
    std::vector<double> all;
    for (const PicturePair &pair : m_pairs) {
        const std::vector<double> some = residualsOf(pair);
        all.insert(all.end(), some.begin(), some.end());
    }
    const double limit = std::max(kOutlier, kOutlierTimes * middleOf(std::move(all)));
    for (PicturePair &pair : m_pairs) {
        const std::vector<double> distances = residualsOf(pair);
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

/// Where nothing but the matches held the pictures, turns each part as a whole to where the head
/// said it was.
void Aligner::settle()
{
    if (m_isGuided)
        return;
    const std::vector<int> parts = partsOf();
    std::vector<int> sizes(parts.size(), 0);
    std::vector<TurnFit> fits(parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i) {
        fits[at(parts[i])].add(m_rotations[i], m_recorded[i]);
        ++sizes[at(parts[i])];
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (sizes[at(parts[i])] > 1)
            m_rotations[i] = fits[at(parts[i])].turn() * m_rotations[i];
    }
}

WorkingPicture Aligner::read(int picture) const
{
    const PtoProject::Picture &entry = m_project.pictures.at(picture);
    return readWorkingPicture(entry.path, entry.lens.size);
}

bool Aligner::tell(const QString &step, int done, int total) const
{
    return !m_progress || m_progress(step, done, total);
}

void Aligner::endStep(const QString &step)
{
    const double time = static_cast<double>(m_clock.nsecsElapsed()) / 1e9;
    m_clock.restart();
    for (auto &[name, seconds] : m_seconds) {
        if (name == step) {
            seconds += time;
            return;
        }
    }
    m_seconds.append({step, time});
}

PtoProject Aligner::project() const
{
    PtoProject project = m_project;
    for (const PicturePair &pair : m_pairs) {
        for (const Match &match : pair.matches)
            project.points.append(
                {pair.first, pair.second, QPointF(match.inFirst.x, match.inFirst.y),
                    QPointF(match.inSecond.x, match.inSecond.y)});
    }
    if (m_record.skipOptimization || !m_record.autoDetection)
        return project;
    for (int i = 0; i < project.pictures.size(); ++i) {
        PtoProject::Picture &picture = project.pictures[i];
        picture.place = placementOf(m_rotations[at(i)]);
        const Lens &lens = m_lenses[at(m_lensOf[at(i)])];
        picture.lens.focal *= lens.focal / m_nominal[at(m_lensOf[at(i)])].focal;
        picture.distortion.b = lens.distortion;
    }
    project.canvas = canvasOf(project.pictures);
    return project;
}

AlignReport Aligner::report() const
{
    AlignReport report;
    report.pictures = static_cast<int>(m_project.pictures.size());
    report.seconds = m_seconds;
    const PtoProject::Picture &first = m_project.pictures.first();
    report.recordedFocal = first.lens.focal;
    report.focal = first.lens.focal * m_lenses.front().focal / m_nominal.front().focal;
    report.distortion = m_lenses.front().distortion;

    std::vector<bool> isJoined(m_recorded.size(), false);
    double squares = 0;
    int points = 0;
    for (const PicturePair &pair : m_pairs) {
        if (pair.isJoined()) {
            isJoined[at(m_owner[at(pair.first)])] = true;
            isJoined[at(m_owner[at(pair.second)])] = true;
        }
        for (const double working : residualsOf(pair)) {
            const double distance = working * m_scales[at(m_lensOf[at(pair.first)])];
            squares += distance * distance;
            ++points;
            if (distance > report.residualWorst) {
                report.residualWorst = distance;
                report.worstPair = {m_project.pictures.at(pair.first).path,
                    m_project.pictures.at(pair.second).path};
            }
        }
    }
    report.residualRms = points > 0 ? std::sqrt(squares / points) : 0;

    TurnFit fit;
    for (std::size_t i = 0; i < m_recorded.size(); ++i) {
        if (isJoined[at(m_owner[i])])
            fit.add(m_rotations[i], m_recorded[i]);
    }
    const Rotation whole = fit.turn();
    squares = 0;
    for (std::size_t i = 0; i < m_recorded.size(); ++i) {
        const QString &path = m_project.pictures.at(static_cast<int>(i)).path;
        if (!isJoined[at(m_owner[i])]) {
            report.held.append(path);
            continue;
        }
        ++report.joined;
        const double off = angleOf(whole * m_rotations[i] * m_recorded[i].transpose()) / kDegree;
        squares += off * off;
        report.headErrorWorst = std::max(report.headErrorWorst, off);
        if (off > kStumble)
            report.suspects.append(AlignReport::Suspect{{path}, off});
    }
    report.headErrorRms = report.joined > 0 ? std::sqrt(squares / report.joined) : 0;

    for (const PicturePair &pair : m_pairs) {
        if (pair.isJoined() || pair.corners < kTextured || pair.isInner)
            continue;
        const PtoProject::Picture &one = m_project.pictures.at(pair.first);
        const PtoProject::Picture &other = m_project.pictures.at(pair.second);
        const double overlap = overlapOf(m_lenses[at(m_lensOf[at(pair.first)])], one.lens.size,
            m_rotations[at(pair.first)], m_lenses[at(m_lensOf[at(pair.second)])], other.lens.size,
            m_rotations[at(pair.second)]);
        if (overlap >= kOverlap)
            report.suspects.append(AlignReport::Suspect{QStringList{one.path, other.path}, 0});
    }
    return report;
}

} // namespace align
