// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Canvas.h"
#include "align/PictureFacts.h"
#include "align/Placement.h"
#include "host/ProjectRecord.h"

#include <QByteArray>
#include <QPointF>
#include <QVector>
#include <optional>

/// What a lens does to the ideal picture: a point at radius r from the centre is seen at
/// a r^4 + b r^3 + c r^2 + (1 - a - b - c) r, both in units of half the picture's shorter side.
struct RadialDistortion {
    double a = 0;
    double b = 0;
    double c = 0;
};

/// One thing that two pictures show.
struct ControlPoint {
    /// Places in PtoProject::pictures.
    int first = 0;
    int second = 0;
    /// Pixels of the stored picture, to the right and down; 0 is the middle of the first pixel.
    QPointF inFirst;
    QPointF inSecond;
};

/// A panorama for the Hugin tools.
struct PtoProject {
    struct Picture {
        /// Full path.
        QString path;
        /// Pictures of equal optics share one lens, and the distortion of the first of them.
        PictureOptics lens;
        RadialDistortion distortion;
        /// With the roll that the stored picture needs.
        Placement place;
        /// As PictureFacts::exposureValue, but never unknown where another picture's is known.
        double exposureValue = 0;
        /// Its place in the record's groups. The pictures of a location follow one another.
        int location = 0;
        /// The earlier picture whose position is this one's, too; -1 when it has its own.
        int positionOwner = -1;
        /// Stays where it is while others are optimised.
        bool anchored = false;
    };

    QVector<Picture> pictures;
    QVector<ControlPoint> points;
    Canvas canvas;
    /// Exposure value of the output.
    double outputExposure = 0;
    /// As ProjectRecord::outputType.
    int outputType = ProjectRecord::HostsChoice;
};

/// The place in a stack of the picture that stands for it between stacks: the first where the
/// record wants one output per stack (its import has put the reference there), else the one of
/// middle exposure.
int referencePicture(
    const ProjectRecord &record, const QStringList &stack, const PictureTable &pictures);

/// \a record as a project: its pictures in their order, each with its lens and place, stacks linked
/// as the record says, and a canvas that shows all.
///
/// \a pictures must hold every picture of the record. Nothing, and a sentence in \a problem, when
/// one is missing, cannot be named in a project, has no focal length, or the record does not hold
/// together.
std::optional<PtoProject> projectOf(
    const ProjectRecord &record, const PictureTable &pictures, QString *problem);

/// The canvas that shows all of \a pictures.
Canvas canvasOf(const QVector<PtoProject::Picture> &pictures);

/// The first lines of a script for the remapper, whose projection has the number \a projection:
/// what is made of the pictures at \a exposure, in values of light where \a radiance is set.
QByteArray canvasLines(
    const Canvas &canvas, int projection, double exposure, bool radiance = false);

/// The text of \a project's file. Pictures below \a folder, the file's, are named from there,
/// others by their full path.
QByteArray projectText(const PtoProject &project, const QString &folder);
