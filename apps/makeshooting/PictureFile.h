// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/makeshooting/Shooting.h"

#include <QByteArray>
#include <QImage>

namespace makeshooting {

/// To be called once, before encodePicture() is called from threads.
void prepareEncoding();

/// The JPEG file of \a picture as a camera would write it: \a image with the shooting's EXIF data
/// (the focal length as stated, the exposure as it was) and an embedded thumbnail within 160 x 120
/// pixels. Empty, and \a error says why, when it cannot be made.
QByteArray encodePicture(
    const Shooting &shooting, const Picture &picture, const QImage &image, QString *error);

} // namespace makeshooting
