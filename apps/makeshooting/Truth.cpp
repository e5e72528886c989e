// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/makeshooting/Truth.h"

#include "apps/makeshooting/CommandLine.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>
#include <QtMath>

namespace makeshooting {

namespace {

double trueFocal35(const Shooting &shooting)
{
    return shooting.camera.focal / pixelFocal(shooting.camera.size, 1.0);
}

/// Exposure value at ISO 100: larger is darker.
double exposureValue(const Picture &picture)
{
    return std::log2(kFNumber * kFNumber / kBaseTime * 100.0 / kIso) - picture.ev;
}

} // namespace

QByteArray truthJson(const Shooting &shooting)
{
    const ShootingOptions &options = shooting.options;
    QJsonArray pictures;
    for (const Picture &picture : shooting.pictures) {
        const Angles angles = picture.rotation.angles();
        QJsonObject entry{
            {QStringLiteral("name"), picture.name},
            {QStringLiteral("yaw"), angles.yaw},
            {QStringLiteral("pitch"), angles.pitch},
            {QStringLiteral("roll"), angles.roll},
            {QStringLiteral("ev"), picture.ev},
            {QStringLiteral("location"), picture.location},
            {QStringLiteral("bracket"), picture.bracket},
        };
        if (picture.location >= 0) {
            entry.insert(QStringLiteral("nominal_yaw"), picture.nominalYaw);
            entry.insert(QStringLiteral("nominal_pitch"), picture.nominalPitch);
        }
        pictures.append(entry);
    }
    const QJsonObject scene{
        {QStringLiteral("seed"), static_cast<double>(options.scene.seed)},
        {QStringLiteral("plain_sky_above"), options.scene.plainSkyAbove},
        {QStringLiteral("blurred_sky"), options.scene.blurredSky},
        {QStringLiteral("repeat"), options.scene.repeat},
        {QStringLiteral("detail_rad"), options.scene.detail},
    };
    const QJsonObject truth{
        {QStringLiteral("format"), nameOf(options.format)},
        {QStringLiteral("lens"), nameOf(options.lens)},
        {QStringLiteral("width"), shooting.camera.size.width()},
        {QStringLiteral("height"), shooting.camera.size.height()},
        {QStringLiteral("focal_px"), shooting.camera.focal},
        {QStringLiteral("focal_35mm"), trueFocal35(shooting)},
        {QStringLiteral("nominal_focal_35mm"), options.focal},
        {QStringLiteral("distortion_b"), options.distortion},
        {QStringLiteral("brackets"), options.brackets},
        {QStringLiteral("scene"), scene},
        {QStringLiteral("pictures"), pictures},
    };
    return QJsonDocument(truth).toJson();
}

QByteArray truthPto(const Shooting &shooting)
{
    const Camera &camera = shooting.camera;
    const int width = 2 * static_cast<int>(M_PI * camera.focal);
    QByteArray content;
    QTextStream out(&content);
    out.setRealNumberNotation(QTextStream::FixedNotation); // the tools know no exponents
    out.setRealNumberPrecision(9);
    const double base = exposureValue({});
    out << "p f2 w" << width << " h" << width / 2 << " v360 E" << base << " R0 n\"TIFF_m c:LZW\"\n"
        << "m g1 i0 f0 m2 p0.00784314\n";
    for (const Picture &picture : shooting.pictures) {
        if (picture.location < 0)
            continue;
        const Angles angles = picture.rotation.angles();
        out << "i w" << camera.size.width() << " h" << camera.size.height() << " f"
            << (camera.lens == Lens::Fisheye ? 3 : 0) << " v" << camera.horizontalAngle() << " r"
            << angles.roll << " p" << angles.pitch << " y" << angles.yaw << " a0 b"
            << camera.distortion << " c0 Eev" << exposureValue(picture) << " Er1 Eb1 n\""
            << picture.name << "\"\n";
    }
    out.flush();
    return content;
}

} // namespace makeshooting
