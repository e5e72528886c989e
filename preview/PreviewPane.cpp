// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/PreviewPane.h"

#include <QPainter>
#include <QScrollArea>

PreviewPane::PreviewPane(QScrollArea *area, const QSlider *zoom)
    : m_label(new QLabel)
    , m_zoom(zoom)
{
    area->setWidgetResizable(false);
    area->setWidget(m_label);
}

void PreviewPane::show(const PreviewScene &scene, const ThumbnailSource &thumbnails)
{
    if (!m_label || !m_zoom)
        return;
    const QSize size = previewSize(scene, m_zoom->value());
    if (size.isEmpty()) {
        m_label->clear();
        m_label->resize(0, 0);
        return;
    }
    // On a dense screen the drawing gets the screen's own pixels, within the same limits.
    PreviewScene onScreen = scene;
    onScreen.width = size.width() * m_label->devicePixelRatioF();
    onScreen.height = size.height() * m_label->devicePixelRatioF();
    const QSize pixels = previewSize(onScreen, 100);
    const double density = double(pixels.width()) / size.width();
    QPixmap canvas(pixels);
    {
        QPainter painter(&canvas);
        paintPreview(painter, scene, {pixels, density}, thumbnails, m_label->palette());
    }
    canvas.setDevicePixelRatio(density);
    m_label->setPixmap(canvas);
    m_label->resize(size);
}
