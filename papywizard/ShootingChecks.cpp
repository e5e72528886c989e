// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "papywizard/ShootingChecks.h"

#include "host/ImageInfo.h"

#include <cmath>

namespace {

int lensTypeOf(const PapywizardShooting &shooting)
{
    return shooting.fisheye ? 1 : 0;
}

bool countIsNoMultiple(const ShootingState &state)
{
    const int brackets = state.shooting.bracketCount;
    return brackets > 1 && state.pictureCount % brackets != 0;
}

bool focalsDiffer(const ShootingState &state)
{
    const double ofPictures = state.pictures.focal;
    const double ofFile = state.shooting.focal;
    return ofPictures > 0 && ofFile != -1.0 && std::abs(ofPictures - ofFile) * 10.0 > ofPictures;
}

} // namespace

void LensTally::add(const PictureLens &picture)
{
    m_focals += picture.focal;
    m_lensType = picture.lensType;
    ++m_count;
}

void LensTally::addFurther(const QList<ImageInfo *> &pictures)
{
    while (m_count < pictures.size()) {
        const ImageInfo *picture = pictures.at(m_count);
        add({static_cast<double>(picture->GetFocalLength()), picture->GetLensType()});
    }
}

PictureLens LensTally::lens() const
{
    return {m_count > 0 ? m_focals / m_count : 0, m_lensType};
}

PictureLens lensOfPictures(const QVector<PictureLens> &pictures)
{
    LensTally tally;
    for (const PictureLens &picture : pictures)
        tally.add(picture);
    return tally.lens();
}

PictureLens proposedLens(const PapywizardShooting &shooting, const PictureLens &pictures)
{
    if (pictures.focal > 0)
        return pictures;
    return {shooting.focal > 0 ? shooting.focal : 0, lensTypeOf(shooting)};
}

ShootingWarning shootingWarning(const ShootingState &state)
{
    if (state.shotCount <= 0)
        return ShootingWarning::None;
    if (state.pictures.lensType != lensTypeOf(state.shooting))
        return ShootingWarning::LensDiffers;
    if (focalsDiffer(state))
        return ShootingWarning::FocalDiffers;
    if (state.shotCount != state.pictureCount)
        return ShootingWarning::CountDiffers;
    if (countIsNoMultiple(state))
        return ShootingWarning::NotMultiple;
    return ShootingWarning::None;
}
