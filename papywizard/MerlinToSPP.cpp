// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "papywizard/MerlinToSPP.h"

#include "geometry/Angle.h"
#include "geometry/DirectionLinks.h"
#include "papywizard/ShootingFile.h"

#include <QFile>
#include <algorithm>

namespace {

constexpr int kFisheye = 1;

/// Directions of the locations that have a shot: the first one of their series.
QVector<geometry::Direction> directionsOf(
    const QVector<PapywizardShot> &shots, int locations, int brackets)
{
    QVector<geometry::Direction> directions;
    for (int location = 0; location < locations && location * brackets < shots.size(); ++location) {
        const PapywizardShot &shot = shots[location * brackets];
        directions.append({geometry::toRadians(shot.yaw), geometry::toRadians(shot.pitch)});
    }
    return directions;
}

} // namespace

bool MerlinToSPP::ReadXML(const QString &path, const FindingSink &findings)
{
    m_shooting = {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (findings)
            findings({Finding::Cause::CannotOpen, 0, file.errorString()});
        return false;
    }
    return readShooting(file, m_shooting, findings);
}

bool MerlinToSPP::CheckBracketing(int pictures)
{
    m_shooting.bracketCount = std::max(1, m_shooting.bracketCount);
    return pictures % m_shooting.bracketCount == 0;
}

void MerlinToSPP::Convert(const QStringList &pictures, double focal, int lensType)
{
    if (focal < 0)
        focal = m_shooting.focal;
    if (lensType == -1)
        lensType = m_shooting.fisheye ? kFisheye : 0;

    const int brackets = std::max(1, m_shooting.bracketCount);
    const int locations = pictures.size() / brackets;
    for (int location = 0; location < locations; ++location)
        m_record.groups.append(pictures.mid(location * brackets, brackets));

    for (const PapywizardShot &shot : qAsConst(m_shooting.shots)) {
        m_record.yaws.append(geometry::toRadians(shot.yaw));
        m_record.pitches.append(geometry::toRadians(shot.pitch));
        m_record.rolls.append(geometry::toRadians(shot.roll));
    }

    m_record.focal = static_cast<float>(focal);
    m_record.lensType = lensType;

    if (lensType != kFisheye) {
        m_record.links += geometry::directionLinks(
            directionsOf(m_shooting.shots, locations, brackets), m_record.focal);
    }
}
