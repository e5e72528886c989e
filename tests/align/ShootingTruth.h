// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PtoProject.h"
#include "align/Rotation.h"

#include <QHash>
#include <QString>
#include <QStringList>

/// Where the pictures of a made-up shooting really look.
struct ShootingTruth {
    /// By file name.
    QHash<QString, align::Rotation> rotations;
    /// Millimetres as on 36 x 24 mm film.
    double focal = 0;
    double distortion = 0;

    /// Of the truth.json in \a folder; empty when it cannot be read.
    static ShootingTruth of(const QString &folder);
};

/// How far pictures are from the truth in degrees, one turn of the whole being free.
struct AlignError {
    /// That turn, in degrees about the axes to the right, up and forward.
    align::Vector whole = align::Vector::Zero();
    double rms = 0;
    double worst = 0;
    QString worstName;
    /// By file name.
    QHash<QString, double> all;
};

/// Of the pictures of \a project, by their file names, but those that are \a leftOut.
AlignError alignError(
    const PtoProject &project, const ShootingTruth &truth, const QStringList &leftOut = {});
