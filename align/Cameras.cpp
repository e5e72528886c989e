// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Cameras.h"

#include "align/WorkingPicture.h"

#include <QHash>

namespace align {

Cameras::Cameras(const PtoProject &project)
{
    QHash<PictureOptics, int> places;
    for (int i = 0; i < project.pictures.size(); ++i) {
        const PtoProject::Picture &picture = project.pictures.at(i);
        auto place = places.constFind(picture.lens);
        if (place == places.constEnd()) {
            place = places.insert(picture.lens, static_cast<int>(m_nominal.size()));
            m_nominal.push_back(Lens::of(picture.lens));
            m_scales.push_back(workingScale(picture.lens.size));
        }
        m_lensPlaces.push_back(*place);
        m_recorded.push_back(rotationOf(picture.place));
        m_owners.push_back(picture.positionOwner >= 0 ? picture.positionOwner : i);
    }
    m_lenses = m_nominal;
    m_rotations = m_recorded;
}

void Cameras::setRecorded(int picture, const Rotation &rotation)
{
    m_recorded[at(picture)] = rotation;
    m_rotations[at(picture)] = rotation;
}

} // namespace align
