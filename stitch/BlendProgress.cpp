// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/BlendProgress.h"

#include <algorithm>
#include <utility>

namespace {

/// That enblend says of a group.
constexpr int kLines = 9;

} // namespace

BlendProgress::BlendProgress(int pictures, QByteArray prefix)
    : m_pictures(pictures)
    , m_prefix(std::move(prefix))
{
}

double BlendProgress::readLine(const QByteArray &line)
{
    m_isDegenerate |= line.contains("degenerate image/mask geometry");
    if (line.contains("combining non-overlapping images:")
        || line.contains("loading next image:")) {
        m_before = m_named;
        m_named += line.count(m_prefix);
        m_lines = 0;
    } else if (m_lines < kLines) {
        ++m_lines;
    }
    const double done = m_before + (m_named - m_before) * double(m_lines) / kLines;
    return std::min(0.99, done / m_pictures);
}
