// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "geometry/HeadShot.h"

#include <QString>

using PapywizardShot = HeadShot;

/// What an XML shooting file says.
struct PapywizardShooting {
    QVector<PapywizardShot> shots;
    QString title;
    QString gps;
    QString comment;
    /// Millimetres, already multiplied by sensorCoef; -1: not given.
    double focal = -1.0;
    double sensorCoef = 1.0;
    /// Pictures a location; -1: not given.
    int bracketCount = -1;
    bool fisheye = false;
    bool portrait = false;
};
