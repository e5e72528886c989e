// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/makeshooting/Camera.h"
#include "apps/makeshooting/Rotation.h"
#include "apps/makeshooting/Scene.h"

#include <QImage>
#include <functional>

namespace makeshooting {

/// How light becomes pixels.
struct Exposure {
    /// Stops from the base exposure; light beyond the brightest value clips.
    double ev = 0;
    /// Standard deviation of the noise added to each pixel, in steps of 8 bits.
    double noise = 0;
    /// Makes one picture's noise differ from another's.
    quint32 noiseSeed = 0;
};

/// What \a camera, turned by \a rotation, sees of \a scene, as stored (not turned upright).
QImage takePicture(
    const Scene &scene, const Camera &camera, const Rotation &rotation, const Exposure &exposure);

/// The whole scene as an equirectangular picture of \a width x width / 2 pixels, yaw 0 in the
/// middle.
QImage wholeScene(const Scene &scene, int width, int threads);

/// Runs \a work for 0 to \a count - 1 on \a threads threads (0: as many as there are cores).
void forEachInParallel(int count, int threads, const std::function<void(int)> &work);

} // namespace makeshooting
