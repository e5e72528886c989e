// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Aligner.h"

#include "align/Adjustment.h"
#include "align/Chain.h"
#include "align/HeldPlaces.h"
#include "align/Tracking.h"
#include "geometry/Median.h"

#include <opencv2/core/utility.hpp>

#include <QHash>
#include <QSet>
#include <QtMath>
#include <algorithm>
#include <cmath>
#include <iterator>

namespace align {

namespace {

/// Part of the picture.
constexpr double kOverlap = 0.06;
/// How often failed pairs are tried again.
constexpr int kRounds = 2;
/// Steps of a grid that tell its overlap.
constexpr std::size_t kFewestSteps = 3;
/// Degrees from the head's word beyond which a picture is doubtful.
constexpr double kStumble = 3;
/// Working pixels by which points miss each other, and part of the focal length that it is off,
/// when pictures and record do not belong together.
constexpr double kMisfit = 3;
constexpr double kMisfitFocal = 0.1;

std::size_t at(int i)
{
    return static_cast<std::size_t>(i);
}

/// What \a pairs tell about the places of \a cameras; where the head is no guide, it holds only
/// what nothing was found in.
AdjustmentTask taskOf(const PicturePairs &pairs, const Cameras &cameras, bool isGuided)
{
    AdjustmentTask task;
    std::vector<int> placeOf(at(cameras.count()), -1);
    for (int i = 0; i < cameras.count(); ++i) {
        int &place = placeOf[at(cameras.owner(i))];
        if (place < 0)
            place = task.places++;
        placeOf[at(i)] = place;
        task.pictures.push_back(
            {place, cameras.lensPlace(i), isGuided ? cameras.recorded(i) : cameras.rotation(i)});
    }
    for (std::size_t i = 0; i < cameras.scales().size(); ++i)
        task.lenses.push_back({cameras.nominalLenses()[i], cameras.scales()[i]});
    std::vector<bool> isJoined(at(task.places), false);
    std::vector<AdjustmentTask::Neighbours> &neighbours = task.neighbours;
    for (const PicturePair &pair : pairs) {
        const int a = placeOf[at(pair.first)];
        const int b = placeOf[at(pair.second)];
        if (a == b)
            continue;
        if (pair.isJoined()) {
            task.pairs.push_back({pair.first, pair.second, pair.matches});
            isJoined[at(a)] = isJoined[at(b)] = true;
        }
        neighbours.push_back({std::min(a, b), std::max(a, b), pair.isInner});
    }
    // Levels of one stack and another may be many pairs of the same places.
    const auto key = [](const AdjustmentTask::Neighbours &each) {
        return std::make_pair(each.first, each.second);
    };
    std::sort(neighbours.begin(), neighbours.end(),
        [&](const auto &a, const auto &b) { return key(a) < key(b); });
    neighbours.erase(std::unique(neighbours.begin(), neighbours.end(),
                         [&](const auto &a, const auto &b) { return key(a) == key(b); }),
        neighbours.end());
    if (!isGuided) {
        neighbours.erase(std::remove_if(neighbours.begin(), neighbours.end(),
                             [&](const auto &pair) {
                                 return isJoined[at(pair.first)] && isJoined[at(pair.second)];
                             }),
            neighbours.end());
    }
    for (const bool joined : isJoined)
        task.trusted.push_back(isGuided || !joined);
    return task;
}

} // namespace

Aligner::Aligner(const ProjectRecord &record, const PictureTable &pictures, PtoProject project,
    const AlignOptions &options, const Progress &progress)
    : m_record(record)
    , m_table(pictures)
    , m_progress(progress)
    , m_project(std::move(project))
    , m_isGrid(record.yaws.isEmpty())
    , m_isGuided(record.guidedOptimization || m_isGrid)
    , m_cameras(m_project)
    , m_pairs(m_cameras)
    , m_cache(options.cacheFolder, options.fresh)
    , m_matcher(m_project, m_cameras, m_isGrid, &m_pairs, &m_cache)
{
    m_clock.start();
}

bool Aligner::run()
{
    // One picture at a time is followed; the threads of the library would only wait for each other.
    cv::setNumThreads(1);
    if (m_record.autoDetection) {
        m_pairs.choose(m_record, m_table, m_project);
        if (!matchAll())
            return false;
        // Nothing but the matches held the pictures.
        if (!m_isGuided)
            settle(m_pairs, &m_cameras);
        placeHeld(m_pairs, &m_cameras);
        if (m_record.skipOptimization)
            m_cameras = Cameras(m_project);
    }
    return true;
}

bool Aligner::matchAll()
{
    if (!track(m_pairs.all(), QStringLiteral(QT_TRANSLATE_NOOP("Progress", "matching"))))
        return false;

    // Where most fail, the others may have been found by chance. Of a grid, whose overlap is but
    // stated, less will do.
    PicturePairs::Places again = m_pairs.failed();
    const bool isLost = (m_isGrid ? 8 : 2) * again.size() > m_pairs.textured().size();
    const bool isDoubtful = isLost || m_pairs.head() == PicturePairs::Head::Far;
    if (isDoubtful) {
        m_pairs.doubt();
        again = m_pairs.failed();
    }
    // What the first places do not help to join, either, is searched.
    const int searchRound = isLost ? 0 : 1;
    const QString step = QStringLiteral(QT_TRANSLATE_NOOP("Progress", "matching again"));
    for (int round = 0; round < kRounds; ++round) {
        if (round == searchRound) {
            const PicturePairs::Places sought = isLost ? again : m_pairs.loose(again);
            if (!search(sought) || !track(sought, step))
                return false;
        }
        if (again.empty() && !m_pairs.hasPoor())
            break;
        if (m_isGrid && round == 0)
            restepGrid();
        if (!solve(false))
            return false;
        m_pairs.dropWrong();
        if (isDoubtful)
            m_pairs.doubt();
        PicturePairs::Places next = m_pairs.failed();
        const PicturePairs::Places distant = m_pairs.distant();
        next.insert(next.end(), distant.begin(), distant.end());
        if (!track(next, step))
            return false;
        again = m_pairs.failed();
    }
    if (!matchClouds(step))
        return false;
    do {
        if (!solve(true))
            return false;
    } while (m_record.cleanLinks && m_pairs.dropHopeless());
    return true;
}

/// Joins what is left by clouds; from where they have put them, pictures that show more are tracked
/// exactly.
bool Aligner::matchClouds(const QString &step)
{
    const PicturePairs::Places clouds = m_pairs.clouds();
    if (clouds.empty())
        return true;
    const auto progress = [&](int done, int total) { return tell(step, done, total); };
    if (!solve(false) || !m_matcher.trackClouds(clouds, progress))
        return false;
    endStep(step);
    PicturePairs::Places exact;
    std::copy_if(clouds.begin(), clouds.end(), std::back_inserter(exact),
        [this](int place) { return m_pairs[place].isJoined() && m_pairs[place].isTextured(); });
    return exact.empty() || (solve(false) && track(exact, step));
}

bool Aligner::track(const PicturePairs::Places &wanted, const QString &step)
{
    const bool isDone
        = m_matcher.track(wanted, [&](int done, int total) { return tell(step, done, total); });
    endStep(step);
    return isDone;
}

bool Aligner::search(const PicturePairs::Places &wanted)
{
    if (wanted.empty())
        return true;
    const QString step = QStringLiteral(QT_TRANSLATE_NOOP("Progress", "searching"));
    const bool isDone
        = m_matcher.search(wanted, [&](int done, int total) { return tell(step, done, total); });
    endStep(step);
    return isDone;
}

/// What neighbours of a grid share, as the pairs found say.
Aligner::GridOverlap Aligner::overlapFound() const
{
    const auto ordered = [](int a, int b) { return qMakePair(std::min(a, b), std::max(a, b)); };
    QHash<QPair<int, int>, int> kinds;
    for (const ProjectLink &link : m_record.links) {
        if (link.indices.size() == 2)
            kinds.insert(ordered(link.indices[0], link.indices[1]), link.kind);
    }
    std::vector<double> down;
    std::vector<double> across;
    for (const PicturePair &pair : m_pairs) {
        if (!pair.isJoined())
            continue;
        const int a = m_project.pictures.at(pair.first).location;
        const int b = m_project.pictures.at(pair.second).location;
        const int kind = kinds.value(ordered(a, b), ProjectLink::Near);
        if (kind == ProjectLink::Vertical)
            down.push_back(angleOf(pair.turn));
        else if (kind == ProjectLink::Horizontal)
            across.push_back(angleOf(pair.turn));
    }
    const PictureOptics &lens = m_project.pictures.first().lens;
    const QSize size = isTurned() ? lens.size.transposed() : lens.size;
    const auto overlap = [&lens](std::vector<double> steps, int side) -> std::optional<double> {
        if (steps.size() < kFewestSteps)
            return std::nullopt;
        return 100 * (1 - geometry::upperMedian(std::move(steps)) / lens.angleAcross(side));
    };
    return {overlap(std::move(across), size.width()), overlap(std::move(down), size.height())};
}

/// Sets the rows and columns of a grid apart as the pairs found say: the stated overlap is but a
/// guess.
void Aligner::restepGrid()
{
    const GridOverlap found = overlapFound();
    const auto placesFor = [&](const std::optional<double> &overlap) {
        ProjectRecord record = m_record;
        record.overlap = overlap.value_or(m_record.overlap);
        QString problem;
        return placementsOf(record, m_project.pictures.first().lens, isTurned(), &problem);
    };
    const auto rows = placesFor(found.down);
    const auto columns = placesFor(found.across);
    if (!rows || !columns)
        return;
    for (int i = 0; i < m_cameras.count(); ++i) {
        const PtoProject::Picture &picture = m_project.pictures.at(i);
        const int location = picture.location;
        // The roll is the stored picture's.
        m_cameras.setRecorded(i,
            rotationOf({columns->at(location).yaw, rows->at(location).pitch, picture.place.roll}));
    }
}

bool Aligner::isTurned() const
{
    return m_table.value(m_project.pictures.first().path).uprightTurn() % 180 != 0;
}

/// Adjusts all places to the matches; the last time after wrong matches are dropped.
bool Aligner::solve(bool isLast)
{
    const QString step = QStringLiteral(QT_TRANSLATE_NOOP("Progress", "adjusting"));
    const bool isCleaned = isLast && m_record.cleanLinks;
    for (int round = 0; round < (isCleaned ? 2 : 1); ++round) {
        if (round == 1)
            m_pairs.dropOutliers();
        if (!m_isGuided)
            chain(m_pairs, &m_cameras);
        const AdjustmentTask task = taskOf(m_pairs, m_cameras, m_isGuided);
        AdjustmentResult result = adjust(task, [&] { return tell(step, 0, 0); });
        if (result.isCancelled)
            return false;
        for (int i = 0; i < m_cameras.count(); ++i) {
            const AdjustmentTask::Picture &picture = task.pictures[at(i)];
            m_cameras.setRotation(i, result.turns[at(picture.place)] * picture.base);
        }
        m_cameras.setLenses(std::move(result.lenses));
    }
    endStep(step);
    return true;
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
    if (!isOptimised())
        return project;
    for (int i = 0; i < project.pictures.size(); ++i) {
        PtoProject::Picture &picture = project.pictures[i];
        picture.place = placementOf(m_cameras.rotation(i));
        picture.lens.focal *= m_cameras.lens(i).focal / m_cameras.nominalLens(i).focal;
        picture.distortion.b = m_cameras.lens(i).distortion;
    }
    project.canvas = canvasOf(project.pictures);
    return project;
}

AlignReport Aligner::report() const
{
    AlignReport report;
    report.pictures = m_cameras.count();
    report.isMatched = m_record.autoDetection;
    report.isOptimised = isOptimised();
    report.isGrid = m_isGrid;
    report.seconds = m_seconds;
    report.recordedFocal = m_project.pictures.first().lens.focal;
    report.focal = report.recordedFocal * m_cameras.lens(0).focal / m_cameras.nominalLens(0).focal;
    report.distortion = m_cameras.lens(0).distortion;
    reportResiduals(&report);
    reportPlaces(&report);
    reportOverlaps(&report);
    if (m_isGrid) {
        const GridOverlap found = overlapFound();
        report.recordedOverlap = m_record.overlap;
        report.overlapAcross = found.across.value_or(0);
        report.overlapDown = found.down.value_or(0);
    }
    return report;
}

void Aligner::reportResiduals(AlignReport *report) const
{
    double squares = 0;
    double workingSquares = 0;
    double weights = 0;
    for (const PicturePair &pair : m_pairs) {
        const std::vector<double> residuals = m_pairs.residuals(pair);
        for (std::size_t i = 0; i < residuals.size(); ++i) {
            // What is not sure of its place, as clouds, counts as little as in the adjustment.
            const double weight = pair.matches[i].weight;
            const double working = residuals[i] * weight;
            const double distance = working * m_cameras.scale(pair.first);
            squares += distance * distance;
            workingSquares += working * working;
            weights += weight * weight;
            if (distance > report->residualWorst) {
                report->residualWorst = distance;
                report->worstPair = {pathOf(pair.first), pathOf(pair.second)};
            }
        }
    }
    report->residualRms = weights > 0 ? std::sqrt(squares / weights) : 0;
    // Sky is not expected to match.
    int joined = 0;
    int failed = 0;
    for (const PicturePair &pair : m_pairs) {
        joined += !pair.isInner && pair.isJoined();
        failed += !pair.isInner && !pair.isJoined() && pair.isTextured();
    }
    report->fits = !report->isOptimised
        || (failed <= joined && workingSquares <= weights * kMisfit * kMisfit
            && std::abs(report->focal / report->recordedFocal - 1) <= kMisfitFocal);
}

/// Which pictures are joined, and how far they are from the head's word.
void Aligner::reportPlaces(AlignReport *report) const
{
    std::vector<bool> isJoined(at(m_cameras.count()), false);
    for (const PicturePair &pair : m_pairs) {
        if (pair.isJoined()) {
            isJoined[at(m_cameras.owner(pair.first))] = true;
            isJoined[at(m_cameras.owner(pair.second))] = true;
        }
    }
    TurnFit fit;
    for (int i = 0; i < m_cameras.count(); ++i) {
        if (isJoined[at(m_cameras.owner(i))])
            fit.add(m_cameras.rotation(i), m_cameras.recorded(i));
    }
    const Rotation whole = fit.turn();
    const std::vector<int> parts = m_pairs.parts();
    QSet<int> joinedParts;
    double squares = 0;
    for (int i = 0; i < m_cameras.count(); ++i) {
        if (!isJoined[at(m_cameras.owner(i))]) {
            report->held.append(pathOf(i));
            continue;
        }
        ++report->joined;
        joinedParts.insert(parts[at(i)]);
        const double off = qRadiansToDegrees(
            angleOf(whole * m_cameras.rotation(i) * m_cameras.recorded(i).transpose()));
        squares += off * off;
        report->headErrorWorst = std::max(report->headErrorWorst, off);
        if (off > kStumble)
            report->suspects.append(AlignReport::Suspect{{pathOf(i)}, off});
    }
    report->parts = joinedParts.size();
    report->headErrorRms = report->joined > 0 ? std::sqrt(squares / report->joined) : 0;
}

/// Which pictures overlap and do not match.
void Aligner::reportOverlaps(AlignReport *report) const
{
    for (const PicturePair &pair : m_pairs) {
        if (pair.isJoined() || !pair.isTextured() || pair.isInner)
            continue;
        const double overlap
            = overlapOf(m_cameras.lens(pair.first), m_project.pictures.at(pair.first).lens.size,
                m_cameras.rotation(pair.first), m_cameras.lens(pair.second),
                m_project.pictures.at(pair.second).lens.size, m_cameras.rotation(pair.second));
        if (overlap >= kOverlap)
            report->suspects.append(
                AlignReport::Suspect{{pathOf(pair.first), pathOf(pair.second)}, 0});
    }
}

bool Aligner::isOptimised() const
{
    return m_record.autoDetection && !m_record.skipOptimization;
}

const QString &Aligner::pathOf(int picture) const
{
    return m_project.pictures.at(picture).path;
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

} // namespace align
