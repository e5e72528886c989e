// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PictureFacts.h"

#include <QStringList>
#include <QVector>
#include <optional>

/// The pictures of an import, in the import's order.
struct PictureList {
    /// Full paths.
    QStringList paths;
    /// What is known of each; empty until readPictures().
    QVector<PictureFacts> facts;

    PictureTable table() const;
};

/// The paths that \a list (a file, or "-" for standard input) names, one a line. Nothing, and a
/// sentence in \a problem, when it cannot be read.
std::optional<QStringList> pathsFrom(const QString &list, QString *problem);

/// The full paths of \a named, where a folder stands for the pictures in it, sorted by name.
/// A folder without pictures makes a sentence in \a problems.
QStringList picturesNamed(const QStringList &named, QStringList *problems);

/// Reads what the pictures' files tell, showing progress when it takes long. A picture that cannot
/// be read, or is named twice, makes a sentence in \a problems.
void readPictures(PictureList *pictures, QStringList *problems);
