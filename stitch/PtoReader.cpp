// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/PtoReader.h"

#include "geometry/Angle.h"

#include <QDir>
#include <QHash>
#include <QRegularExpression>
#include <QtMath>
#include <cmath>

namespace {

constexpr int kRectilinear = 0;
constexpr int kFisheye = 3;
/// Pixels a side; more than any camera has.
constexpr int kLongestSide = 1'000'000;

/// The values of an i line, links to earlier pictures resolved.
using Values = QHash<QString, double>;

struct ImageLine {
    Values values;
    QString name;
};

/// Nothing when the line makes no sense.
std::optional<ImageLine> parse(const QString &line, const QVector<ImageLine> &earlier)
{
    static const QRegularExpression word(
        QStringLiteral("\\s(?:n\"([^\"]*)\"|([A-Za-z]+)(=?)([-+]?[0-9.]+(?:[eE][-+]?[0-9]+)?))"));
    ImageLine image;
    for (auto words = word.globalMatch(line); words.hasNext();) {
        const auto match = words.next();
        if (match.capturedStart(1) >= 0) {
            image.name = match.captured(1);
            continue;
        }
        const QString key = match.captured(2);
        double value = match.captured(4).toDouble();
        if (!match.captured(3).isEmpty()) {
            if (!(value >= 0 && value < earlier.size()))
                return std::nullopt;
            value = earlier.at(int(value)).values.value(key);
        }
        image.values.insert(key, value);
    }
    return image;
}

/// What \a values hold that would be lost; empty when nothing.
QString surplus(const Values &values)
{
    for (const char *name : {"d", "e", "g", "t", "TrX", "TrY", "TrZ", "Vx", "Vy"}) {
        if (values.value(QLatin1String(name)) != 0)
            return QLatin1String(name);
    }
    return {};
}

std::optional<PictureOptics> opticsFrom(const Values &values)
{
    PictureOptics lens;
    const double width = values.value(QStringLiteral("w"));
    const double height = values.value(QStringLiteral("h"));
    const int type = int(values.value(QStringLiteral("f")));
    const double angle = qDegreesToRadians(values.value(QStringLiteral("v")));
    if (!(width >= 1 && height >= 1 && width <= kLongestSide && height <= kLongestSide)
        || (type != kRectilinear && type != kFisheye) || !(angle > 0)
        || (type == kRectilinear && angle >= geometry::kPi))
        return std::nullopt;
    lens.size = QSize(int(width), int(height));
    lens.fisheye = type == kFisheye;
    const double pixels = lens.fisheye ? width / angle : width / 2 / std::tan(angle / 2);
    lens.focal = pixels * std::hypot(36.0, 24.0) / std::hypot(width, height);
    return lens;
}

PictureLight lightFrom(const Values &values)
{
    PictureLight light;
    light.exposureValue = values.value(QStringLiteral("Eev"));
    light.vignetting = {values.value(QStringLiteral("Vb")), values.value(QStringLiteral("Vc")),
        values.value(QStringLiteral("Vd"))};
    int i = 0;
    for (const char *name : {"Ra", "Rb", "Rc", "Rd", "Re"})
        light.response.at(i++) = values.value(QLatin1String(name));
    return light;
}

bool isSamePlace(const Placement &a, const Placement &b)
{
    const auto isSame
        = [](double x, double y) { return std::abs(std::remainder(x - y, 360)) < 1e-6; };
    return isSame(a.yaw, b.yaw) && isSame(a.pitch, b.pitch) && isSame(a.roll, b.roll);
}

} // namespace

std::optional<ReadProject> readProject(
    const QByteArray &text, const QString &folder, QString *problem)
{
    ReadProject read;
    QVector<ImageLine> lines;
    QHash<int, int> locationOfStack;
    int locations = 0;
    for (const QByteArray &raw : text.split('\n')) {
        const QString line = QString::fromUtf8(raw);
        if (line.startsWith(QLatin1String("#hugin_outputHDRBlended true")))
            read.project.outputType = ProjectRecord::HdrRadiance;
        else if (line.startsWith(QLatin1String("#hugin_outputLDRExposureBlended true")))
            read.project.outputType = ProjectRecord::Tonemapped;
        else if (line.startsWith(QLatin1String("p "))) {
            if (const auto canvas = parse(line, {}))
                read.project.outputExposure = canvas->values.value(QStringLiteral("E"));
        }
        if (!line.startsWith(QLatin1String("i ")))
            continue;
        const auto image = parse(line, lines);
        const auto lens = image ? opticsFrom(image->values) : std::nullopt;
        if (!lens || image->name.isEmpty()) {
            *problem = QStringLiteral("the project's picture %1 cannot be made sense of")
                           .arg(lines.size() + 1);
            return std::nullopt;
        }
        const QString lost = surplus(image->values);
        if (!lost.isEmpty()) {
            *problem = QStringLiteral("%1: the project's \"%2\" of it is not supported")
                           .arg(image->name, lost);
            return std::nullopt;
        }
        PtoProject::Picture picture;
        picture.path = QDir::cleanPath(QDir(folder).absoluteFilePath(image->name));
        picture.lens = *lens;
        const Values &values = image->values;
        picture.distortion = {values.value(QStringLiteral("a")), values.value(QStringLiteral("b")),
            values.value(QStringLiteral("c"))};
        picture.place = {values.value(QStringLiteral("y")), values.value(QStringLiteral("p")),
            values.value(QStringLiteral("r"))};
        picture.exposureValue = values.value(QStringLiteral("Eev"));
        const auto &pictures = read.project.pictures;
        const auto stack = values.constFind(QStringLiteral("j"));
        if (stack != values.constEnd()) {
            const auto known = locationOfStack.constFind(int(*stack));
            picture.location = known != locationOfStack.constEnd() ? *known : locations;
            locationOfStack.insert(int(*stack), picture.location);
        } else if (!pictures.isEmpty() && isSamePlace(pictures.last().place, picture.place)) {
            picture.location = pictures.last().location;
        } else {
            picture.location = locations;
        }
        locations = std::max(locations, picture.location + 1);
        read.project.pictures.append(picture);
        read.light.append(lightFrom(values));
        lines.append(*image);
    }
    if (lines.isEmpty()) {
        *problem = QStringLiteral("the project has no pictures");
        return std::nullopt;
    }
    return read;
}
