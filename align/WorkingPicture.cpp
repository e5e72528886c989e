// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/WorkingPicture.h"

#include "align/PictureFacts.h"
#include "geometry/Median.h"

#include <opencv2/imgproc.hpp>

#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <cmath>
#include <memory>
#include <turbojpeg.h>

namespace align {

namespace {

/// Pixels of the longer side: 24 megapixels are read at a quarter of their size.
constexpr int kLongestSide = 1700;
/// Pixels; more is no photograph but a trap.
constexpr qint64 kMostPixels = 400'000'000;

constexpr int kColumns = 12;
constexpr int kRows = 8;
constexpr int kCornersACell = 7;
/// Pixels from one corner to the next.
constexpr int kApart = 8;
/// Pixels of the square in which a corner's gradients are summed.
constexpr int kBlock = 5;
/// Grey levels a pixel.
constexpr double kFaintestGradient = 0.35;
/// Noise makes corners of so many times its own gradients.
constexpr double kCalmTimes = 2.5;
/// Grey levels a pixel that are no noise, whatever the calmest part of a picture is like.
constexpr double kClearGradient = 3;

/// Pixels of the longer side of a picture of clouds.
constexpr double kCloudsSide = 225;
/// Pixels of it: what is smaller is noise, what is larger is light.
constexpr double kNoise = 1.5;
constexpr double kLight = 6;
/// Pixels of its shorter side below which no clouds can be told apart.
constexpr double kCloudsShortestSide = 16;
/// By which clouds are made stronger.
constexpr double kCloudsGain = 24;

cv::Mat decodedJpeg(const uchar *data, qint64 bytes, QSize *size, int *reduction)
{
    const std::unique_ptr<void, int (*)(tjhandle)> decoder(tjInitDecompress(), tjDestroy);
    int width = 0;
    int height = 0;
    int subsampling = 0;
    int colours = 0;
    const auto length = static_cast<unsigned long>(bytes);
    if (!decoder
        || tjDecompressHeader3(decoder.get(), data, length, &width, &height, &subsampling, &colours)
            != 0
        || qint64(width) * height > kMostPixels)
        return {};
    *size = {width, height};
    *reduction = workingScale(*size);
    const tjscalingfactor factor{1, *reduction};
    cv::Mat grey(TJSCALED(height, factor), TJSCALED(width, factor), CV_8U);
    const int result = tjDecompress2(decoder.get(), data, length, grey.data, grey.cols,
        static_cast<int>(grey.step), grey.rows, TJPF_GRAY, 0);
    // A warning, as of a stray byte, leaves a picture.
    if (result != 0 && tjGetErrorCode(decoder.get()) == TJERR_FATAL)
        return {};
    return grey;
}

cv::Mat decodedByQt(QImageReader *reader, const QSize &size)
{
    if (!size.isValid() || qint64(size.width()) * size.height() > kMostPixels)
        return {};
    const int reduction = workingScale(size);
    if (reduction > 1)
        reader->setScaledSize((size / reduction).expandedTo(QSize(1, 1)));
    const QImage image = reader->read().convertToFormat(QImage::Format_Grayscale8);
    if (image.isNull())
        return {};
    return cv::Mat(image.height(), image.width(), CV_8U, const_cast<uchar *>(image.constBits()),
        static_cast<size_t>(image.bytesPerLine()))
        .clone();
}

bool isJpeg(const uchar *data, qint64 bytes)
{
    return bytes > 3 && data[0] == 0xFF && data[1] == 0xD8 && data[2] == 0xFF;
}

/// The least eigenvalue that is common where a picture is calmest, all noise and no thing.
float calmOf(const cv::Mat &strength)
{
    std::vector<float> cells;
    std::vector<float> values;
    for (int row = 0; row < kRows; ++row) {
        for (int column = 0; column < kColumns; ++column) {
            values.clear();
            for (int y = row * strength.rows / kRows; y < (row + 1) * strength.rows / kRows;
                 y += 4) {
                const auto *line = strength.ptr<float>(y);
                for (int x = column * strength.cols / kColumns;
                     x < (column + 1) * strength.cols / kColumns; x += 4)
                    values.push_back(line[x]);
            }
            if (values.empty())
                continue;
            cells.push_back(geometry::upperMedian(values));
        }
    }
    const auto quarter = static_cast<int>(cells.size() / 4);
    return cells.empty() ? 0 : geometry::valueInOrder(std::move(cells), quarter);
}

} // namespace

Lens WorkingPicture::lensHere(const Lens &stored) const
{
    Lens lens = stored;
    lens.focal /= scale;
    lens.unit /= scale;
    lens.centre = fromStored(stored.centre);
    return lens;
}

int workingScale(const QSize &size)
{
    int scale = 1;
    while (std::max(size.width(), size.height()) > kLongestSide * scale && scale < 8)
        scale *= 2;
    return scale;
}

WorkingPicture readWorkingPicture(const QString &path, const QSize &size)
{
    WorkingPicture picture;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return picture;
    QSize whole;
    int reduction = 0;
    const uchar *data = file.map(0, file.size());
    if (data && isJpeg(data, file.size())) {
        picture.grey = decodedJpeg(data, file.size(), &whole, &reduction);
    } else {
        QImageReader reader(path);
        reader.setDecideFormatFromContent(true);
        whole = reader.size();
        // What a RAW has first is but a thumbnail.
        const QByteArray jpeg = whole == size ? QByteArray() : embeddedPreview(path);
        picture.grey = jpeg.isEmpty()
            ? decodedByQt(&reader, whole)
            : decodedJpeg(
                reinterpret_cast<const uchar *>(jpeg.constData()), jpeg.size(), &whole, &reduction);
    }
    if (picture.isNull())
        return picture;
    if (reduction > 0 && whole == size) {
        picture.scale = reduction;
        picture.origin = {(reduction - 1) / 2.0, (reduction - 1) / 2.0};
        return picture;
    }
    // Another size, as of a preview: the middles lie on each other.
    picture.scale = double(std::max(size.width(), size.height()))
        / std::max(picture.grey.cols, picture.grey.rows);
    picture.origin = Point((size.width() - 1) / 2.0, (size.height() - 1) / 2.0)
        - Point(picture.grey.cols - 1, picture.grey.rows - 1) * (picture.scale / 2);
    return picture;
}

WorkingPicture cloudsOf(const WorkingPicture &picture)
{
    const double reduction
        = std::max(1.0, std::max(picture.grey.cols, picture.grey.rows) / kCloudsSide);
    WorkingPicture clouds;
    if (std::min(picture.grey.cols, picture.grey.rows) < kCloudsShortestSide * reduction)
        return clouds;
    cv::Mat small;
    cv::resize(picture.grey, small, {}, 1 / reduction, 1 / reduction, cv::INTER_AREA);
    cv::Mat_<float> shades;
    small.convertTo(shades, CV_32F);
    cv::Mat_<float> calm;
    cv::Mat_<float> light;
    cv::GaussianBlur(shades, calm, {}, kNoise);
    cv::GaussianBlur(shades, light, {}, kLight);
    cv::Mat(calm - light).convertTo(clouds.grey, CV_8U, kCloudsGain, 128);
    clouds.scale = picture.scale * reduction;
    clouds.origin = picture.toStored(Point(1, 1) * ((reduction - 1) / 2));
    return clouds;
}

void findCorners(WorkingPicture *picture)
{
    const cv::Mat &grey = picture->grey;
    cv::Mat strength;
    cv::cornerMinEigenVal(grey, strength, kBlock, 3);
    // What the library sums up are Sobel differences (8 times the gradient) of the square's pixels,
    // each divided by 4 x square x 255.
    const double unit = kBlock * kBlock * std::pow(8.0 / (4 * kBlock * 255), 2);
    const double calm = std::sqrt(static_cast<double>(calmOf(strength)) / unit);
    const double faintest = std::clamp(kCalmTimes * calm, kFaintestGradient, kClearGradient);
    const auto least = static_cast<float>(unit * faintest * faintest);
    // White noise makes gradients of 0.43 of its deviation: a Sobel difference is the sum of 12.
    picture->noise = std::clamp(calm / 0.43, 1.0, 4.0);

    struct Peak {
        float strength;
        int x, y;
    };
    std::vector<Peak> cells[kRows][kColumns];
    const int border = kBlock;
    for (int y = border; y < grey.rows - border; ++y) {
        const float *above = strength.ptr<float>(y - 1);
        const float *here = strength.ptr<float>(y);
        const float *below = strength.ptr<float>(y + 1);
        for (int x = border; x < grey.cols - border; ++x) {
            const float value = here[x];
            if (value > least && value > here[x - 1] && value >= here[x + 1] && value > above[x]
                && value >= below[x] && value >= above[x - 1] && value >= above[x + 1]
                && value >= below[x - 1] && value >= below[x + 1])
                cells[y * kRows / grey.rows][x * kColumns / grey.cols].push_back({value, x, y});
        }
    }
    for (auto &row : cells) {
        for (std::vector<Peak> &cell : row) {
            std::sort(cell.begin(), cell.end(),
                [](const Peak &a, const Peak &b) { return a.strength > b.strength; });
            const std::size_t first = picture->corners.size();
            for (const Peak &peak : cell) {
                const cv::Point2f point(static_cast<float>(peak.x), static_cast<float>(peak.y));
                const auto isNear = [&point](const Corner &other) {
                    return std::max(
                               std::abs(other.point.x - point.x), std::abs(other.point.y - point.y))
                        < kApart;
                };
                if (std::any_of(picture->corners.begin() + static_cast<std::ptrdiff_t>(first),
                        picture->corners.end(), isNear))
                    continue;
                picture->corners.push_back(
                    {point, static_cast<float>(std::sqrt(peak.strength / unit))});
                if (picture->corners.size() - first == kCornersACell)
                    break;
            }
        }
    }
}

} // namespace align
