// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/PictureFacts.h"

#include "align/JpegEnd.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QRegularExpression>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <exiv2/exiv2.hpp>
#include <initializer_list>
#include <mutex>
#include <optional>

namespace {

struct FactTexts {
    Q_DECLARE_TR_FUNCTIONS(PictureFacts)
};

constexpr int kThumbnailSide = 192;
/// Larger pictures are not decoded for a thumbnail: no camera makes them, and a few bytes can claim
/// any size.
constexpr qint64 kDecodeLimit = 400'000'000;
constexpr double kFrameDiagonal = 43.266615305567875;

void lockXmp(void *mutex, bool lock)
{
    auto *xmpMutex = static_cast<std::recursive_mutex *>(mutex);
    lock ? xmpMutex->lock() : xmpMutex->unlock();
}

/// exiv2's XMP parser is one for the process and must be set up before threads meet in it.
void setUpExiv2()
{
    static std::once_flag once;
    static std::recursive_mutex xmpMutex;
    std::call_once(once, [] {
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
        Exiv2::XmpParser::initialize(lockXmp, &xmpMutex);
#ifdef EXV_ENABLE_BMFF
        Exiv2::enableBMFF(true);
#endif
    });
}

/// A positive, finite number of the first of \a keys that gives one.
std::optional<double> positive(
    const Exiv2::ExifData &exif, std::initializer_list<const char *> keys)
{
    for (const char *key : keys) {
        const auto tag = exif.findKey(Exiv2::ExifKey(key));
        if (tag == exif.end() || tag->count() == 0)
            continue;
        const Exiv2::Rational value = tag->toRational();
        const double number = value.second == 0 ? 0.0 : double(value.first) / value.second;
        if (std::isfinite(number) && number > 0)
            return number;
    }
    return std::nullopt;
}

/// The same for values in powers of 2, which may be 0 or negative.
std::optional<double> apex(const Exiv2::ExifData &exif, const char *key)
{
    const auto tag = exif.findKey(Exiv2::ExifKey(key));
    if (tag == exif.end() || tag->count() == 0)
        return std::nullopt;
    const Exiv2::Rational value = tag->toRational();
    const double number = value.second == 0 ? 100.0 : double(value.first) / value.second;
    return std::abs(number) < 64 ? std::optional(std::exp2(number)) : std::nullopt;
}

/// Diagonal of the sensor in millimetres, from the pixels a length unit that EXIF gives.
std::optional<double> sensorDiagonal(const Exiv2::ExifData &exif, const QSize &size)
{
    if (const auto diagonal = positive(exif, {"Exif.OlympusEq.FocalPlaneDiagonal"}))
        return diagonal;
    const auto xResolution
        = positive(exif, {"Exif.Photo.FocalPlaneXResolution", "Exif.Image.FocalPlaneXResolution"});
    const auto yResolution
        = positive(exif, {"Exif.Photo.FocalPlaneYResolution", "Exif.Image.FocalPlaneYResolution"});
    if (!xResolution)
        return std::nullopt;
    // Inches where the unit is missing; 4 and 5 are no standard, but are written.
    const int unit = static_cast<int>(positive(
        exif, {"Exif.Photo.FocalPlaneResolutionUnit", "Exif.Image.FocalPlaneResolutionUnit"})
                                          .value_or(2));
    const double millimetres = unit == 3 ? 10.0 : unit == 4 ? 1.0 : unit == 5 ? 0.001 : 25.4;
    // The resolution is that of the picture as taken, which may have been scaled down since.
    const double width = positive(exif, {"Exif.Photo.PixelXDimension"}).value_or(size.width());
    const double height = positive(exif, {"Exif.Photo.PixelYDimension"}).value_or(size.height());
    const double diagonal = millimetres
        * std::hypot(width / *xResolution, height / yResolution.value_or(*xResolution));
    // From a telephone's sensor to a large-format back; anything else is a wrong tag.
    return diagonal > 2 && diagonal < 150 ? std::optional(diagonal) : std::nullopt;
}

float focalOf(const Exiv2::ExifData &exif, const QSize &size)
{
    if (const auto film = positive(exif, {"Exif.Photo.FocalLengthIn35mmFilm"}))
        return static_cast<float>(*film);
    const auto focal = positive(exif, {"Exif.Photo.FocalLength", "Exif.Image.FocalLength"});
    const auto diagonal = sensorDiagonal(exif, size);
    return focal && diagonal ? static_cast<float>(*focal * kFrameDiagonal / *diagonal) : 0.0F;
}

bool namesFisheye(const std::string &text)
{
    static const QRegularExpression pattern(
        QStringLiteral("fish[ -]?eye"), QRegularExpression::CaseInsensitiveOption);
    return QString::fromStdString(text).contains(pattern);
}

int lensTypeOf(const Exiv2::ExifData &exif)
{
    const auto model = exif.findKey(Exiv2::ExifKey("Exif.Photo.LensModel"));
    if (model != exif.end() && namesFisheye(model->toString()))
        return 1;
    // Maker notes hold a number, which exiv2 knows the lens of.
    const auto lens = Exiv2::lensName(exif);
    return lens != exif.end() && namesFisheye(lens->print(&exif)) ? 1 : 0;
}

double exposureValueOf(const Exiv2::ExifData &exif)
{
    auto time = positive(exif, {"Exif.Photo.ExposureTime", "Exif.Image.ExposureTime"});
    if (!time) {
        if (const auto speed = apex(exif, "Exif.Photo.ShutterSpeedValue"))
            time = 1 / *speed;
    }
    if (!time)
        return 0;
    auto aperture = positive(exif, {"Exif.Photo.FNumber", "Exif.Image.FNumber"});
    if (!aperture) {
        if (const auto squared = apex(exif, "Exif.Photo.ApertureValue"))
            aperture = std::sqrt(*squared);
    }
    const double n = aperture.value_or(1.0);
    const double iso = positive(exif, {"Exif.Photo.ISOSpeedRatings", "Exif.Image.ISOSpeedRatings"})
                           .value_or(100.0);
    return std::log2(n * n / *time * 100.0 / iso);
}

int orientationOf(const Exiv2::ExifData &exif)
{
    const int value
        = static_cast<int>(std::min(positive(exif, {"Exif.Image.Orientation"}).value_or(1), 9.0));
    return value >= 1 && value <= 8 ? value : 1;
}

/// \a reader's picture within the thumbnail's size, as JPEG.
QByteArray scaledJpeg(QImageReader &reader)
{
    const QSize size = reader.size();
    if (!size.isValid() || qint64(size.width()) * size.height() > kDecodeLimit)
        return {};
    if (size.width() > kThumbnailSide || size.height() > kThumbnailSide)
        reader.setScaledSize(size.scaled(kThumbnailSide, kThumbnailSide, Qt::KeepAspectRatio)
                                 .expandedTo(QSize(1, 1)));
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    const QImage image = reader.read();
    return !image.isNull() && image.save(&buffer, "JPEG", 85) ? jpeg : QByteArray();
}

/// \a jpeg if it is a picture small enough to be kept as it is, else a smaller one made of it.
QByteArray smallJpeg(const QByteArray &jpeg)
{
    QBuffer buffer;
    buffer.setData(jpeg);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (!size.isValid())
        return {};
    if (reader.format() == "jpeg" && size.width() <= kThumbnailSide
        && size.height() <= kThumbnailSide)
        return jpeg;
    return scaledJpeg(reader);
}

QByteArray toBytes(const Exiv2::byte *data, long size)
{
    return {reinterpret_cast<const char *>(data), static_cast<int>(size)};
}

QByteArray embeddedThumbnail(const Exiv2::Image &image)
{
    const Exiv2::DataBuf exifThumbnail = Exiv2::ExifThumbC(image.exifData()).copy();
    if (exifThumbnail.size_ > 0) {
        QByteArray jpeg = smallJpeg(toBytes(exifThumbnail.pData_, exifThumbnail.size_));
        if (!jpeg.isEmpty())
            return jpeg;
    }
    // Sorted from small to large.
    const Exiv2::PreviewManager previews(image);
    const Exiv2::PreviewPropertiesList list = previews.getPreviewProperties();
    for (const Exiv2::PreviewProperties &properties : list) {
        if (properties.width_ < 120 && &properties != &list.back())
            continue;
        const Exiv2::PreviewImage preview = previews.getPreviewImage(properties);
        QByteArray jpeg = smallJpeg(toBytes(preview.pData(), static_cast<long>(preview.size())));
        if (!jpeg.isEmpty())
            return jpeg;
    }
    return {};
}

/// Why the file at \a path cannot be a picture at all; empty when it may be one.
QString obstacle(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return info.isSymLink() ? FactTexts::tr("the link leads nowhere")
                                : FactTexts::tr("no such file");
    if (info.isDir())
        return FactTexts::tr("is a folder");
    if (!info.isFile())
        return FactTexts::tr("is no regular file");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return FactTexts::tr("cannot be opened: %1").arg(file.errorString());
    return file.size() == 0 ? FactTexts::tr("is empty") : QString();
}

/// Fills \a facts from the tags, as far as exiv2 can make anything of the file.
void readTags(const QString &path, Thumbnail thumbnail, PictureFacts &facts)
{
    try {
        const auto image = Exiv2::ImageFactory::open(QFile::encodeName(path).toStdString());
        image->readMetadata();
        const Exiv2::ExifData &exif = image->exifData();
        facts.size = {image->pixelWidth(), image->pixelHeight()};
        facts.focal = focalOf(exif, facts.size);
        facts.lensType = lensTypeOf(exif);
        facts.exposureValue = exposureValueOf(exif);
        facts.orientation = orientationOf(exif);
        if (thumbnail == Thumbnail::Make)
            facts.thumbnail = embeddedThumbnail(*image);
    } catch (const std::exception &) {
        // Pictures without tags, or with broken ones, are pictures all the same.
    }
}

} // namespace

