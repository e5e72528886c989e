// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/map/MapLayout.h"

#include <QColor>
#include <QCoreApplication>
#include <functional>

class QFontMetricsF;
class QPainter;
class QPalette;

/// Shows a part of the map in a rectangle of a painter.
struct MapWindow {
    /// In the painter's units.
    QRectF frame;
    /// What lies in the middle of the frame.
    QPointF centre;
    /// Painter's units a unit of the map.
    double scale = 1;

    QPointF toFrame(const QPointF &point) const
    {
        return frame.center() + (point - centre) * scale;
    }
    QPointF toMap(const QPointF &point) const { return centre + (point - frame.center()) / scale; }

    /// All of \a extent, as large as it goes.
    static MapWindow fitting(const QRectF &extent, const QRectF &frame);
};

struct MapColours {
    QColor ground;
    QColor grid;
    QColor text;
    QColor cell;
    bool isDark = false;

    static MapColours of(const QPalette &palette);
    /// Colour of links of \a kind, told apart by colour-blind people too.
    QColor link(int kind) const;
};

/// An upright picture of a location about \a side of the painter's units large; null when there is
/// none (yet).
using ThumbnailSource = std::function<QImage(int location, int side)>;

enum class MapQuality {
    /// For a moment, while the window moves.
    Draft,
    Fine,
};

/// Draws the map of a record: its locations, joined by its links.
class RecordMap {
    Q_DECLARE_TR_FUNCTIONS(RecordMap)
public:
    /// \a first tells of the record's first picture, where it is at hand.
    explicit RecordMap(
        const ProjectRecord &record, const std::optional<PictureFacts> &first = std::nullopt);

    const MapLayout &layout() const { return m_layout; }

    /// Where the map itself may lie in \a whole: room is left for the axes' labels.
    static QRectF frameIn(const QRectF &whole, const QFontMetricsF &font);
    /// Draws what \a window shows, and the axes' labels beside it.
    void paint(QPainter &painter, const MapWindow &window, const MapColours &colours,
        const ThumbnailSource &thumbnails, MapQuality quality = MapQuality::Fine) const;
    /// Frames \a location.
    void paintMark(
        QPainter &painter, const MapWindow &window, const QColor &colour, int location) const;

    /// Height of the legend in lines \a width long.
    double legendHeight(double width, const QFontMetricsF &font) const;
    void paintLegend(QPainter &painter, const QRectF &place, const MapColours &colours) const;

    /// The location's number, direction and pictures, a line each.
    QString describe(int location) const;
    /// Locations, pictures and links in one line.
    QString summary() const;

    static QString linkName(int kind);

private:
    struct LegendEntry {
        QPointF at;
        QString text;
        int kind;
    };
    QVector<LegendEntry> legend(double width, const QFontMetricsF &font, double *height) const;
    void paintAxes(QPainter &painter, const MapWindow &window, const MapColours &colours) const;
    void paintLinks(QPainter &painter, const MapWindow &window, const MapColours &colours) const;
    void paintPlaces(QPainter &painter, const MapWindow &window, const MapColours &colours,
        const ThumbnailSource &thumbnails) const;
    bool isCrowded(const MapWindow &window) const;
    void paintPlace(QPainter &painter, const QRectF &cell, const MapColours &colours, int location,
        const QImage &picture) const;

    QList<QStringList> m_groups;
    MapLayout m_layout;
};
