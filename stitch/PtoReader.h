// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PtoProject.h"

#include <array>
#include <optional>

/// How a picture's pixels became what they are.
struct PictureLight {
    /// As PictureFacts::exposureValue.
    double exposureValue = 0;
    /// Vignetting: a point at r times half the diagonal is 1 + b r^2 + c r^4 + d r^6 as bright as
    /// the centre.
    std::array<double, 3> vignetting{0, 0, 0};
    /// The camera's response, as the tools' Ra to Re.
    std::array<double, 5> response{0, 0, 0, 0, 0};
};

/// A project as a file tells of it.
struct ReadProject {
    PtoProject project;
    /// One a picture.
    QVector<PictureLight> light;
};

/// Reads the project \a text, whose pictures are named from \a folder: one that projectText()
/// wrote, or that Hugin or its tools have gone on with. Pictures that share a stack, or their
/// place, are one location. Control points are left out. Nothing, and a sentence in \a problem,
/// when \a text is no project or holds what a PtoProject cannot.
std::optional<ReadProject> readProject(
    const QByteArray &text, const QString &folder, QString *problem);
