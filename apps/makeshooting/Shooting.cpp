// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/makeshooting/Shooting.h"

#include "apps/makeshooting/Noise.h"

#include <QtMath>

namespace makeshooting {

namespace {

/// Degrees that a level view of the panorama sees in one picture.
QSizeF viewOf(const ShootingOptions &options)
{
    const Camera camera = nominalCamera(options);
    const QSizeF view(camera.horizontalAngle(), camera.verticalAngle());
    return options.mounting == Mounting::PortraitByTag ? view.transposed() : view;
}

double stepOf(const ShootingOptions &options)
{
    if (options.headStep > 0)
        return options.headStep;
    switch (options.format) {
    case HeadFormat::Clauss:
        return 1;
    case HeadFormat::Papywizard:
    case HeadFormat::VRDrive2:
        return 0.01;
    case HeadFormat::Gigapan:
        break;
    }
    return 1e-6;
}

/// \a count values over \a range, or \a step apart round 0.
QVector<double> spread(int count, double step, const std::optional<Range> &range)
{
    QVector<double> values;
    for (int i = 0; i < count; ++i) {
        if (!range)
            values << (i - (count - 1) / 2.0) * step;
        else if (count == 1)
            values << (range->from + range->to) / 2;
        else
            values << range->from + (range->to - range->from) * i / (count - 1);
    }
    return values;
}

/// Place in a grid, row 0 at the top and column 0 on the left.
struct GridCell {
    int column = 0;
    int row = 0;
};

/// The cell that is pictured as number \a index.
GridCell cellAt(Order order, int rows, int columns, int index)
{
    switch (order) {
    case Order::Columns:
        return {index / rows, index % rows};
    case Order::RowsDown:
        return {index % columns, index / columns};
    case Order::RowsUp:
        return {index % columns, rows - 1 - index / columns};
    case Order::ColumnsLeft:
        return {columns - 1 - index / rows, index % rows};
    case Order::SerpentineUp: {
        const int climb = index / columns;
        const int along = index % columns;
        return {climb % 2 == 0 ? along : columns - 1 - along, rows - 1 - climb};
    }
    }
    return {};
}

QVector<Position> gridPositions(const ShootingOptions &options)
{
    const double share = 1.0 - options.overlap / 100.0;
    const QSizeF view = viewOf(options);
    const double yawStep = options.fullTurn ? 360.0 / options.columns : view.width() * share;
    const QVector<double> yaws = spread(options.columns, yawStep, options.yawRange);
    const QVector<double> pitches = spread(options.rows, view.height() * share, options.pitchRange);
    QVector<Position> positions;
    for (int i = 0; i < options.rows * options.columns; ++i) {
        const GridCell cell = cellAt(options.order, options.rows, options.columns, i);
        positions.append({yaws[cell.column], pitches[options.rows - 1 - cell.row]});
    }
    return positions;
}

struct SphereRow {
    double pitch = 0;
    int columns = 1;
};

/// Rows from the zenith to the nadir; in each as many pictures as its edge towards the horizon
/// needs.
QVector<SphereRow> sphereRows(const ShootingOptions &options)
{
    const double share = 1.0 - options.overlap / 100.0;
    const QSizeF view = viewOf(options);
    const int gaps = std::max(1, qCeil(180.0 / (view.height() * share)));
    const double step = 180.0 / gaps;
    QVector<SphereRow> rows;
    rows.append({90, 1});
    for (int row = gaps - 1; row > 0; --row) {
        const double pitch = -90.0 + step * row;
        const double edge = std::max(0.0, std::abs(pitch) - step / 2);
        const double round = 360.0 * std::cos(qDegreesToRadians(edge));
        rows.append({pitch, std::max(3, qCeil(round / (view.width() * share)))});
    }
    rows.append({-90, 1});
    return rows;
}

QVector<Position> spherePositions(const ShootingOptions &options)
{
    QVector<Position> positions;
    const QVector<SphereRow> rows = sphereRows(options);
    for (const SphereRow &row : rows) {
        for (int column = 0; column < row.columns; ++column)
            positions.append({360.0 * column / row.columns, row.pitch});
    }
    return positions;
}

/// One position for each picture that belongs to the shooting.
QVector<Position> picturePositions(const ShootingOptions &options)
{
    if (!options.positions.isEmpty())
        return options.positions;
    const double step = stepOf(options);
    const QVector<Position> locations
        = options.sphere ? spherePositions(options) : gridPositions(options);
    QVector<Position> positions;
    for (const Position &location : locations) {
        const Position steered{
            std::round(location.yaw / step) * step, std::round(location.pitch / step) * step};
        positions += QVector<Position>(options.brackets, steered);
    }
    return positions;
}

/// What the head does to each axis at \a location, in radians.
Vector headErrorAt(const ShootingOptions &options, int location)
{
    const quint32 hash = scramble(options.scene.seed, 0x4ead, location);
    const double deviation = qDegreesToRadians(options.headError);
    const auto axis = [&](int which) {
        return deviation * static_cast<double>(bellCurve(scramble(hash, which)));
    };
    return {axis(0), axis(1), axis(2)};
}

Rotation trueRotation(const ShootingOptions &options, const Position &position, int location)
{
    const double roll = options.mounting == Mounting::PortraitByTag ? 90 : 0;
    const Rotation steered = Rotation::fromAngles(
        {position.yaw + options.yawOffset, position.pitch + options.pitchOffset, roll});
    return steered * Rotation::fromAxis(headErrorAt(options, location));
}

} // namespace

Camera nominalCamera(const ShootingOptions &options)
{
    Camera camera;
    camera.size
        = options.mounting == Mounting::PortraitByPixels ? options.size.transposed() : options.size;
    camera.lens = options.lens;
    camera.focal = pixelFocal(camera.size, options.focal);
    return camera;
}

Camera trueCamera(const ShootingOptions &options)
{
    Camera camera = nominalCamera(options);
    camera.focal *= 1.0 + options.focalError / 100.0;
    camera.distortion = options.distortion;
    return camera;
}

double pictureCount(const ShootingOptions &options)
{
    if (!options.positions.isEmpty())
        return options.positions.size();
    double locations = static_cast<double>(options.rows) * options.columns;
    if (options.sphere) {
        locations = 0;
        const QVector<SphereRow> rows = sphereRows(options);
        for (const SphereRow &row : rows)
            locations += row.columns;
    }
    return locations * options.brackets;
}

int decimalsOf(const ShootingOptions &options)
{
    double step = stepOf(options);
    int decimals = 0;
    while (decimals < 6 && std::abs(step - std::round(step)) > 1e-9) {
        step *= 10;
        ++decimals;
    }
    return decimals;
}

Shooting planShooting(const ShootingOptions &options)
{
    Shooting shooting;
    shooting.options = options;
    shooting.camera = trueCamera(options);
    shooting.options.scene.detail = 1.0 / nominalCamera(options).focal;

    QDateTime time(QDate(2024, 6, 21), QTime(10, 0));
    const auto add = [&](Picture picture) {
        picture.name = QStringLiteral("IMG_%1.jpg")
                           .arg(shooting.pictures.size() + 1, 4, 10, QLatin1Char('0'));
        time = time.addSecs(picture.bracket == 0 ? 4 : 1);
        picture.time = time;
        shooting.pictures.append(picture);
    };
    const auto addStrays = [&](int count, int firstLocation) {
        for (int i = 0; i < count; ++i) {
            Picture stray;
            const quint32 hash = scramble(options.scene.seed, 0x57a4, firstLocation + i);
            const Position position{360.0 * static_cast<double>(fraction(hash)),
                20.0 * static_cast<double>(fraction(hash, 1))};
            stray.rotation = trueRotation(options, position, firstLocation + i);
            add(stray);
        }
    };

    addStrays(options.ignored, -1 - options.ignored);
    const QVector<Position> positions = picturePositions(options);
    for (int i = 0; i < positions.size(); ++i) {
        Picture picture;
        picture.location = i / options.brackets;
        picture.bracket = i % options.brackets;
        picture.nominalYaw = positions[i].yaw;
        picture.nominalPitch = positions[i].pitch;
        picture.rotation = trueRotation(options, positions[i], picture.location);
        picture.ev = (picture.bracket - (options.brackets - 1) / 2.0) * options.bracketStep;
        add(picture);
    }
    addStrays(options.leftOver, positions.size());
    return shooting;
}

} // namespace makeshooting
