// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "geometry/HeadShot.h"
#include "geometry/LinkLimit.h"
#include "host/ProjectRecord.h"
#include "reader/Finding.h"

#include <QStringList>

class ImageInfo;

using ClaussShot = HeadShot;

/// Turns a Rodeon script and the chosen pictures into a project record.
class ClaussToSPP {
public:
    /// Reads the script at \a path. False when it cannot be opened or an angle in it is not a
    /// number; the shots are read all the same, such an angle as 0.
    bool ReadConfigFile(const QString &path, const FindingSink &findings = {});

    /// Whether angles are taken with their decimals. Off: whole degrees, as the format has it.
    /// Takes effect with the next ReadConfigFile().
    void SetFullAngles(bool full) { m_fullAngles = full; }

    /// Appends groups, angles and links to the record. \a infos as the background reader gives
    /// them: shot k and info k belong to picture k. A picture without a shot is linked to none; one
    /// without an info counts as of unknown focal length, 0, and is linked to all within 128
    /// degrees.
    void Convert(const QStringList &images, const QList<ImageInfo *> &infos);

    /// The same with the pictures' focal lengths in millimetres as on 36 x 24 mm film.
    void Convert(const QStringList &images, const QVector<float> &focals);

    /// What Convert() of as many pictures would search for. An import with too many links is not to
    /// be converted.
    geometry::LinkEstimate EstimateLinks(int images, const QList<ImageInfo *> &infos) const;
    geometry::LinkEstimate EstimateLinks(int images, const QVector<float> &focals) const;

    /// Makes the record as new, for another import.
    void ClearRecord() { m_record = {}; }

    ProjectRecord &Record() { return m_record; }
    QVector<ClaussShot> &Shots() { return m_shots; }

protected:
    ProjectRecord m_record;
    QVector<ClaussShot> m_shots;
    bool m_fullAngles = false;
};
