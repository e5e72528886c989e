// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PictureFacts.h"
#include "host/ProjectRecord.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QVector>
#include <optional>

/// A location on the map.
struct MapPlace {
    /// x to the right and y downward, in degrees; in a grid ten a row. Not-a-number when the record
    /// gives no place.
    QPointF at;
    /// Clockwise turn of the upright picture, degrees.
    double roll = 0;
    int pictures = 0;

    bool isKnown() const;
};

/// The links of one kind, as pairs of places.
struct MapLinks {
    int kind = 0;
    /// Links in the record.
    int count = 0;
    QVector<QPair<int, int>> lines;
};

/// Where the locations of a record lie on a flat map and what joins them.
struct MapLayout {
    /// One a location, in the record's order.
    QVector<MapPlace> places;
    /// By kind, ascending.
    QVector<MapLinks> links;
    /// Width over height of an upright picture.
    double aspect = 1.5;
    /// From a location to its neighbours across and down, as a rule.
    QSizeF spacing{10, 10};
    /// What the map covers; never empty.
    QRectF extent;
    /// After so much the map begins anew.
    double turn = 360;
    /// Of a record without angles: the size of its grid.
    int columns = 0;
    int rows = 0;
    /// In words, why there are locations without a place; empty when all have one.
    QString problem;

    bool isGrid() const { return columns > 0; }
    /// The size at which a picture stands on the map: small enough to show what joins it
    /// to its neighbours.
    QSizeF cell() const;
    /// The location whose picture lies at \a point; -1 when there is none.
    int locationAt(const QPointF &point) const;
};

/// \a first tells of the record's first picture, where it is at hand.
MapLayout mapLayout(const ProjectRecord &record, const std::optional<PictureFacts> &first);
