// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Alignment.h"
#include "align/Cameras.h"
#include "align/MatchCache.h"
#include "align/PairMatcher.h"
#include "align/PicturePairs.h"

#include <QElapsedTimer>

namespace align {

/// One alignment, from the head's word to the pictures' own.
class Aligner {
public:
    /// \a project is what projectOf() makes of \a record and \a pictures.
    Aligner(const ProjectRecord &record, const PictureTable &pictures, PtoProject project,
        const AlignOptions &options, const Progress &progress);

    /// False when it was cancelled.
    bool run();

    /// Once run() is done.
    PtoProject project() const;
    AlignReport report() const;

private:
    bool matchAll();
    bool track(const PicturePairs::Places &wanted, const QString &step);
    bool matchClouds(const QString &step);
    bool search(const PicturePairs::Places &wanted);
    bool solve(bool isLast);
    /// Percent that neighbours share in a row and in a column; nothing where too little was found.
    struct GridOverlap {
        std::optional<double> across;
        std::optional<double> down;
    };
    GridOverlap overlapFound() const;
    void restepGrid();
    /// Whether the pictures stand upright by a quarter turn.
    bool isTurned() const;
    bool isOptimised() const;
    void reportResiduals(AlignReport *report) const;
    void reportPlaces(AlignReport *report) const;
    void reportOverlaps(AlignReport *report) const;
    const QString &pathOf(int picture) const;
    bool tell(const QString &step, int done, int total) const;
    void endStep(const QString &step);

    const ProjectRecord &m_record;
    const PictureTable &m_table;
    const Progress &m_progress;
    PtoProject m_project;
    bool m_isGrid;
    bool m_isGuided;

    Cameras m_cameras;
    PicturePairs m_pairs;
    MatchCache m_cache;
    PairMatcher m_matcher;

    QVector<QPair<QString, double>> m_seconds;
    QElapsedTimer m_clock;
};

} // namespace align
