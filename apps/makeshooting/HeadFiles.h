// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/makeshooting/Shooting.h"

namespace makeshooting {

/// The head's file of \a shooting with its nominal positions: the given one, "shooting.xml" or
/// "script.txt"; without a name for heads that leave none.
HeadFile headFile(const Shooting &shooting);

/// What a given head's file says of its shooting.
struct GivenHeadFile {
    HeadFormat format = HeadFormat::Papywizard;
    HeadFile file;
    QVector<Position> positions;
    /// Millimetres as on 36 x 24 mm film; 0 or less: the file does not say.
    double focal = 0;
    double crop = 1;
    int brackets = 1;
    bool fisheye = false;
    bool portrait = false;
};

/// Reads an XML shooting file or a Clauss script, whichever the file at \a path is. Empty, with the
/// reason in \a error, when it cannot be read or holds no shots.
std::optional<GivenHeadFile> readHeadFile(const QString &path, QString *error);

} // namespace makeshooting
