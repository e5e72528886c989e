// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Tracking.h"

#include "align/TurnMap.h"

#include <opencv2/imgproc.hpp>
#include <opencv2/video/tracking.hpp>

#include <algorithm>
#include <array>

namespace align {

namespace {

constexpr int kWindow = 15;
constexpr int kLevels = 3;
/// Working pixels that a corner keeps from the border of either picture.
constexpr double kBorder = 10;
constexpr int kSought = 60;
/// Working pixels of the side of the square about a pixel whose mean is its light.
constexpr int kLit = 81;
constexpr int kPatch = 11;
/// Correlation of two patches of the same thing.
constexpr double kAlike = 0.8;
/// Working pixels that count as exact.
constexpr double kExact = 0.1;

/// Brings mean and deviation of \a warped to those of \a grey where both show something.
void matchBrightness(
    const cv::Mat &grey, const TurnMap &map, const cv::Size &secondSize, cv::Mat *warped)
{
    double sums[2] = {};
    double squares[2] = {};
    int count = 0;
    for (int y = 0; y < grey.rows; y += TurnMap::kStep) {
        const cv::Point2f *node = map.nodes()[y / TurnMap::kStep];
        for (int x = 0; x < grey.cols; x += TurnMap::kStep) {
            if (!isInside(Point(node[x / TurnMap::kStep]), secondSize, 1))
                continue;
            const double values[2]
                = {double(grey.at<uchar>(y, x)), double(warped->at<uchar>(y, x))};
            for (int i = 0; i < 2; ++i) {
                sums[i] += values[i];
                squares[i] += values[i] * values[i];
            }
            ++count;
        }
    }
    if (count < 10)
        return;
    const auto deviation = [&](int i) {
        return std::sqrt(std::max(squares[i] / count - sums[i] / count * sums[i] / count, 1.0));
    };
    const double gain = deviation(0) / deviation(1);
    const double offset = sums[0] / count - gain * sums[1] / count;
    if (std::abs(gain - 1) > 0.03 || std::abs(offset) > 3)
        warped->convertTo(*warped, CV_8U, gain, offset);
}

/// The corners of \a picture in \a area that the second picture shows too, at most kSought, spread
/// over the area, the clearest of each part.
std::vector<const Corner *> soughtCorners(const WorkingPicture &picture, const cv::Rect &area,
    const TurnMap &map, const cv::Size &secondSize)
{
    const double side = std::max(1.0, std::sqrt(double(area.area()) / kSought));
    const int columns = static_cast<int>(area.width / side) + 1;
    const int rows = static_cast<int>(area.height / side) + 1;
    std::vector<std::vector<const Corner *>> cells(static_cast<std::size_t>(columns * rows));
    const cv::Point2f corner(area.tl());
    for (const Corner &found : picture.corners) {
        const cv::Point2f point = found.point - corner;
        if (!isInside(Point(point), area.size(), kBorder)
            || !isInside(map.at(Point(point)), secondSize, kBorder))
            continue;
        const int cell
            = static_cast<int>(point.y / side) * columns + static_cast<int>(point.x / side);
        cells[static_cast<std::size_t>(cell)].push_back(&found);
    }
    for (auto &cell : cells)
        std::sort(cell.begin(), cell.end(),
            [](const Corner *a, const Corner *b) { return a->gradient > b->gradient; });
    std::vector<const Corner *> sought;
    for (std::size_t place = 0; sought.size() < kSought; ++place) {
        bool isEnd = true;
        for (const auto &cell : cells) {
            if (place >= cell.size() || sought.size() == kSought)
                continue;
            sought.push_back(cell[place]);
            isEnd = false;
        }
        if (isEnd)
            break;
    }
    return sought;
}

/// How many corners of \a view lie where \a other shows them.
int cornersShown(const TrackedView &view, const TrackedView &other)
{
    const Lens from = view.picture->lensHere(view.lens);
    const Lens to = other.picture->lensHere(other.lens);
    const Rotation turn = other.rotation.transpose() * view.rotation;
    const std::vector<Corner> &corners = view.picture->corners;
    return static_cast<int>(
        std::count_if(corners.begin(), corners.end(), [&](const Corner &corner) {
            const auto there = to.project(turn * from.ray(Point(corner.point)));
            return there && isInside(*there, other.picture->grey.size(), kBorder);
        }));
}

/// Correlation of the patches round \a a and \a b, -1 to 1.
double likeness(
    const cv::Mat &first, const cv::Point2f &a, const cv::Mat &second, const cv::Point2f &b)
{
    cv::Mat_<uchar> patches[2];
    cv::getRectSubPix(first, {kPatch, kPatch}, a, patches[0]);
    cv::getRectSubPix(second, {kPatch, kPatch}, b, patches[1]);
    int sums[2] = {};
    int products[3] = {};
    for (int y = 0; y < kPatch; ++y) {
        const uchar *p = patches[0][y];
        const uchar *q = patches[1][y];
        for (int x = 0; x < kPatch; ++x) {
            sums[0] += p[x];
            sums[1] += q[x];
            products[0] += p[x] * p[x];
            products[1] += q[x] * q[x];
            products[2] += p[x] * q[x];
        }
    }
    constexpr double kCount = kPatch * kPatch;
    const double spread
        = (products[0] - sums[0] * sums[0] / kCount) * (products[1] - sums[1] * sums[1] / kCount);
    return spread > 0 ? (products[2] - double(sums[0]) * sums[1] / kCount) / std::sqrt(spread) : 0;
}

void follow(const cv::Mat &from, const cv::Mat &to, const std::vector<cv::Point2f> &points,
    std::vector<cv::Point2f> *found, std::vector<uchar> *isFound)
{
    std::vector<float> errors;
    cv::calcOpticalFlowPyrLK(from, to, points, *found, *isFound, errors, {kWindow, kWindow},
        kLevels, {cv::TermCriteria::COUNT | cv::TermCriteria::EPS, 20, 0.01},
        cv::OPTFLOW_USE_INITIAL_FLOW);
}

cv::Mat againstLight(const cv::Mat &grey)
{
    cv::Mat light;
    cv::blur(grey, light, {kLit, kLit});
    cv::Mat result;
    cv::addWeighted(grey, 1, light, -1, 128, result);
    return result;
}

/// Finds corners of \a first in \a second.
Tracked tracked(const TrackedView &first, const TrackedView &second, Shades shades)
{
    const WorkingPicture &one = *first.picture;
    const WorkingPicture &other = *second.picture;
    const Lens from = one.lensHere(first.lens);
    const Lens to = other.lensHere(second.lens);
    const Rotation turn = second.rotation.transpose() * first.rotation;
    const cv::Rect area = sharedArea(from, one.grey.size(), to, other.grey.size(), turn);
    Tracked result;
    if (area.width < 2 * kWindow || area.height < 2 * kWindow)
        return result;

    const TurnMap map(from, to, turn, area);
    const std::vector<const Corner *> sought = soughtCorners(one, area, map, other.grey.size());
    if (sought.size() < 6)
        return result;
    result.sought = static_cast<int>(sought.size());
    cv::Mat grey = one.grey(area);
    cv::Mat warped;
    cv::remap(
        other.grey, warped, map.pixels(), cv::noArray(), cv::INTER_LINEAR, cv::BORDER_REPLICATE);
    if (shades == Shades::AgainstLight) {
        grey = againstLight(grey);
        warped = againstLight(warped);
    }
    matchBrightness(grey, map, other.grey.size(), &warped);

    const cv::Point2f corner(area.tl());
    std::vector<cv::Point2f> points;
    points.reserve(sought.size());
    for (const Corner *each : sought)
        points.push_back(each->point - corner);
    std::vector<cv::Point2f> found = points;
    std::vector<uchar> isFound;
    follow(grey, warped, points, &found, &isFound);

    const double noise = std::max(one.noise, other.noise);
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!isFound[i] || !isInside(Point(found[i]), area.size(), 1)
            || !isInside(map.at(Point(found[i])), other.grey.size(), 1)
            || likeness(grey, points[i], warped, found[i]) < kAlike)
            continue;
        // What noise does to a place: its deviation over the gradients in the window.
        const double blur = noise / (kWindow * double(sought[i]->gradient));
        result.matches.push_back({one.toStored(Point(sought[i]->point)),
            other.toStored(map.at(Point(found[i]))), std::min(1.0, kExact / blur)});
    }
    return result;
}

} // namespace

