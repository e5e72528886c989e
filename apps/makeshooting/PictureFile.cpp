// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/makeshooting/PictureFile.h"

#include <QBuffer>
#include <QtMath>
#include <exiv2/exiv2.hpp>

namespace makeshooting {

namespace {

QByteArray jpegOf(const QImage &image, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "JPEG", quality) ? bytes
                                                                                     : QByteArray();
}

QImage thumbnailOf(const QImage &image)
{
    // Smooth scaling costs by the source's size; a rough step first is not seen in the result.
    const QSize rough(640, 480);
    const QImage smaller = image.width() > 4 * rough.width()
        ? image.scaled(rough, Qt::KeepAspectRatio, Qt::FastTransformation)
        : image;
    return smaller.scaled({160, 120}, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

Exiv2::URational rational(double value, uint32_t denominator)
{
    return {static_cast<uint32_t>(qRound(value * denominator)), denominator};
}

/// 1/n seconds where that is exact, as cameras write it.
Exiv2::URational exposureTime(double seconds)
{
    const double inverse = 1.0 / seconds;
    if (inverse >= 1 && std::abs(inverse - std::round(inverse)) < 1e-9)
        return {1, static_cast<uint32_t>(qRound(inverse))};
    return rational(seconds, 1000000);
}

Exiv2::ExifData exifOf(const Shooting &shooting, const Picture &picture)
{
    const ShootingOptions &options = shooting.options;
    const std::string time
        = picture.time.toString(QStringLiteral("yyyy:MM:dd hh:mm:ss")).toStdString();
    Exiv2::ExifData exif;
    exif["Exif.Image.Make"] = "ZPanoHead";
    exif["Exif.Image.Model"] = "ZPanoHead makeshooting";
    exif["Exif.Image.Orientation"]
        = static_cast<uint16_t>(options.mounting == Mounting::PortraitByTag ? 6 : 1);
    exif["Exif.Image.DateTime"] = time;
    exif["Exif.Photo.DateTimeOriginal"] = time;
    exif["Exif.Photo.FocalLength"] = rational(options.focal / options.crop, 1000);
    exif["Exif.Photo.FocalLengthIn35mmFilm"] = static_cast<uint16_t>(qRound(options.focal));
    exif["Exif.Photo.LensModel"]
        = options.lens == Lens::Fisheye ? "Made fisheye" : "Made rectilinear";
    exif["Exif.Photo.FNumber"] = rational(kFNumber, 10);
    exif["Exif.Photo.ExposureTime"] = exposureTime(kBaseTime * std::exp2(picture.ev));
    exif["Exif.Photo.ISOSpeedRatings"] = static_cast<uint16_t>(kIso);
    exif["Exif.Photo.PixelXDimension"] = static_cast<uint32_t>(shooting.camera.size.width());
    exif["Exif.Photo.PixelYDimension"] = static_cast<uint32_t>(shooting.camera.size.height());
    return exif;
}

} // namespace

void prepareEncoding()
{
    Exiv2::XmpParser::initialize();
}

QByteArray encodePicture(
    const Shooting &shooting, const Picture &picture, const QImage &image, QString *error)
{
    const QByteArray plain = jpegOf(image, 92);
    const QByteArray thumbnail = jpegOf(thumbnailOf(image), 85);
    if (plain.isEmpty() || thumbnail.isEmpty()) {
        *error = QStringLiteral("cannot encode JPEG");
        return {};
    }
    try {
        Exiv2::ExifData exif = exifOf(shooting, picture);
        Exiv2::ExifThumb(exif).setJpegThumbnail(
            reinterpret_cast<const Exiv2::byte *>(thumbnail.constData()), thumbnail.size());
        const auto file = Exiv2::ImageFactory::open(
            reinterpret_cast<const Exiv2::byte *>(plain.constData()), plain.size());
        file->setExifData(exif);
        file->writeMetadata();
        Exiv2::BasicIo &io = file->io();
        QByteArray bytes(static_cast<int>(io.size()), Qt::Uninitialized);
        io.open();
        io.read(reinterpret_cast<Exiv2::byte *>(bytes.data()), bytes.size());
        io.close();
        return bytes;
    } catch (const std::exception &exception) {
        *error = QString::fromLocal8Bit(exception.what());
        return {};
    }
}

} // namespace makeshooting
