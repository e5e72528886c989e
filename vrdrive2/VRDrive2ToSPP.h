// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "papywizard/MerlinToSPP.h"

class ImageInfo;

/// The shooting-file conversion with the reference exposure moved to the front of each stack.
class VRDrive2ToSPP : public MerlinToSPP {
public:
    /// Puts the picture of middle exposure first in every stack of the record. \a pictures as the
    /// background reader gives them; only the first series is looked at.
    void MoveReferenceExposureFirst(const QList<ImageInfo *> &pictures);

    /// The same with the pictures' exposure values, equal for equally exposed pictures and growing
    /// from dark to bright.
    void MoveReferenceExposureFirst(const QVector<float> &exposures);
};
