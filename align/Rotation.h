// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Placement.h"

#include <Eigen/Core>

namespace align {

/// Right, up and forward: of a camera as its picture is stored, or of the world.
using Vector = Eigen::Vector3d;
/// A camera's axes in the world, or a turn of the world.
using Rotation = Eigen::Matrix3d;

/// Ry(yaw) Rx(pitch) Rz(roll).
Rotation rotationOf(const Placement &place);
/// The placement that rotationOf() makes \a rotation of.
Placement placementOf(const Rotation &rotation);

/// The turn round \a axis by its length in radians (Rodrigues' formula).
Rotation turnBy(const Vector &axis);
/// The other way: at most pi long.
Vector axisOf(const Rotation &turn);
/// Radians, 0 to pi.
double angleOf(const Rotation &turn);

/// Finds the turn that brings one set of directions onto another best, by least squares (Kabsch).
class TurnFit {
public:
    void add(const Vector &from, const Vector &to, double weight = 1)
    {
        m_sum += weight * to * from.transpose();
    }
    /// The same for all axes of two cameras.
    void add(const Rotation &from, const Rotation &to) { m_sum += to * from.transpose(); }
    Rotation turn() const;

private:
    Rotation m_sum = Rotation::Zero();
};

} // namespace align
