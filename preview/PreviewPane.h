// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "preview/PreviewScene.h"

#include <QLabel>
#include <QPointer>
#include <QSlider>

class QScrollArea;

/// Shows a preview in a page's scroll area, at the zoom of the page's slider.
class PreviewPane {
public:
    PreviewPane() = default;
    PreviewPane(QScrollArea *area, const QSlider *zoom);

    /// Draws \a scene anew. An empty scene leaves the area empty.
    void show(const PreviewScene &scene, const ThumbnailSource &thumbnails);

    /// The label that shows the drawing, in the scroll area.
    QLabel *label() const { return m_label; }

private:
    QPointer<QLabel> m_label;
    QPointer<const QSlider> m_zoom;
};
