// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PictureFacts.h"
#include "apps/panohost/window/HeadFile.h"
#include "host/ProjectRecord.h"

/// A line of an import's summary.
struct RecordFigure {
    QString label;
    QString value;
};

/// What a record holds and where its lens came from: from \a pictures, \a file or the user's hand.
QVector<RecordFigure> figuresOf(
    const ProjectRecord &record, const PictureTable &pictures, const HeadFile &file);

/// What can hardly be right with a record of \a pictures, a sentence each.
QStringList doubtsAbout(const ProjectRecord &record, const PictureTable &pictures);
