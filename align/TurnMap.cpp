// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/TurnMap.h"

#include <algorithm>
#include <vector>

namespace align {

namespace {

const cv::Point2f kNowhere(-1e4F, -1e4F);

} // namespace

TurnMap::TurnMap(const Lens &from, const Lens &to, const Rotation &turn, const cv::Rect &area)
    : m_area(area)
    , m_nodes((area.height + kStep - 1) / kStep + 1, (area.width + kStep - 1) / kStep + 1)
{
    for (int row = 0; row < m_nodes.rows; ++row) {
        cv::Point2f *node = m_nodes[row];
        for (int column = 0; column < m_nodes.cols; ++column) {
            const auto point
                = to.project(turn * from.ray(Point(area.x + column * kStep, area.y + row * kStep)));
            node[column] = point ? cv::Point2f(*point) : kNowhere;
        }
    }
}

Point TurnMap::at(const Point &point) const
{
    const int column = std::clamp(static_cast<int>(point.x) / kStep, 0, m_nodes.cols - 2);
    const int row = std::clamp(static_cast<int>(point.y) / kStep, 0, m_nodes.rows - 2);
    const double x = point.x / kStep - column;
    const double y = point.y / kStep - row;
    const auto node = [&](int r, int c) { return Point(m_nodes(row + r, column + c)); };
    return (node(0, 0) * (1 - x) + node(0, 1) * x) * (1 - y)
        + (node(1, 0) * (1 - x) + node(1, 1) * x) * y;
}

cv::Mat_<cv::Point2f> TurnMap::pixels() const
{
    cv::Mat_<cv::Point2f> map(m_area.size());
    std::vector<cv::Point2f> line(static_cast<std::size_t>(m_nodes.cols));
    for (int y = 0; y < m_area.height; ++y) {
        const cv::Point2f *above = m_nodes[y / kStep];
        const cv::Point2f *below = m_nodes[y / kStep + 1];
        const float part = static_cast<float>(y % kStep) / kStep;
        for (int column = 0; column < m_nodes.cols; ++column)
            line[static_cast<std::size_t>(column)]
                = above[column] + (below[column] - above[column]) * part;
        cv::Point2f *pixel = map[y];
        for (int x = 0; x < m_area.width; x += kStep) {
            cv::Point2f point = line[static_cast<std::size_t>(x / kStep)];
            const cv::Point2f step
                = (line[static_cast<std::size_t>(x / kStep) + 1] - point) * (1.0F / kStep);
            const int end = std::min(x + kStep, m_area.width);
            for (int i = x; i < end; ++i, point += step)
                pixel[i] = point;
        }
    }
    return map;
}

bool isInside(const Point &point, const cv::Size &size, double border)
{
    return point.x >= border && point.y >= border && point.x <= size.width - 1 - border
        && point.y <= size.height - 1 - border;
}

cv::Rect sharedArea(const Lens &from, const cv::Size &fromSize, const Lens &to,
    const cv::Size &toSize, const Rotation &turn)
{
    constexpr int kParts = 24;
    const double stepX = (fromSize.width - 1.0) / kParts;
    const double stepY = (fromSize.height - 1.0) / kParts;
    int left = kParts + 1;
    int right = -1;
    int top = kParts + 1;
    int bottom = -1;
    for (int row = 0; row <= kParts; ++row) {
        for (int column = 0; column <= kParts; ++column) {
            const auto point = to.project(turn * from.ray(Point(column * stepX, row * stepY)));
            if (!point || !isInside(*point, toSize, 0))
                continue;
            left = std::min(left, column);
            right = std::max(right, column);
            top = std::min(top, row);
            bottom = std::max(bottom, row);
        }
    }
    if (right < 0)
        return {};
    const cv::Point first(
        static_cast<int>((left - 1) * stepX), static_cast<int>((top - 1) * stepY));
    const cv::Point last(
        static_cast<int>((right + 1) * stepX) + 1, static_cast<int>((bottom + 1) * stepY) + 1);
    return cv::Rect(first, last) & cv::Rect(cv::Point(), fromSize);
}

} // namespace align
