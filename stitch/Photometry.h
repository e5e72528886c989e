// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "stitch/PtoReader.h"

#include <QByteArray>

/// How the work of vig_optimize on \a project is called, its files in \a folder.
struct PhotometryCall {
    QByteArray script;
    QStringList arguments;
};
PhotometryCall photometryCall(const PtoProject &project, const QVector<PictureLight> &light,
    bool vignettingOnly, const QString &input, const QString &result);

/// Checks what vig_optimize has found, by its lines too: how well colours agree where pictures
/// overlap.
class PhotometryCheck {
public:
    void readLine(const QByteArray &line);

    /// What \a text, the tool's result, makes of \a light, brightness as a whole unchanged.
    /// \a light itself where the tool found nothing that helps, or what no lens and no camera does.
    QVector<PictureLight> accepted(
        const QByteArray &text, const QVector<PictureLight> &light, const QString &folder) const;

private:
    double m_first = -1;
    double m_last = -1;
};
