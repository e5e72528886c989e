// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "preview/PreviewDrawing.h"

#include <QBasicTimer>
#include <QLabel>
#include <QObject>
#include <QPointer>
#include <QSlider>

class QScrollArea;

/// Shows a preview in a page's scroll area, at the zoom of the page's slider.
///
/// Pictures are drawn at once as long as they are few; of thousands the rest follows in small steps
/// between the window's other events.
class PreviewPane : public QObject { // clazy:exclude=missing-qobject-macro
public:
    PreviewPane(QScrollArea *area, const QSlider *zoom, ThumbnailSource thumbnails);

    /// Draws \a scene anew with its first \a read pictures. An empty scene leaves the area empty.
    void show(const PreviewScene &scene, int read);

    /// Draws what has been read since, where \a read is the number of all pictures read by now.
    void addPictures(int read);

    /// The label that shows the drawing, in the scroll area.
    QLabel *label() const { return m_label; }
    /// Whether there are pictures still to be drawn.
    bool isBusy() const { return m_next.isActive(); }

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void drawMore();
    void drawLater();

    QPointer<QLabel> m_label;
    QPointer<const QSlider> m_zoom;
    ThumbnailSource m_thumbnails;
    GrowingPreview m_preview;
    /// Pictures that have been read.
    int m_read = 0;
    QBasicTimer m_next;
};
