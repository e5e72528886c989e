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
    /// Pictures with points.
    int joined = 0;
    /// Full paths of the others: they stay where the head put them and turn with their neighbours.
    QStringList held;
    /// Distances of points in pixels of the pictures as stored; 0 when there are none.
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

    /// A few lines for people.
    QString toText() const;
    /// {"pictures": n, "joined": n, "held": ["name"], "residual_px": {"rms": x, "worst": x,
    /// "pair": ["a", "b"]}, "focal": mm, "distortion": b, "head_error_deg": {"rms": x, "worst": x},
    /// "suspect": [{"pictures": ["name"], "degrees": x}, {"pictures": ["a", "b"]}], "seconds":
    /// {"step": x}}
    QByteArray toJson() const;
};
