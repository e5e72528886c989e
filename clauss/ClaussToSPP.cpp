// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clauss/ClaussToSPP.h"

#include "clauss/ClaussScript.h"
#include "geometry/Angle.h"
#include "geometry/AngleOfView.h"
#include "geometry/Median.h"
#include "geometry/ProximityLinks.h"
#include "host/ImageInfo.h"
#include "reader/OpenHeadFile.h"

#include <algorithm>
#include <cmath>

namespace {

/// A script of the 70,000 pictures of the largest panorama is a sixtieth of this.
constexpr qint64 kLargestScript = qint64(64) * 1024 * 1024;

/// The bytes of a file, or why there are none.
struct FileContent {
    QByteArray bytes;
    QString error;
};

FileContent readFile(const QString &path)
{
    QFile file(path);
    const QString error = openHeadFile(file, kLargestScript);
    if (!error.isEmpty())
        return {{}, error};
    FileContent content{file.readAll(), {}};
    if (file.error() != QFileDevice::NoError)
        content.error = file.errorString();
    return content;
}

QVector<float> focalsOf(const QList<ImageInfo *> &infos)
{
    QVector<float> focals;
    focals.reserve(infos.size());
    for (const ImageInfo *info : infos)
        focals.append(info ? info->GetFocalLength() : 0.0F);
    return focals;
}

/// 0 for none.
float middleOf(QVector<float> focals)
{
    // What is no number has no place in an order.
    focals.erase(
        std::remove_if(focals.begin(), focals.end(), [](float f) { return std::isnan(f); }),
        focals.end());
    return geometry::upperMedian(std::move(focals));
}

/// Of the pictures that have a shot.
QVector<geometry::View> viewsOf(
    const QVector<ClaussShot> &shots, int images, const QVector<float> &focals)
{
    QVector<geometry::View> views;
    const int pairable = std::min(images, static_cast<int>(shots.size()));
    views.reserve(pairable);
    for (int k = 0; k < pairable; ++k) {
        const ClaussShot &shot = shots.at(k);
        const double halfAngle = geometry::halfDiagonalAngle(focals.value(k, 0.0F));
        views.append({geometry::toRadians(shot.yaw), geometry::toRadians(shot.pitch),
            static_cast<float>(halfAngle)});
    }
    return views;
}

} // namespace

bool ClaussToSPP::ReadConfigFile(const QString &path, const FindingSink &findings)
{
    m_shots.clear();
    const FileContent content = readFile(path);
    if (!content.error.isEmpty()) {
        if (findings)
            findings({Finding::Cause::CannotOpen, 0, content.error});
        return false;
    }
    ClaussScript script = readClaussScript(content.bytes, m_fullAngles, findings);
    m_shots = std::move(script.shots);
    return script.valid;
}

void ClaussToSPP::Convert(const QStringList &images, const QList<ImageInfo *> &infos)
{
    Convert(images, focalsOf(infos));
}

void ClaussToSPP::Convert(const QStringList &images, const QVector<float> &focals)
{
    for (const QString &image : images)
        m_record.groups.append(QStringList{image});
    for (const ClaussShot &shot : qAsConst(m_shots)) {
        m_record.yaws.append(geometry::toRadians(shot.yaw));
        m_record.pitches.append(geometry::toRadians(shot.pitch));
    }

    geometry::appendProximityLinks(viewsOf(m_shots, images.size(), focals), m_record.links);
}

geometry::LinkEstimate ClaussToSPP::EstimateLinks(int images, const QList<ImageInfo *> &infos) const
{
    return EstimateLinks(images, focalsOf(infos));
}

geometry::LinkEstimate ClaussToSPP::EstimateLinks(int images, const QVector<float> &focals) const
{
    return {geometry::estimateProximityLinks(viewsOf(m_shots, images, focals)), middleOf(focals)};
}
