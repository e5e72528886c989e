// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/ShiftSearch.h"

#include "align/TurnMap.h"

#include <opencv2/imgproc.hpp>

#include <Eigen/Geometry>
#include <algorithm>
#include <cmath>

namespace align {

namespace {

/// Pixels of the longer side of the first picture as it is searched.
constexpr double kSide = 120;
/// Pixels; what is smoother than that is light, not things.
constexpr double kSmooth = 4;
/// Pixels that both must show for their likeness to mean something.
constexpr double kFewest = 250;
/// Correlation of the same things seen twice.
constexpr double kAlike = 0.5;
/// Radians about the middle between the pictures.
constexpr double kRolls[] = {0, -0.05, 0.05, -0.1, 0.1};
/// Corners of a picture of things.
constexpr std::size_t kTextured = 100;

cv::Mat_<float> reduced(const cv::Mat &grey, double scale)
{
    cv::Mat small;
    cv::resize(grey, small, {}, 1 / scale, 1 / scale, cv::INTER_AREA);
    cv::Mat_<float> result;
    small.convertTo(result, CV_32F);
    cv::Mat_<float> smooth;
    cv::GaussianBlur(result, smooth, {}, kSmooth);
    return result - smooth;
}

/// \a lens of a picture as the same lens of that picture reduced by \a scale.
Lens reduced(Lens lens, double scale)
{
    lens.focal /= scale;
    lens.unit /= scale;
    lens.centre = (lens.centre + Point(0.5, 0.5)) / scale - Point(0.5, 0.5);
    return lens;
}

cv::Mat_<float> correlation(const cv::Mat_<float> &image, const cv::Mat_<float> &part)
{
    cv::Mat_<float> result;
    cv::matchTemplate(image, part, result, cv::TM_CCORR);
    return result;
}

/// The turn, in the first camera's axes, that brings the second picture to where it fits best.
struct Fit {
    Rotation turn = Rotation::Identity();
    double sureness = 0;
};

/// \a turn leads from the first camera's axes to the second one's.
Fit fitOf(const cv::Mat_<float> &here, const Lens &from, const cv::Mat_<float> &there,
    const Lens &to, const Rotation &turn)
{
    const int reach = static_cast<int>(std::lround(kShiftReach * kSide));
    const cv::Rect wide(-reach, -reach, here.cols + 2 * reach, here.rows + 2 * reach);
    const cv::Mat_<cv::Point2f> map = TurnMap(from, to, turn, wide).pixels();
    cv::Mat_<float> warped;
    cv::Mat_<float> shown;
    cv::remap(there, warped, map, cv::noArray(), cv::INTER_LINEAR, cv::BORDER_CONSTANT, 0);
    cv::remap(cv::Mat_<float>::ones(there.size()), shown, map, cv::noArray(), cv::INTER_NEAREST,
        cv::BORDER_CONSTANT, 0);
    warped = warped.mul(shown);

    const cv::Mat_<float> whole = cv::Mat_<float>::ones(here.size());
    const cv::Mat_<float> products = correlation(warped, here);
    const cv::Mat_<float> ownSquares = correlation(shown, here.mul(here));
    const cv::Mat_<float> otherSquares = correlation(warped.mul(warped), whole);
    const cv::Mat_<float> counts = correlation(shown, whole);
    Fit fit;
    cv::Point place;
    for (int y = 0; y < products.rows; ++y) {
        for (int x = 0; x < products.cols; ++x) {
            // At least a grey level of things on average: below it is noise.
            const double spread = std::sqrt(std::max(0.0F, ownSquares(y, x)))
                * std::sqrt(std::max(0.0F, otherSquares(y, x)));
            if (counts(y, x) < kFewest || spread < counts(y, x))
                continue;
            // Few pixels are easily alike: Fisher's z over its deviation tells chance from
            // likeness.
            const double likeness = std::min(products(y, x) / spread, 0.999);
            const double sureness = std::atanh(likeness) * std::sqrt(double(counts(y, x)));
            if (likeness > kAlike && sureness > fit.sureness) {
                fit.sureness = sureness;
                place = {x, y};
            }
        }
    }
    if (fit.sureness == 0)
        return fit;
    // What the first shows at a point, the second would show so much further on.
    const Point shift(place - cv::Point(reach, reach));
    const cv::Moments moments = cv::moments(shown(cv::Rect(place, here.size())));
    const Point middle(moments.m10 / moments.m00, moments.m01 / moments.m00);
    fit.turn = Eigen::Quaterniond::FromTwoVectors(from.ray(middle + shift), from.ray(middle))
                   .toRotationMatrix();
    return fit;
}

} // namespace

std::optional<Rotation> searchShift(const TrackedView &first, const TrackedView &second)
{
    const WorkingPicture &one = *first.picture;
    const WorkingPicture &other = *second.picture;
    const double scale = std::max(one.grey.cols, one.grey.rows) / kSide;
    if (scale < 1
        || std::min({one.grey.cols, one.grey.rows, other.grey.cols, other.grey.rows}) < 2 * scale)
        return {};
    const cv::Mat_<float> here = reduced(one.grey, scale);
    const cv::Mat_<float> there = reduced(other.grey, scale);
    const Lens from = reduced(one.lensHere(first.lens), scale);
    const Lens to = reduced(other.lensHere(second.lens), scale);
    const Rotation turn = second.rotation.transpose() * first.rotation;

    Rotation best = Rotation::Identity();
    double sureness = 0;
    const Vector between = (Vector::UnitZ() + turn.transpose().col(2)).normalized();
    for (const double roll : kRolls) {
        const Rotation rolled = turnBy(between * roll);
        const Fit fit = fitOf(here, from, there, to, turn * rolled.transpose());
        if (fit.sureness > sureness) {
            sureness = fit.sureness;
            best = fit.turn * rolled;
        }
        // Hardly any head rolls.
        if (roll == 0
            && (sureness > 0 || std::min(one.corners.size(), other.corners.size()) < kTextured))
            break;
    }
    if (sureness == 0)
        return {};
    return first.rotation * best * first.rotation.transpose() * second.rotation;
}

} // namespace align
