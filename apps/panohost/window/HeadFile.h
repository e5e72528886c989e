// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

enum class HeadFileFormat {
    /// The head has no file.
    None,
    /// An XML shooting file.
    Shooting,
    /// A Rodeon script.
    Script,
};

/// What a head's file tells, looked at before and beside the page that takes it.
struct HeadFile {
    QString path;
    HeadFileFormat format = HeadFileFormat::None;
    int shots = 0;
    /// Millimetres as on 36 x 24 mm film; not positive when the file gives none.
    double focal = -1;
    bool isFisheye = false;
    /// Angles whose decimals the format drops, and the first of them.
    int cutAngles = 0;
    qint64 firstCutLine = 0;
    QString firstCutValue;
    /// One or two sentences on why the file is of no use; empty when it is.
    QString problem;

    QString name() const;
};

/// The format that the name of \a path tells.
HeadFileFormat headFileFormat(const QString &path);

/// Reads the file at \a path as one of \a format, whatever its name.
HeadFile readHeadFile(const QString &path, HeadFileFormat format);
