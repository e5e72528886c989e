// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QVector>
#include <limits>

/// One picture as a head's file tells of it. Angles in degrees, as written in the file.
struct HeadShot {
    /// Kept for the record's layout; no file fills it.
    qint64 reserved = 0;
    float yaw = 0;
    float pitch = 0;
    /// 0 from every file; quarter turns are added on the page.
    float roll = 0;
    int id = 0;
    /// Place within its bracket series as the file counts it.
    int bracket = 0;
    /// Null when the file gives none that can be read.
    QDateTime time;
};

/// Smallest and largest of an angle over the shots of a file, in degrees.
struct AngleRange {
    float min = std::numeric_limits<float>::lowest();
    float max = std::numeric_limits<float>::max();

    /// The range of no values, which any value widens. It differs from the initial one, which
    /// stands for "nothing known".
    static AngleRange none()
    {
        return {std::numeric_limits<float>::max(), std::numeric_limits<float>::lowest()};
    }
    bool isUnknown() const
    {
        return min == std::numeric_limits<float>::lowest()
            || max == std::numeric_limits<float>::max();
    }
    void include(float value)
    {
        if (value < min)
            min = value;
        if (value > max)
            max = value;
    }
    AngleRange mirrored() const { return {-max, -min}; }
};

/// Ranges of yaw and pitch over a file's shots.
struct ShotRanges {
    AngleRange yaw;
    AngleRange pitch;
};

/// The ranges of \a shots; AngleRange::none() twice when there are none.
ShotRanges rangesOf(const QVector<HeadShot> &shots);

/// Mirrors every pitch (0 becomes -0).
void invertPitches(QVector<HeadShot> &shots);

/// Adds \a degrees to every roll, in 32-bit arithmetic and without wrapping.
void turnRolls(QVector<HeadShot> &shots, float degrees);
