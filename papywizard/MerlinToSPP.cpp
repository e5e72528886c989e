// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "papywizard/MerlinToSPP.h"

#include "geometry/Angle.h"
#include "geometry/DirectionLinks.h"
#include "papywizard/ShootingFile.h"
#include "reader/OpenHeadFile.h"

#include <algorithm>

namespace {

constexpr int kFisheye = 1;

/// A million shots, generously written, are half of this. One text of this length is also the most
/// that a string can hold.
constexpr qint64 kLargestFile = qint64(512) * 1024 * 1024;

int bracketsOf(const PapywizardShooting &shooting)
{
    return std::max(1, shooting.bracketCount);
}

/// Directions of the locations that have pictures and a shot: the first one of their series.
QVector<geometry::Direction> directionsOf(const PapywizardShooting &shooting, int pictures)
{
    const QVector<PapywizardShot> &shots = shooting.shots;
    const int brackets = bracketsOf(shooting);
    QVector<geometry::Direction> directions;
    for (int location = 0; location < pictures / brackets && location * brackets < shots.size();
         ++location) {
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
    const QString error = openHeadFile(file, kLargestFile);
    if (!error.isEmpty()) {
        if (findings)
            findings({Finding::Cause::CannotOpen, 0, error});
        return false;
    }
    return readShooting(file, m_shooting, findings);
}

bool MerlinToSPP::CheckBracketing(int pictures)
{
    m_shooting.bracketCount = std::max(1, m_shooting.bracketCount);
    return pictures % m_shooting.bracketCount == 0;
}

MerlinToSPP::Lens MerlinToSPP::ChosenLens(double focal, int lensType) const
{
    const int ofFile = m_shooting.fisheye ? kFisheye : 0;
    return {static_cast<float>(focal < 0 ? m_shooting.focal : focal),
        lensType == -1 ? ofFile : lensType};
}

geometry::LinkEstimate MerlinToSPP::EstimateLinks(int pictures, double focal, int lensType) const
{
    const Lens lens = ChosenLens(focal, lensType);
    if (lens.type == kFisheye)
        return {0, lens.focal};
    return {geometry::estimateDirectionLinks(directionsOf(m_shooting, pictures), lens.focal),
        lens.focal};
}

void MerlinToSPP::Convert(const QStringList &pictures, double focal, int lensType)
{
    const Lens lens = ChosenLens(focal, lensType);
    const int brackets = bracketsOf(m_shooting);
    const int locations = pictures.size() / brackets;
    for (int location = 0; location < locations; ++location)
        m_record.groups.append(pictures.mid(location * brackets, brackets));

    for (const PapywizardShot &shot : qAsConst(m_shooting.shots)) {
        m_record.yaws.append(geometry::toRadians(shot.yaw));
        m_record.pitches.append(geometry::toRadians(shot.pitch));
        m_record.rolls.append(geometry::toRadians(shot.roll));
    }

    m_record.focal = lens.focal;
    m_record.lensType = lens.type;

    if (lens.type != kFisheye) {
        m_record.links
            += geometry::directionLinks(directionsOf(m_shooting, pictures.size()), lens.focal);
    }
}
