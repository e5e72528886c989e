// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Rotation.h"

#include <Eigen/Geometry>
#include <Eigen/SVD>
#include <QtMath>
#include <algorithm>
#include <cmath>

namespace align {

namespace {

} // namespace

Rotation rotationOf(const Placement &place)
{
    using Eigen::AngleAxisd;
    // Yaw to the right and pitch upward turn round the axes as here; a clockwise roll does not.
    return (AngleAxisd(qDegreesToRadians(place.yaw), Vector::UnitY())
        * AngleAxisd(-qDegreesToRadians(place.pitch), Vector::UnitX())
        * AngleAxisd(-qDegreesToRadians(place.roll), Vector::UnitZ()))
        .toRotationMatrix();
}

Placement placementOf(const Rotation &r)
{
    // Looking straight up or down, yaw and roll are one turn.
    constexpr double kPole = 1 - 1e-12;
    if (std::abs(r(1, 2)) > kPole)
        return {qRadiansToDegrees(std::atan2(-r(2, 0), r(0, 0))), std::copysign(90.0, r(1, 2)), 0};
    return {qRadiansToDegrees(std::atan2(r(0, 2), r(2, 2))), qRadiansToDegrees(std::asin(r(1, 2))),
        qRadiansToDegrees(std::atan2(-r(1, 0), r(1, 1)))};
}

Rotation turnBy(const Vector &axis)
{
    const double angle = axis.norm();
    if (angle < 1e-12)
        return Rotation::Identity();
    return Eigen::AngleAxisd(angle, axis / angle).toRotationMatrix();
}

Vector axisOf(const Rotation &turn)
{
    const Eigen::AngleAxisd angleAxis(turn);
    return angleAxis.angle() * angleAxis.axis();
}

double angleOf(const Rotation &turn)
{
    // The arc cosine of the trace alone loses small angles.
    const Vector sines(turn(2, 1) - turn(1, 2), turn(0, 2) - turn(2, 0), turn(1, 0) - turn(0, 1));
    return std::atan2(sines.norm(), turn.trace() - 1);
}

Rotation TurnFit::turn() const
{
    const Eigen::JacobiSVD<Rotation> svd(m_sum, Eigen::ComputeFullU | Eigen::ComputeFullV);
    Rotation mirror = Rotation::Identity();
    mirror(2, 2) = (svd.matrixU() * svd.matrixV().transpose()).determinant() < 0 ? -1 : 1;
    return svd.matrixU() * mirror * svd.matrixV().transpose();
}

} // namespace align
