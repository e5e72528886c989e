// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>
#include <string>
#include <utility>
#include <vector>

/// EXIF tags by exiv2's names, values as exiv2 writes them: {"Exif.Photo.FNumber", "8/1"}.
using Tags = std::vector<std::pair<std::string, std::string>>;

/// A JPEG of \a image with \a tags, and \a thumbnail embedded where it is not empty. Ends the test
/// program when it cannot be written.
void writeJpeg(const QString &path, const QImage &image, const Tags &tags = {},
    const QByteArray &thumbnail = {});
/// The same with a plain picture of \a size.
void writeJpeg(const QString &path, const QSize &size, const Tags &tags = {});

QByteArray jpegBytes(const QImage &image);
/// A TIFF as RAW files are built: tags that claim a picture of \a size with EXIF's \a orientation,
/// and the JPEG \a preview instead of pixels that Qt could read.
QByteArray rawFile(const QByteArray &preview, const QSize &size, int orientation = 1);
QImage plainImage(const QSize &size, Qt::GlobalColor colour = Qt::gray);
