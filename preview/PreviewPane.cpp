// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/PreviewPane.h"

#include <QScrollArea>

#include <utility>

namespace {

// Pictures drawn in one go: after a change of the user's, who waits for it, and while the window
// has to stay free for other things. A host may take half a millisecond for a thumbnail.
constexpr int kAtOnce = 500;
constexpr int kAtATime = 32;

} // namespace

PreviewPane::PreviewPane(QScrollArea *area, const QSlider *zoom, ThumbnailSource thumbnails)
    : m_label(new QLabel)
    , m_zoom(zoom)
    , m_thumbnails(std::move(thumbnails))
{
    area->setWidgetResizable(false);
    area->setWidget(m_label);
}

void PreviewPane::show(const PreviewScene &scene, int read)
{
    if (!m_label || !m_zoom)
        return;
    m_next.stop();
    const QSize size = previewSize(scene, m_zoom->value());
    if (size.isEmpty()) {
        m_preview = {};
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

    m_preview = GrowingPreview(scene, {pixels, density}, m_label->palette());
    m_read = read;
    QPixmap canvas = m_preview.start(read, kAtOnce, m_thumbnails);
    canvas.setDevicePixelRatio(density);
    m_label->setPixmap(canvas);
    m_label->resize(size);
    drawLater();
}

void PreviewPane::addPictures(int read)
{
    m_read = read;
    if (!isBusy())
        drawMore();
}

void PreviewPane::timerEvent(QTimerEvent *)
{
    drawMore();
}

void PreviewPane::drawMore()
{
    if (m_label && m_preview.isBehind(m_read)) {
        // Taken away from the label, so that it is drawn on and not on a copy.
        QPixmap canvas = m_label->pixmap(Qt::ReturnByValue);
        m_label->clear();
        const double density = canvas.devicePixelRatioF();
        canvas.setDevicePixelRatio(1);
        m_preview.grow(canvas, m_read, kAtATime, m_thumbnails);
        canvas.setDevicePixelRatio(density);
        m_label->setPixmap(canvas);
    }
    drawLater();
}

void PreviewPane::drawLater()
{
    if (!m_label || !m_preview.isBehind(m_read))
        m_next.stop();
    else if (!isBusy())
        m_next.start(0, this);
}