int PictureFacts::uprightTurn() const
{
    // A mirrored picture is turned like its unmirrored like; nothing can mirror it back.
    switch (orientation) {
    case 3:
    case 4:
        return 180;
    case 6:
    case 7:
        return 90;
    case 5:
    case 8:
        return -90;
    default:
        return 0;
    }
}

PictureFacts readPictureFacts(const QString &path, Thumbnail thumbnail)
{
    setUpExiv2();
    PictureFacts facts;
    facts.reason = obstacle(path);
    if (!facts.reason.isEmpty())
        return facts;

    if (jpegEnd(path) == JpegEnd::Missing) {
        facts.reason = FactTexts::tr("is cut short, the picture is not whole");
        return facts;
    }
    readTags(path, thumbnail, facts);
    if (facts.size.isEmpty()) {
        QImageReader reader(path);
        reader.setDecideFormatFromContent(true);
        facts.size = reader.size();
    }
    if (facts.size.isEmpty()) {
        facts.reason = FactTexts::tr("is not a picture that can be read");
        return facts;
    }
    if (thumbnail == Thumbnail::Make && facts.thumbnail.isEmpty()) {
        QImageReader reader(path);
        reader.setDecideFormatFromContent(true);
        facts.thumbnail = scaledJpeg(reader);
    }
    facts.readable = true;
    return facts;
}

