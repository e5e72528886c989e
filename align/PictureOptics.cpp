// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/PictureOptics.h"

#include "geometry/AngleOfView.h"

#include <cmath>

namespace {

/// Millimetres; a telescope has a tenth of it.
constexpr double kLongestFocal = 100000;

} // namespace

double PictureOptics::pixelFocal() const
{
    return std::hypot(size.width(), size.height()) * focal / geometry::kFrameDiagonal;
}

double PictureOptics::angleAcross(int pixels) const
{
    return fisheye ? pixels / pixelFocal() : 2 * std::atan(pixels / 2.0 / pixelFocal());
}

std::optional<PictureOptics> opticsOf(const ProjectRecord &record, const PictureFacts &facts)
{
    const bool chosen = record.focal > 0;
    const auto focal = static_cast<double>(chosen ? record.focal : facts.focal);
    if (!(focal > 0 && focal <= kLongestFocal) || facts.size.isEmpty())
        return std::nullopt;
    return PictureOptics{
        facts.size, focal, (chosen ? record.lensType : facts.lensType) == ProjectRecord::Fisheye};
}
