// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Features.h"

#include <opencv2/features2d.hpp>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>

namespace align {

namespace {

/// Pixels of the longer side of the view that is searched.
constexpr double kViewSide = 1000;
constexpr int kColumns = 12;
constexpr int kRows = 8;
constexpr std::size_t kFeatures = 600;
/// Twice what each part would have if all had the same.
constexpr std::size_t kFeaturesAPart = 2 * kFeatures / (std::size_t(kRows) * kColumns);
/// Pixels of the shorter side below which there is nothing to be told apart.
constexpr int kSmallest = 32;
/// Pixels that features keep from the picture's border.
constexpr double kBorder = 3;
/// OpenCV's SIFT (4.6) puts points so many pixels too far right and down: it searches a picture of
/// twice the size first, and counts its pixels from their corners.
constexpr float kShift = 0.25F;
/// Squared distance of two descriptors of the same thing, and its ratio to the next best.
constexpr float kAlike = 0.6F;
constexpr float kRatio = 0.72F;

/// A picture as a stereographic view shows it. From one such view to another a thing only turns and
/// changes its size, however wide the lens.
class StereographicView {
public:
    StereographicView(const WorkingPicture &picture, const Lens &lens)
        : m_lens(lens)
        , m_size(picture.grey.size())
    {
        // Nothing reaches further than the corners and the middles of the sides.
        double reachX = 0;
        double reachY = 0;
        for (const double x : {0.0, (m_size.width - 1) / 2.0, m_size.width - 1.0}) {
            for (const double y : {0.0, (m_size.height - 1) / 2.0, m_size.height - 1.0}) {
                const Point point = inView(m_lens.ray({x, y}), 1);
                reachX = std::max(reachX, std::abs(point.x));
                reachY = std::max(reachY, std::abs(point.y));
            }
        }
        const double side = 2 * std::max(reachX, reachY) * m_lens.focal;
        m_scale = m_lens.focal * std::min(1.0, kViewSide / side);
        m_middle = {std::ceil(reachX * m_scale), std::ceil(reachY * m_scale)};

        cv::Mat_<cv::Point2f> map(2 * int(m_middle.y) + 1, 2 * int(m_middle.x) + 1);
        mask.create(map.size());
        for (int y = 0; y < map.rows; ++y) {
            for (int x = 0; x < map.cols; ++x) {
                const auto point = m_lens.project(rayAt(Point(x, y)));
                const bool isShown = point && point->x >= kBorder && point->y >= kBorder
                    && point->x <= m_size.width - 1 - kBorder
                    && point->y <= m_size.height - 1 - kBorder;
                map(y, x) = point ? cv::Point2f(*point) : cv::Point2f(-1, -1);
                mask(y, x) = isShown ? 255 : 0;
            }
        }
        cv::Mat source = picture.grey;
        if (m_scale < 0.7 * m_lens.focal)
            cv::GaussianBlur(picture.grey, source = cv::Mat(), {}, 0.5 * m_lens.focal / m_scale);
        cv::remap(source, grey, map, cv::noArray(), cv::INTER_LINEAR, cv::BORDER_REPLICATE);
    }

    Vector rayAt(const Point &point) const
    {
        const Point p = (point - m_middle) / m_scale;
        const double square = p.dot(p) / 4;
        return Vector(p.x, -p.y, 1 - square) / (1 + square);
    }

    cv::Mat_<uchar> grey;
    cv::Mat_<uchar> mask;

private:
    /// At a radius of 2 tan(angle / 2), on the scale \a scale.
    static Point inView(const Vector &ray, double scale)
    {
        const double stretch = scale * 2 / (1 + std::max(ray.z(), -0.9));
        return {ray.x() * stretch, -ray.y() * stretch};
    }

