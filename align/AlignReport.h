// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QPair>
#include <QStringList>
#include <QVector>

/// What an alignment found, for people and for programs.
struct AlignReport {
    /// Something that does not fit the head's word: a stumble of the head, or a wrong file.
    struct Suspect {
        /// Full path of one picture, or of the two of a pair that overlaps and does not match.
        QStringList pictures;
        /// Of one picture: how far it is from where the head said.
        double degrees = 0;
    };

    int pictures = 0;
    /// Whether points were looked for, and whether positions and lens follow them; else these are
    /// the recorded ones.
    bool isMatched = true;
    bool isOptimised = true;
    /// Pictures with points.
    int joined = 0;
    /// Sets of pictures that points join; no point leads from one to another.
    int parts = 0;
    /// False when pictures and record can hardly belong together: points miss each other by too
    /// much, the focal length is far from the one recorded, or most of what should match does not.
    bool fits = true;
    /// Whether positions are those of a grid, which nobody recorded.
    bool isGrid = false;
    /// Percent that neighbours of a grid share, in a row and in a column, as recorded and as found;
    /// 0 when there is no grid or too little was found.
    double recordedOverlap = 0;
    double overlapAcross = 0;
    double overlapDown = 0;
    /// Full paths of the others: they stay where the head put them and turn with their neighbours.
    QStringList held;
    /// Distances of points, which count as much as their places are sure, in pixels of the pictures
    /// as stored; 0 when there are none.
    double residualRms = 0;
    double residualWorst = 0;
    QPair<QString, QString> worstPair;
    /// Millimetres as on 36 x 24 mm film, of the first picture's lens, as recorded and as found.
    double recordedFocal = 0;
    double focal = 0;
    /// Third-power radial distortion found, as RadialDistortion::b.
    double distortion = 0;
    /// How far the joined pictures are from where the head said, the panorama turned as a whole to
    /// fit best. Degrees.
    double headErrorRms = 0;
    double headErrorWorst = 0;
    QVector<Suspect> suspects;
    /// Steps in their order and how many seconds each took.
    QVector<QPair<QString, double>> seconds;

    /// A few lines for people, in the user's language.
    QString toText() const;
    /// {"pictures": n, "joined": n, "parts": n, "held": ["name"], "residual_px": {"rms": x,
    /// "worst": x, "pair": ["a", "b"]}, "focal": mm, "distortion": b, "head_error_deg": {"rms": x,
    /// "worst": x}, "suspect": [{"pictures": ["name"], "degrees": x}, {"pictures": ["a", "b"]}],
    /// "seconds":
    /// {"step": x}}
    QByteArray toJson() const;

private:
    void appendSuspects(QStringList *lines) const;
};