QByteArray embeddedPreview(const QString &path)
{
    setUpExiv2();
    try {
        const auto image = Exiv2::ImageFactory::open(QFile::encodeName(path).toStdString());
        image->readMetadata();
        const Exiv2::PreviewManager previews(*image);
        // Sorted from small to large.
        const Exiv2::PreviewPropertiesList list = previews.getPreviewProperties();
        for (auto properties = list.rbegin(); properties != list.rend(); ++properties) {
            if (properties->mimeType_ != "image/jpeg")
                continue;
            const Exiv2::PreviewImage preview = previews.getPreviewImage(*properties);
            return toBytes(preview.pData(), static_cast<long>(preview.size()));
        }
    } catch (const std::exception &) {
        // What exiv2 can make nothing of has no preview.
    }
    return {};
}

QImage uprightThumbnail(const PictureFacts &facts)
{
    QImage image = QImage::fromData(facts.thumbnail);
    if (image.isNull() || facts.size.isEmpty())
        return image;
    const QSize shape = facts.size.scaled(image.size(), Qt::KeepAspectRatio);
    if (image.width() - shape.width() > 2 || image.height() - shape.height() > 2) {
        QRect part(QPoint(), shape.expandedTo(QSize(1, 1)));
        part.moveCenter(image.rect().center());
        image = image.copy(part);
    }
    const bool mirrored = facts.orientation == 2 || facts.orientation == 4 || facts.orientation == 5
        || facts.orientation == 7;
    if (mirrored)
        image = image.mirrored(true, false);
    return facts.uprightTurn() == 0 ? image
                                    : image.transformed(QTransform().rotate(facts.uprightTurn()));
}

bool isPictureName(const QString &fileName)
{
    static const QSet<QString> suffixes = [] {
        const QString list = QStringLiteral(
            "jpg jpeg jpe jfif tif tiff png webp bmp ppm heic heif avif jxl exr hdr "
            "3fr arw cr2 cr3 crw dcr dng erf fff iiq k25 kdc mef mos mrw nef nrw orf pef raf raw "
            "rw2 rwl sr2 srf srw x3f");
        const QStringList names = list.split(QLatin1Char(' '));
        return QSet<QString>(names.begin(), names.end());
    }();
    return suffixes.contains(QFileInfo(fileName).suffix().toLower());
}