    Lens m_lens;
    cv::Size m_size;
    double m_scale = 1;
    Point m_middle;
};

/// The strongest of each part of the view, kFeatures in all.
std::vector<cv::KeyPoint> spread(std::vector<cv::KeyPoint> points, const cv::Size &size)
{
    std::sort(points.begin(), points.end(),
        [](const cv::KeyPoint &a, const cv::KeyPoint &b) { return a.response > b.response; });
    std::size_t counts[kRows][kColumns] = {};
    std::vector<cv::KeyPoint> kept;
    for (const cv::KeyPoint &point : points) {
        std::size_t &count = counts[std::min(int(point.pt.y * kRows / float(size.height)),
            kRows - 1)][std::min(int(point.pt.x * kColumns / float(size.width)), kColumns - 1)];
        if (count++ < kFeaturesAPart && kept.size() < kFeatures)
            kept.push_back(point);
    }
    return kept;
}

} // namespace

Features findFeatures(const WorkingPicture &picture, const Lens &stored)
{
    Features features;
    if (std::min(picture.grey.cols, picture.grey.rows) < kSmallest)
        return features;
    const Lens lens = picture.lensHere(stored);
    const StereographicView view(picture, lens);
    const auto sift = cv::SIFT::create(0, 3, 0.01);
    std::vector<cv::KeyPoint> points;
    sift->detect(view.grey, points, view.mask);
    points = spread(std::move(points), view.grey.size());
    sift->compute(view.grey, points, features.descriptors);
    for (int i = 0; i < features.descriptors.rows; ++i) {
        // Root-SIFT: the scalar product is then the Hellinger kernel of the histograms.
        cv::Mat row = features.descriptors.row(i);
        cv::normalize(row, row, 1, 0, cv::NORM_L1);
        cv::sqrt(row, row);
    }
    for (const cv::KeyPoint &point : points) {
        const auto seen = lens.project(view.rayAt(Point(point.pt - cv::Point2f(kShift, kShift))));
        features.points.push_back(picture.toStored(seen.value_or(lens.centre)));
    }
    return features;
}

std::vector<Match> matchFeatures(const FeatureView &first, const FeatureView &second, double gate)
{
    std::vector<Match> matches;
    const std::size_t counts[2] = {first.features->points.size(), second.features->points.size()};
    if (counts[0] == 0 || counts[1] == 0)
        return matches;
    std::vector<Vector> rays[2];
    for (const Point &point : first.features->points)
        rays[0].emplace_back(first.rotation * first.lens.ray(point));
    for (const Point &point : second.features->points)
        rays[1].emplace_back(second.rotation * second.lens.ray(point));
    cv::Mat_<float> likeness;
    cv::gemm(first.features->descriptors, second.features->descriptors, 1, cv::noArray(), 0,
        likeness, cv::GEMM_2_T);

    const double nearest = std::cos(gate);
    std::vector<int> bestOfSecond(counts[1], -1);
    std::vector<float> bestLikeness(counts[1], -1);
    std::vector<int> choice(counts[0], -1);
    for (std::size_t i = 0; i < counts[0]; ++i) {
        float best = -1;
        float next = -1;
        int chosen = -1;
        for (std::size_t k = 0; k < counts[1]; ++k) {
            const float value = likeness(int(i), int(k));
            if ((value <= next && value <= bestLikeness[k]) || rays[0][i].dot(rays[1][k]) < nearest)
                continue;
            if (value > bestLikeness[k]) {
                bestLikeness[k] = value;
                bestOfSecond[k] = int(i);
            }
            if (value > best) {
                next = best;
                best = value;
                chosen = int(k);
            } else {
                next = std::max(next, value);
            }
        }
        const float distance = 2 - 2 * best;
        if (chosen >= 0 && distance < kAlike && distance < kRatio * (2 - 2 * next))
            choice[i] = chosen;
    }
    for (std::size_t i = 0; i < counts[0]; ++i) {
        const int k = choice[i];
        if (k >= 0 && bestOfSecond[static_cast<std::size_t>(k)] == int(i))
            matches.push_back({first.features->points[i],
                second.features->points[static_cast<std::size_t>(k)], 1});
    }
    return matches;
}

} // namespace align