Tracked track(const TrackedView &first, const TrackedView &second, Shades shades)
{
    const int corners[2] = {cornersShown(first, second), cornersShown(second, first)};
    // Of what one picture shows, another that is overexposed may not have kept much.
    const bool isBack = 2 * corners[1] < corners[0];
    Tracked result = isBack ? tracked(second, first, shades) : tracked(first, second, shades);
    result.corners = std::min(corners[0], corners[1]);
    for (Match &match : result.matches) {
        if (isBack)
            std::swap(match.inFirst, match.inSecond);
    }
    return result;
}

double overlapOf(const Lens &first, const QSize &firstSize, const Rotation &firstRotation,
    const Lens &second, const QSize &secondSize, const Rotation &secondRotation)
{
    constexpr int kParts = 12;
    const Rotation turn = secondRotation.transpose() * firstRotation;
    const cv::Size size(secondSize.width(), secondSize.height());
    int seen = 0;
    for (int row = 0; row < kParts; ++row) {
        for (int column = 0; column < kParts; ++column) {
            const Point point((column + 0.5) / kParts * firstSize.width() - 0.5,
                (row + 0.5) / kParts * firstSize.height() - 0.5);
            const auto there = second.project(turn * first.ray(point));
            seen += there && isInside(*there, size, 0);
        }
    }
    return double(seen) / (kParts * kParts);
}

} // namespace align
