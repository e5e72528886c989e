// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/map/RecordMap.h"

#include <QCache>
#include <QDeadlineTimer>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <memory>

/// The map of a record to look around in.
///
/// Wheel and +/- zoom, dragging and the arrow keys move, 0 shows all again. The location under the
/// mouse, or the one that Page Up and Page Down step through, is named.
class MapView final : public QWidget {
    Q_OBJECT
public:
    /// An upright thumbnail of the picture at a path; null when there is none. Called in the
    /// window's thread, for the pictures in view only.
    using PictureSource = std::function<QImage(const QString &path)>;

    explicit MapView(QWidget *parent = nullptr);
    ~MapView() override;

    void setRecord(const ProjectRecord &record, const std::optional<PictureFacts> &first,
        PictureSource pictures);
    /// Null before a record is set.
    const RecordMap *map() const { return m_map.get(); }
    const MapWindow &shownPart() const { return m_window; }
    /// The location that is named, -1: none.
    int marked() const { return m_marked; }
    /// Not all pictures in view are shown yet.
    bool isLoading() const { return m_hasMoreToLoad; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    void showAll();
    /// Keeps \a fixed, a point of the widget, where it is.
    void zoom(double factor, const QPointF &fixed);

protected:
    void changeEvent(QEvent *event) override;
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void layOut();
    void move(const QPointF &pixels);
    void redraw();
    /// Redraws in a hurry, and well once nothing moves any more.
    void redrawMoving();
    void mark(int location);
    void stepMark(int step);
    double fittingScale() const;
    void drawLayer();
    QImage thumbnail(int location, int side);

    std::unique_ptr<RecordMap> m_map;
    QList<QStringList> m_groups;
    PictureSource m_pictures;
    MapWindow m_window;
    QRectF m_legend;
    /// Everything but the mark, as it was drawn last.
    QPixmap m_layer;
    bool m_layerIsOld = true;
    MapQuality m_quality = MapQuality::Fine;
    QTimer m_rest;
    bool m_showsAll = true;
    int m_marked = -1;
    QPointF m_dragged;
    bool m_isDragging = false;

    struct Sized {
        int side = 0;
        QImage picture;
    };
    /// By location. The cost is in bytes.
    QCache<int, Sized> m_thumbnails;
    bool m_hasMoreToLoad = false;
    QDeadlineTimer m_loadUntil;
};
