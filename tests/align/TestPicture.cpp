// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/align/TestPicture.h"

#include <QBuffer>
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

QImage plainImage(const QSize &size, Qt::GlobalColor colour)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

QByteArray fileContent(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s cannot be read", qUtf8Printable(path));
    return file.readAll();
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s cannot be written", qUtf8Printable(path));
}
