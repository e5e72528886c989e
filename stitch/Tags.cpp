// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Tags.h"

#include <QColorSpace>
#include <QCoreApplication>
#include <QFile>
#include <algorithm>
#include <cmath>

namespace {

struct TagTexts {
    Q_DECLARE_TR_FUNCTIONS(Tags)
};

/// What of a picture's tags holds for the panorama, too; of GPS all.
constexpr const char *kKept[] = {
    "Exif.Image.Make",
    "Exif.Image.Model",
    "Exif.Image.Artist",
    "Exif.Image.Copyright",
    "Exif.Image.DateTime",
    "Exif.Photo.DateTimeOriginal",
    "Exif.Photo.DateTimeDigitized",
    "Exif.Photo.OffsetTime",
    "Exif.Photo.OffsetTimeOriginal",
    "Exif.Photo.OffsetTimeDigitized",
    "Exif.Photo.SubSecTimeOriginal",
    "Exif.Photo.LensMake",
    "Exif.Photo.LensModel",
    "Exif.Photo.BodySerialNumber",
    "Exif.Photo.CameraOwnerName",
    "Exif.Photo.FNumber",
    "Exif.Photo.ISOSpeedRatings",
};
constexpr const char *kKeptXmp[] = {
    "Xmp.dc.creator",
    "Xmp.dc.rights",
    "Xmp.xmpRights.UsageTerms",
    "Xmp.xmpRights.WebStatement",
};

void keepTags(const PictureTags &source, Exiv2::Image &target)
{
    Exiv2::ExifData &tags = target.exifData();
    for (const Exiv2::Exifdatum &tag : source.exif) {
        const std::string key = tag.key();
        const auto isKey = [&key](const char *kept) { return key == kept; };
        const bool isKept = std::any_of(std::begin(kKept), std::end(kKept), isKey);
        if (isKept || tag.groupName() == "GPSInfo")
            tags[key] = tag.value();
    }
    for (const char *key : kKeptXmp) {
        const auto tag = source.xmp.findKey(Exiv2::XmpKey(key));
        if (tag != source.xmp.end())
            target.xmpData().add(*tag);
    }
    tags["Exif.Image.Orientation"] = uint16_t(1);
    tags["Exif.Image.Software"] = "panohost";
}

/// https://developers.google.com/streetview/spherical-metadata
void addSphere(const Frame &frame, Exiv2::XmpData &xmp)
{
    Exiv2::XmpProperties::registerNs("http://ns.google.com/photos/1.0/panorama/", "GPano");
    // The sphere that the canvas, which may be lower or narrower, is the middle of.
    const int width = int(std::lround(frame.canvas.width() * 360.0 / frame.angle));
    const int height = std::max(frame.canvas.height(), int(std::lround(width / 2.0)));
    const int left = (width - frame.canvas.width()) / 2 + frame.crop.left();
    const int top = (height - frame.canvas.height()) / 2 + frame.crop.top();
    // The heads count yaw from where they were started, not from north: still, what is yaw 0 on
    // the head is 0 here.
    const double heading = frame.yaw < 0 ? frame.yaw + 360 : frame.yaw;
    xmp["Xmp.GPano.UsePanoramaViewer"] = "True";
    xmp["Xmp.GPano.StitchingSoftware"] = "panohost";
    xmp["Xmp.GPano.ProjectionType"] = "equirectangular";
    xmp["Xmp.GPano.PoseHeadingDegrees"] = std::to_string(heading);
    xmp["Xmp.GPano.CroppedAreaImageWidthPixels"] = std::to_string(frame.crop.width());
    xmp["Xmp.GPano.CroppedAreaImageHeightPixels"] = std::to_string(frame.crop.height());
    xmp["Xmp.GPano.FullPanoWidthPixels"] = std::to_string(width);
    xmp["Xmp.GPano.FullPanoHeightPixels"] = std::to_string(height);
    xmp["Xmp.GPano.CroppedAreaLeftPixels"] = std::to_string(left);
    xmp["Xmp.GPano.CroppedAreaTopPixels"] = std::to_string(top);
}

void addProfile(Exiv2::Image &target)
{
    if (target.iccProfileDefined())
        return;
    const QByteArray profile = QColorSpace(QColorSpace::SRgb).iccProfile();
    Exiv2::DataBuf buffer(
        reinterpret_cast<const Exiv2::byte *>(profile.constData()), profile.size());
    target.setIccProfile(buffer);
}

} // namespace

PictureTags tagsOf(const QString &path)
{
    try {
        const auto image = Exiv2::ImageFactory::open(QFile::encodeName(path).toStdString());
        image->readMetadata();
        return {image->exifData(), image->xmpData()};
    } catch (const Exiv2::AnyError &) {
        return {};
    }
}

QString writeTags(const QString &path, const QString &source, const Frame &frame)
{
    try {
        const auto target = Exiv2::ImageFactory::open(QFile::encodeName(path).toStdString());
        target->readMetadata();
        keepTags(tagsOf(source), *target);
        if (frame.projection == Projection::Equirectangular)
            addSphere(frame, target->xmpData());
        addProfile(*target);
        target->writeMetadata();
    } catch (const Exiv2::AnyError &error) {
        return TagTexts::tr("%1: its tags cannot be written: %2")
            .arg(path, QString::fromLocal8Bit(error.what()));
    }
    return {};
}
