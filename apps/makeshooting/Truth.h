// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/makeshooting/Shooting.h"

#include <QByteArray>

namespace makeshooting {

/// The truth about a shooting as JSON: "pictures" with "name", "yaw", "pitch", "roll" (degrees, as
/// Angles), "nominal_yaw", "nominal_pitch", "ev" (stops from the base exposure), "location" (-1:
/// belongs to none) and "bracket"; "focal_px" and "focal_35mm" as they are, "nominal_focal_35mm" as
/// stated, "lens", "distortion_b", "width", "height" of the stored pictures, "format", "brackets"
/// and "scene".
QByteArray truthJson(const Shooting &shooting);

/// The same as a project for the Hugin tools, beside the pictures; strays are left out.
QByteArray truthPto(const Shooting &shooting);

} // namespace makeshooting
