// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QHash>
#include <QImage>
#include <QSize>
#include <QString>

/// What a picture's file tells without decoding the picture.
struct PictureFacts {
    bool readable = false;
    /// When not readable: why, in words that follow the file's name and a colon.
    QString reason;
    /// Pixels as stored, before the orientation is applied.
    QSize size;
    /// Millimetres as on 36 x 24 mm film; 0 when unknown.
    float focal = 0;
    /// 0: standard (rectilinear), 1: fisheye.
    int lensType = 0;
    /// log2(N^2 / t x 100 / ISO), so larger is darker: f/8, 1/100 s, ISO 100 gives 12.64. 0 when
    /// the exposure time is unknown; an unknown aperture (a lens without contacts) counts as f/1.
    double exposureValue = 0;
    /// EXIF's orientation, 1 to 8.
    int orientation = 1;
    /// A small JPEG as stored, at most 192 pixels a side; empty when there is none or none was
    /// asked for.
    QByteArray thumbnail;

    /// Grows from dark to bright and is equal for equal settings.
    float brightness() const { return static_cast<float>(-exposureValue); }
    /// Clockwise turn in degrees that makes the stored picture upright: 0, 90, 180 or -90.
    int uprightTurn() const;
};

/// Facts by the picture's full path.
using PictureTable = QHash<QString, PictureFacts>;

enum class Thumbnail {
    Skip,
    /// The embedded one, else a scaled decode.
    Make,
};

/// Reads the picture at \a path, a RAW by its tags and embedded previews. Any thread, several at a
/// time.
PictureFacts readPictureFacts(const QString &path, Thumbnail thumbnail);

/// The largest JPEG that the file at \a path, a RAW, carries; empty when there is none. Any thread.
QByteArray embeddedPreview(const QString &path);

/// The thumbnail of \a facts, upright and without the black bars that cameras put round pictures of
/// another shape; null when there is none.
QImage uprightThumbnail(const PictureFacts &facts);

/// Whether a file of this name is taken for a picture when its folder is given.
bool isPictureName(const QString &fileName);
