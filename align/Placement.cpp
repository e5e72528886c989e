// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Placement.h"

#include "align/GridShape.h"
#include "gigapan/GigapanToSPP.h"

#include <QCoreApplication>
#include <QtMath>
#include <cmath>

namespace {

struct PlacementTexts {
    Q_DECLARE_TR_FUNCTIONS(Placement)
};

double wrapped(double angle)
{
    return std::remainder(angle, 360.0);
}

std::optional<QVector<Placement>> recordedPlaces(const ProjectRecord &record, QString *problem)
{
    const int groups = record.groups.size();
    const int angles = record.yaws.size();
    if (angles % groups != 0 || record.pitches.size() != angles
        || (!record.rolls.isEmpty() && record.rolls.size() != angles)) {
        *problem
            = PlacementTexts::tr("the record has %1 yaws, %2 pitches and %3 rolls for %4 locations")
                  .arg(angles)
                  .arg(record.pitches.size())
                  .arg(record.rolls.size())
                  .arg(groups);
        return std::nullopt;
    }
    QVector<Placement> places;
    places.reserve(groups);
    for (int shot = 0; shot < angles; shot += angles / groups) {
        const Placement place{
            wrapped(qRadiansToDegrees(double(record.yaws[shot]))),
            qRadiansToDegrees(double(record.pitches[shot])),
            record.rolls.isEmpty() ? 0.0 : qRadiansToDegrees(double(record.rolls[shot])),
        };
        if (!std::isfinite(place.yaw + place.pitch + place.roll)) {
            *problem
                = PlacementTexts::tr("the angles of location %1 are no numbers").arg(places.size());
            return std::nullopt;
        }
        places.append(place);
    }
    return places;
}

/// Row 0 is the top one; the grid is centred on yaw and pitch 0.
std::optional<QVector<Placement>> gridPlaces(
    const ProjectRecord &record, const PictureOptics &lens, bool turned, QString *problem)
{
    const auto grid = gridShapeOf(record);
    if (!grid) {
        *problem = PlacementTexts::tr("the record has %1 locations and no grid of %2 rows")
                       .arg(record.groups.size())
                       .arg(record.layoutRows);
        return std::nullopt;
    }
    GigapanLayout layout;
    layout.mode = record.layoutMode;
    layout.rows = grid->rows;
    layout.columns = grid->columns;
    const GridSteps steps = stepsOf(*grid, lens, turned);

    QVector<Placement> places(record.groups.size());
    for (int row = 0; row < layout.rows; ++row) {
        for (int column = 0; column < layout.columns; ++column) {
            places[locationAt(layout, row, column)] = {
                wrapped((column - (layout.columns - 1) / 2.0) * steps.column),
                ((layout.rows - 1) / 2.0 - row) * steps.row,
                0,
            };
        }
    }
    return places;
}

} // namespace

std::optional<QVector<Placement>> placementsOf(
    const ProjectRecord &record, const PictureOptics &first, bool turned, QString *problem)
{
    if (record.groups.isEmpty()) {
        *problem = PlacementTexts::tr("the record has no locations");
        return std::nullopt;
    }
    return record.yaws.isEmpty() ? gridPlaces(record, first, turned, problem)
                                 : recordedPlaces(record, problem);
}
