// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QStringList>

struct ProjectRecord;

enum class MapFormat { Png, Svg };

/// The map of \a record as a picture file \a width pixels wide, with legend and, where the pictures
/// are at hand, thumbnails. Needs a QGuiApplication, no display. Empty when it cannot be made (a
/// width that asks for more memory than there is). The files that are there but give no picture are
/// added to \a damaged, where it is not null.
QByteArray mapFile(
    const ProjectRecord &record, MapFormat format, int width, QStringList *damaged = nullptr);
