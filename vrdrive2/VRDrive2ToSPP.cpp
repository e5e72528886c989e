// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "vrdrive2/VRDrive2ToSPP.h"

#include "geometry/Median.h"
#include "host/ImageInfo.h"

#include <algorithm>
#include <cmath>

namespace {

/// Orders an exposure that is not a number behind all others.
bool isDarker(float a, float b)
{
    return a < b || (std::isnan(b) && !std::isnan(a));
}

} // namespace

void VRDrive2ToSPP::MoveReferenceExposureFirst(const QList<ImageInfo *> &pictures)
{
    QVector<float> exposures;
    for (const ImageInfo *picture : pictures.mid(0, std::max(1, m_shooting.bracketCount)))
        exposures.append(picture->GetExposure());
    MoveReferenceExposureFirst(exposures);
}

void VRDrive2ToSPP::MoveReferenceExposureFirst(const QVector<float> &exposures)
{
    const QVector<float> series = exposures.mid(0, std::max(1, m_shooting.bracketCount));
    if (series.isEmpty())
        return;
    const int reference = series.lastIndexOf(geometry::lowerMedian(series, isDarker));
    if (reference <= 0)
        return;
    for (QStringList &stack : m_record.groups) {
        if (reference < stack.size())
            stack.swapItemsAt(0, reference);
    }
}
