// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "geometry/HeadShot.h"
#include "reader/Finding.h"

#include <QByteArray>
#include <string_view>

/// What a Rodeon script had the head do.
struct ClaussScript {
    /// One shot for each "op_shoot", at the angles last set before it.
    QVector<HeadShot> shots;
    /// False when an angle was not a number; it was taken as 0.
    bool valid = true;
};

/// Key and value at the start of a script line; views into that line.
struct ClaussEntry {
    std::string_view key;
    std::string_view value;
};

/// Splits \a line (without its line end) as "([\w\d-]*)=?([\w\d-]*)" does at its start, a word
/// character being any Latin-1 letter, number, mark or underscore. With \a fullAngles the value
/// takes dots too.
ClaussEntry splitClaussLine(std::string_view line, bool fullAngles = false);

/// Reads a script from the bytes of its file: Latin-1, carriage returns dropped wherever they
/// stand, ending at the first zero byte. Angles are degrees; \a fullAngles keeps their decimals,
/// which the format otherwise drops. Bad angles count as 0 and reading goes on.
ClaussScript readClaussScript(
    QByteArray bytes, bool fullAngles = false, const FindingSink &findings = {});
