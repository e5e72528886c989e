// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/makeshooting/Camera.h"
#include "apps/makeshooting/Rotation.h"
#include "apps/makeshooting/Scene.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QVector>
#include <optional>

namespace makeshooting {

enum class HeadFormat { Papywizard, Clauss, Gigapan, VRDrive2 };

enum class Mounting {
    Landscape,
    PortraitByTag, ///< camera turned; the pictures are stored lying and tagged with orientation 6
    PortraitByPixels, ///< camera turned; the pictures are stored upright
};

/// In which order the locations of a grid are pictured.
enum class Order {
    Columns, ///< column by column from the left, each from top to bottom
    RowsDown, ///< row by row from the top, each from left to right
    RowsUp, ///< row by row from the bottom, each from left to right
    ColumnsLeft, ///< column by column from the right, each from top to bottom
    SerpentineUp, ///< row by row from the bottom, alternating to the right and to the left
};

/// Smallest and largest position of a head in degrees.
struct Range {
    double from = 0;
    double to = 0;
};

/// Where a head looks, in degrees.
struct Position {
    double yaw = 0;
    double pitch = 0;
};

/// What a head leaves behind: a name for it and its bytes. Gigapan heads leave nothing.
struct HeadFile {
    QString name;
    QByteArray content;
};

/// What is wanted. Angles in degrees, yaw to the right, pitch upward.
struct ShootingOptions {
    HeadFormat format = HeadFormat::Papywizard;
    int rows = 3;
    int columns = 12;
    /// Rows and columns as the full sphere demands, instead of a grid.
    bool sphere = false;
    Order order = Order::Columns;
    /// Part of a picture's width and height that it shares with its neighbour, in percent.
    double overlap = 30;
    /// The columns go once round, whatever the overlap.
    bool fullTurn = false;
    std::optional<Range> yawRange;
    std::optional<Range> pitchRange;
    /// Positions are multiples of this; 0: what the format's heads do (1 for Clauss, 0.01 for XML).
    double headStep = 0;
    /// The positions of a given file, one a picture, instead of a grid or sphere, and the file.
    QVector<Position> positions;
    HeadFile givenFile;

    /// Sensor of a camera held level, in pixels.
    QSize size{900, 600};
    Lens lens = Lens::Rectilinear;
    /// Millimetres as on 36 x 24 mm film; the lens's own focal length is this by the crop factor.
    double focal = 20;
    double crop = 1;
    Mounting mounting = Mounting::Landscape;
    int brackets = 1;
    /// Stops from one picture of a stack to the next; the middle one is exposed right.
    double bracketStep = 2;
    double noise = 0;

    /// Pictures before and after the shooting that belong to no location.
    int ignored = 0;
    int leftOver = 0;

    /// How far the camera is from where the head says: standard deviation about each of its axes.
    double headError = 0;
    /// The same for all pictures.
    double yawOffset = 0;
    double pitchOffset = 0;
    /// Percent by which the lens's focal length is longer than stated.
    double focalError = 0;
    /// See Camera::distortion.
    double distortion = 0;

    /// The scene's detail is chosen to suit the camera.
    SceneOptions scene;
};

/// One picture, planned.
struct Picture {
    QString name;
    /// From 0 in the order of shooting; -1 for one that belongs to no location.
    int location = -1;
    /// From 0 within the location.
    int bracket = 0;
    /// Where the head says it is, in degrees.
    double nominalYaw = 0;
    double nominalPitch = 0;
    /// Where it truly is, as the picture is stored.
    Rotation rotation;
    /// Stops from the base exposure.
    double ev = 0;
    QDateTime time;
};

struct Shooting {
    ShootingOptions options;
    /// The true one, of the stored pictures.
    Camera camera;
    QVector<Picture> pictures;
};

/// Plans every picture. Pictures of one location share the head's error.
Shooting planShooting(const ShootingOptions &options);

/// The camera as stated, without errors: by it the head is steered.
Camera nominalCamera(const ShootingOptions &options);

/// The camera that takes the pictures.
Camera trueCamera(const ShootingOptions &options);

/// How many pictures belong to the shooting; tells at once, however many they are.
double pictureCount(const ShootingOptions &options);

/// Digits after the point that positions of this shooting need.
int decimalsOf(const ShootingOptions &options);

/// Seconds that a picture of the base exposure is exposed; f/8 at ISO 100.
constexpr double kBaseTime = 0.01;
constexpr double kFNumber = 8;
constexpr int kIso = 100;

} // namespace makeshooting
