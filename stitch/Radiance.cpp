// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Radiance.h"

#include "align/OutputFile.h"
#include "stitch/Tags.h"

#include <OpenEXR/ImfRgbaFile.h>
#include <OpenEXR/ImfStandardAttributes.h>

#include <QFile>
#include <cmath>
#include <vector>

namespace {

/// Tags of a picture that an OpenEXR header has a place for.
class SourceTags {
public:
    explicit SourceTags(const QString &path)
        : m_tags(tagsOf(path).exif)
    {
    }

    void addTo(Imf::Header &header) const
    {
        if (const auto *owner = find("Exif.Image.Copyright"))
            Imf::addOwner(header, owner->toString());
        if (const auto *time = find("Exif.Photo.DateTimeOriginal"))
            Imf::addCapDate(header, time->toString());
        if (const auto *time = find("Exif.Photo.ExposureTime"))
            Imf::addExpTime(header, time->toFloat());
        if (const auto *aperture = find("Exif.Photo.FNumber"))
            Imf::addAperture(header, aperture->toFloat());
        if (const auto *speed = find("Exif.Photo.ISOSpeedRatings"))
            Imf::addIsoSpeed(header, speed->toFloat());
        const auto latitude = degrees("Exif.GPSInfo.GPSLatitude", 'S');
        const auto longitude = degrees("Exif.GPSInfo.GPSLongitude", 'W');
        if (latitude && longitude) {
            Imf::addLatitude(header, *latitude);
            Imf::addLongitude(header, *longitude);
        }
    }

private:
    const Exiv2::Exifdatum *find(const std::string &key) const
    {
        const auto tag = m_tags.findKey(Exiv2::ExifKey(key));
        return tag != m_tags.end() && tag->count() > 0 ? &*tag : nullptr;
    }

    /// Degrees, minutes and seconds in one, below 0 on the side of \a negative.
    std::optional<float> degrees(const std::string &key, char negative) const
    {
        const auto *tag = find(key);
        const auto *side = find(key + "Ref");
        if (!tag || !side || tag->count() != 3)
            return std::nullopt;
        const float value = tag->toFloat(0) + tag->toFloat(1) / 60 + tag->toFloat(2) / 3600;
        const std::string name = side->toString();
        if (!std::isfinite(value) || name.empty())
            return std::nullopt;
        return name.front() == negative ? -value : value;
    }

    Exiv2::ExifData m_tags;
};

half sound(half value)
{
    return value > 0 ? value : half(0); // No number is above 0 either.
}

void copyRadiance(
    const QString &path, const QString &result, const QString &source, const Frame &frame)
{
    Imf::RgbaInputFile from(QFile::encodeName(path).constData());
    const Imath::Box2i window = from.dataWindow();
    const int width = window.max.x - window.min.x + 1;
    const int height = window.max.y - window.min.y + 1;
    Imf::Header header(width, height);
    header.compression() = from.compression();
    Imf::addChromaticities(header, Imf::Chromaticities());
    SourceTags(source).addTo(header);
    if (frame.projection == Projection::Equirectangular && frame.angle == 360
        && frame.crop.size() == frame.canvas && frame.canvas.width() == 2 * frame.canvas.height())
        Imf::addEnvmap(header, Imf::ENVMAP_LATLONG);
    Imf::RgbaOutputFile to(QFile::encodeName(result).constData(), header, from.channels());
    std::vector<Imf::Rgba> row(static_cast<std::size_t>(width));
    for (int y = 0; y < height; ++y) {
        from.setFrameBuffer(row.data() - window.min.x, 1, 0);
        from.readPixels(window.min.y + y);
        for (Imf::Rgba &pixel : row)
            pixel = {sound(pixel.r), sound(pixel.g), sound(pixel.b), pixel.a};
        to.setFrameBuffer(row.data(), 1, 0);
        to.writePixels(1);
    }
}

} // namespace

QString writeRadiance(
    const QString &path, const QString &result, const QString &source, const Frame &frame)
{
    try {
        copyRadiance(path, result, source, frame);
    } catch (const std::exception &error) {
        return unwritable(result, QString::fromLocal8Bit(error.what()));
    }
    return {};
}
