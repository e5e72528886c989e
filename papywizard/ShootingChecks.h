// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "papywizard/PapywizardShooting.h"

#include <QList>
#include <QVector>

class ImageInfo;

/// Focal length in millimetres as on 36 x 24 mm film (0: unknown) and lens type (0 standard, 1
/// fisheye).
struct PictureLens {
    double focal = 0;
    int lensType = 0;
};

/// What pictures tell together, one after the other: their mean focal length, pictures without one
/// counted as 0, and the last picture's lens type.
class LensTally {
public:
    void add(const PictureLens &picture);
    /// Adds those of \a pictures that have not been added.
    void addFurther(const QList<ImageInfo *> &pictures);
    PictureLens lens() const;

private:
    double m_focals = 0;
    int m_lensType = 0;
    int m_count = 0;
};

/// What all of \a pictures tell together.
PictureLens lensOfPictures(const QVector<PictureLens> &pictures);

/// The lens to start from: the pictures' where they tell a focal length, else the file's. Its focal
/// is 0 when neither tells one; what is set then stays.
PictureLens proposedLens(const PapywizardShooting &shooting, const PictureLens &pictures);

/// What an import of a shooting file with pictures stands at.
struct ShootingState {
    const PapywizardShooting &shooting;
    /// Shots of the file last read; -1 when none could be read.
    int shotCount = -1;
    int pictureCount = 0;
    PictureLens pictures;
};

enum class ShootingWarning {
    None,
    NotMultiple, ///< the pictures are no whole number of bracket series
    CountDiffers, ///< not as many pictures as shots
    FocalDiffers, ///< pictures and file differ by more than a tenth of the pictures' focal length
    LensDiffers, ///< only one of pictures and file tells of a fisheye
};

/// The one warning to show; where several apply, the last of the list. None without shots.
ShootingWarning shootingWarning(const ShootingState &state);
