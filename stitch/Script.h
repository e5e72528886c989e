// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "stitch/Frame.h"
#include "stitch/PtoReader.h"

#include <QByteArray>

/// One light a picture of \a project, with its exposure value and nothing else.
QVector<PictureLight> plainLight(const PtoProject &project);

/// What nona remaps one picture by: the canvas of \a frame, with the crop as its region, and the
/// picture. \a outputExposure is the exposure value that it is brought to; \a radiance asks for
/// linear light instead.
QByteArray remapScript(const Frame &frame, const PtoProject::Picture &picture,
    const PictureLight &light, double outputExposure, bool radiance);

/// The same for several pictures at once.
QByteArray remapScript(const Frame &frame, const QVector<PtoProject::Picture> &pictures,
    const QVector<PictureLight> &light, double outputExposure, bool radiance);

/// What vig_optimize finds vignetting (pictures of one lens share it) and, unless \a
/// vignettingOnly, exposure values by, that of picture \a fixed staying.
QByteArray photometricScript(
    const PtoProject &project, const QVector<PictureLight> &light, bool vignettingOnly, int fixed);
