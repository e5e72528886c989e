// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Progress.h"

#include <QImage>
#include <QString>
#include <QVector>

/// The sphere as the six faces of a cube, in several sizes, each cut into tiles.
class CubeTiles {
public:
    /// Pixels a side of a tile.
    static constexpr int kSide = 512;

    /// All of the sphere would have \a fullWidth pixels across.
    explicit CubeTiles(double fullWidth);

    /// Pixels of the largest faces: as many a degree in their middle as the picture has.
    int cubeSize() const { return m_sizes.constLast(); }
    int levels() const { return m_sizes.size(); }

    /// Writes the tiles of \a picture, an equirectangular one of the format RGB32 with \a top
    /// pixels missing above it, in \a jobs threads: \a folder/LEVEL/FACEROW_COLUMN.jpg, level 1
    /// being the smallest. Empty when done or, then with \a isCancelled, cancelled by \a progress,
    /// else what went wrong, a sentence.
    QString write(const QString &folder, QImage picture, double top, int jobs,
        const Progress &progress, bool *isCancelled) const;

private:
    double m_fullWidth;
    /// Of the faces, from the smallest level to the largest.
    QVector<int> m_sizes;
};
