// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/align/TestPicture.h"

#include "tests/support/Files.h"

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <exiv2/exiv2.hpp>

void writeJpeg(
    const QString &path, const QImage &image, const Tags &tags, const QByteArray &thumbnail)
{
    writeFile(path, jpegBytes(image));
    if (tags.empty() && thumbnail.isEmpty())
        return;
    try {
        const auto file = Exiv2::ImageFactory::open(QFile::encodeName(path).toStdString());
        Exiv2::ExifData exif;
        for (const auto &[key, value] : tags)
            exif[key] = value;
        if (!thumbnail.isEmpty())
            Exiv2::ExifThumb(exif).setJpegThumbnail(
                reinterpret_cast<const Exiv2::byte *>(thumbnail.constData()), thumbnail.size());
        file->setExifData(exif);
        file->writeMetadata();
    } catch (const std::exception &error) {
        qFatal("%s: %s", qUtf8Printable(path), error.what());
    }
}

void writeJpeg(const QString &path, const QSize &size, const Tags &tags)
{
    writeJpeg(path, plainImage(size), tags);
}

QByteArray jpegBytes(const QImage &image)
{
    QBuffer buffer;
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "JPEG", 90))
        qFatal("no JPEG could be made");
    return buffer.data();
}

QByteArray rawFile(const QByteArray &preview, const QSize &size, int orientation)
{
    constexpr quint16 kShort = 3;
    constexpr quint16 kLong = 4;
    constexpr quint16 kEntries = 6;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    const auto entry = [&stream](quint16 tag, quint16 type, int value) {
        stream << tag << type << quint32(1) << quint32(value);
    };
    stream.writeRawData("II*\0", 4);
    stream << quint32(8) << kEntries;
    entry(0x0100, kLong, size.width());
    entry(0x0101, kLong, size.height());
    entry(0x0103, kShort, 6);
    entry(0x0112, kShort, orientation);
    entry(0x0201, kLong, 8 + 2 + 12 * kEntries + 4);
    entry(0x0202, kLong, preview.size());
    stream << quint32(0);
    stream.writeRawData(preview.constData(), preview.size());
    return bytes;
}

QImage plainImage(const QSize &size, Qt::GlobalColor colour)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}
