// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/window/HeadFile.h"

#include <QStringList>
#include <QVector>

class QMimeData;
class QWidget;

/// Files that were dropped, sorted out: a folder stands for the pictures in it and the shootings
/// that heads wrote there.
struct DroppedFiles {
    /// Heads' files, good ones and bad.
    QVector<HeadFile> heads;
    /// In the order dropped, those of a folder sorted by name.
    QStringList pictures;
    /// Why the last thing that is neither was left out, a sentence; empty when there is none.
    QString refusal;

    bool isEmpty() const { return heads.isEmpty() && pictures.isEmpty(); }
    /// The last head's file that is of use; null when there is none.
    const HeadFile *shooting() const;
};

/// Local files and folders of \a data.
QStringList localPaths(const QMimeData &data);

DroppedFiles sortOut(const QStringList &paths);

/// Hands \a files to \a page as if they had been dropped on it. False when it does not take them.
bool dropOn(QWidget *page, const QStringList &files);
