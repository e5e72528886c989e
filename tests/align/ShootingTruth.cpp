// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/align/ShootingTruth.h"
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtMath>
#include <cmath>

ShootingTruth ShootingTruth::of(const QString &folder)
{
    ShootingTruth truth;
    QFile file(folder + QStringLiteral("/truth.json"));
    if (!file.open(QIODevice::ReadOnly))
        return truth;
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    truth.focal = object.value(QLatin1String("focal_35mm")).toDouble();
    truth.distortion = object.value(QLatin1String("distortion_b")).toDouble();
    const QJsonArray pictures = object.value(QLatin1String("pictures")).toArray();
    for (const QJsonValue &picture : pictures) {
        const auto angle
            = [&picture](const char *name) { return picture[QLatin1String(name)].toDouble(); };
        truth.rotations.insert(picture[QLatin1String("name")].toString(),
            align::rotationOf({angle("yaw"), angle("pitch"), angle("roll")}));
    }
    return truth;
}

AlignError alignError(
    const PtoProject &project, const ShootingTruth &truth, const QStringList &leftOut)
{
    QHash<QString, align::Rotation> found;
    align::TurnFit fit;
    for (const PtoProject::Picture &picture : project.pictures) {
        const QString name = QFileInfo(picture.path).fileName();
        if (!truth.rotations.contains(name) || leftOut.contains(name))
            continue;
        found.insert(name, align::rotationOf(picture.place));
        fit.add(found.value(name), truth.rotations.value(name));
    }
    const align::Rotation whole = fit.turn();
    AlignError error;
    error.whole = align::axisOf(whole) * 180 / M_PI;
    for (auto each = found.constBegin(); each != found.constEnd(); ++each) {
        const align::Rotation off
            = whole * each.value() * truth.rotations.value(each.key()).transpose();
        const double degrees = qRadiansToDegrees(align::angleOf(off));
        error.all.insert(each.key(), degrees);
        error.rms += degrees * degrees / found.size();
        if (degrees > error.worst) {
            error.worst = degrees;
            error.worstName = each.key();
        }
    }
    error.rms = std::sqrt(error.rms);
    return error;
}
