// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Script.h"

#include <QHash>
#include <QtMath>
#include <cmath>

namespace {

QByteArray number(double value)
{
    return QByteArray::number(value, 'f', 9);
}

QByteArray canvasLine(const Frame &frame, double outputExposure, bool radiance)
{
    return canvasLines(
        {frame.angle, frame.canvas, frame.crop}, int(frame.projection), outputExposure, radiance);
}

/// \a owner is the earlier picture of the same lens whose vignetting this one shares; -1: none.
QByteArray pictureLine(
    const PtoProject::Picture &picture, const PictureLight &light, double turn, int owner)
{
    const PictureOptics &lens = picture.lens;
    QByteArray line = "i w" + QByteArray::number(lens.size.width());
    line += " h" + QByteArray::number(lens.size.height()) + (lens.fisheye ? " f3" : " f0");
    line += " v" + number(qRadiansToDegrees(lens.angleAcross(lens.size.width())));
    line += " r" + number(picture.place.roll) + " p" + number(picture.place.pitch);
    line += " y" + number(std::remainder(picture.place.yaw - turn, 360.0));
    line += " a" + number(picture.distortion.a) + " b" + number(picture.distortion.b);
    line += " c" + number(picture.distortion.c) + " d0 e0 g0 t0 Va1";
    const char *vignetting[] = {" Vb", " Vc", " Vd"};
    for (int i = 0; i < 3; ++i)
        line += vignetting[i]
            + (owner < 0 ? number(light.vignetting.at(i)) : '=' + QByteArray::number(owner));
    line += " Vx0 Vy0";
    const char *response[] = {" Ra", " Rb", " Rc", " Rd", " Re"};
    for (int i = 0; i < 5; ++i)
        line += response[i]
            + (owner < 0 ? number(light.response.at(i)) : '=' + QByteArray::number(owner));
    line += " Eev" + number(light.exposureValue) + " Er1 Eb1 n\"" + picture.path.toUtf8() + "\"\n";
    return line;
}

} // namespace

QVector<PictureLight> plainLight(const PtoProject &project)
{
    QVector<PictureLight> result;
    for (const PtoProject::Picture &picture : project.pictures) {
        PictureLight light;
        light.exposureValue = picture.exposureValue;
        result.append(light);
    }
    return result;
}

QByteArray remapScript(const Frame &frame, const PtoProject::Picture &picture,
    const PictureLight &light, double outputExposure, bool radiance)
{
    return canvasLine(frame, outputExposure, radiance) + pictureLine(picture, light, frame.yaw, -1);
}

QByteArray remapScript(const Frame &frame, const QVector<PtoProject::Picture> &pictures,
    const QVector<PictureLight> &light, double outputExposure, bool radiance)
{
    QByteArray script = canvasLine(frame, outputExposure, radiance);
    for (int i = 0; i < pictures.size(); ++i)
        script += pictureLine(pictures.at(i), light.at(i), frame.yaw, -1);
    return script;
}

QByteArray photometricScript(
    const PtoProject &project, const QVector<PictureLight> &light, bool vignettingOnly, int fixed)
{
    Frame frame;
    frame.canvas = QSize(1000, 500);
    frame.crop = QRect(QPoint(), frame.canvas);
    QByteArray script = canvasLine(frame, project.outputExposure, false);
    QByteArray variables;
    QHash<PictureOptics, int> owners;
    for (int i = 0; i < project.pictures.size(); ++i) {
        const PtoProject::Picture &picture = project.pictures.at(i);
        const int owner = owners.value(picture.lens, -1);
        script += pictureLine(picture, light.at(i), 0, owner);
        const QByteArray place = QByteArray::number(i);
        if (owner < 0) {
            owners.insert(picture.lens, i);
            variables += "v Vb" + place + "\nv Vc" + place + "\nv Vd" + place + '\n';
        }
        if (!vignettingOnly && i != fixed)
            variables += "v Eev" + place + '\n';
    }
    return script + variables + "v\n";
}
