// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "geometry/HeadShot.h"

ShotRanges rangesOf(const QVector<HeadShot> &shots)
{
    ShotRanges ranges{AngleRange::none(), AngleRange::none()};
    for (const HeadShot &shot : shots) {
        ranges.yaw.include(shot.yaw);
        ranges.pitch.include(shot.pitch);
    }
    return ranges;
}

void invertPitches(QVector<HeadShot> &shots)
{
    for (HeadShot &shot : shots)
        shot.pitch = -shot.pitch;
}

void turnRolls(QVector<HeadShot> &shots, float degrees)
{
    for (HeadShot &shot : shots)
        shot.roll += degrees;
}
