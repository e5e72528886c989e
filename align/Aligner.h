// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Adjustment.h"
#include "align/Alignment.h"
#include "align/Features.h"
#include "align/LocationPairs.h"
#include "align/MatchCache.h"
#include "align/Tracking.h"

#include <QElapsedTimer>
#include <vector>

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
    struct PicturePair {
        int first = 0;
        int second = 0;
        /// Within a stack.
        bool isInner = false;
        /// As Tracked::corners.
        int corners = 0;
        std::vector<Match> matches;
        /// Of the second camera's axes into the first's.
        Rotation turn = Rotation::Identity();
        /// Working pixels from where it was expected to where it was found.
        double distance = 0;

        bool isJoined() const { return !matches.empty(); }
    };
    using Places = std::vector<int>;

    void takeLenses();
    void choosePairs();
    int referenceOf(int location) const;

    bool matchAll();
    /// What makes the match of \a pair by \a method what it is.
    QByteArray keyOf(const PicturePair &pair, const char *method) const;
    /// Takes what earlier runs found; the others are left.
    Places uncached(const Places &pairs, const char *method);
    void keep(const PicturePair &pair, const QByteArray &key);
    bool trackPairs(const Places &wanted, const QString &step);
    bool searchPairs(const Places &wanted);
    bool solve(bool isLast);
    void restepGrid();
    void chain();
    void settle();
    void dropOutliers();
    void dropWrongPairs();

    AdjustmentTask task() const;
    Agreement agreementOf(const PicturePair &pair, const std::vector<Match> &matches,
        double tolerancePixels, double gate, double part) const;
    Places failedPairs() const;
    Places texturedPairs() const;
    Places distantPairs() const;
    bool hasPoorPairs() const;
    std::vector<double> residualsOf(const PicturePair &pair) const;
    Places loosePairs(const Places &failed) const;
    std::vector<int> partsOf() const;
    WorkingPicture read(int picture) const;
    bool tell(const QString &step, int done, int total) const;
    void endStep(const QString &step);

    const ProjectRecord &m_record;
    const PictureTable &m_table;
    const AlignOptions &m_options;
    const Progress &m_progress;
    PtoProject m_project;

    /// Of each picture: where the head (or the grid) says it looks, and where it does.
    std::vector<Rotation> m_recorded;
    std::vector<Rotation> m_rotations;
    /// Of each picture the place in m_lenses and in m_nominal.
    std::vector<int> m_lensOf;
    std::vector<Lens> m_nominal;
    std::vector<Lens> m_lenses;
    /// Stored pixels a working pixel.
    std::vector<double> m_scales;
    /// Of each picture the picture whose position is its own, too.
    std::vector<int> m_owner;
    /// Of each location the first picture; one more at the end.
    std::vector<int> m_starts;
    std::vector<PicturePair> m_pairs;

    MatchCache m_cache;
    bool m_isGrid = false;
    bool m_isGuided = true;
    QVector<QPair<QString, double>> m_seconds;
    QElapsedTimer m_clock;
};

} // namespace align
