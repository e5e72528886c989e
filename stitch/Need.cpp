// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Need.h"

#include "geometry/Angle.h"

#include <QCoreApplication>
#include <QFile>
#include <QHash>
#include <QLocale>
#include <QSet>
#include <QStorageInfo>
#include <QtMath>
#include <algorithm>
#include <functional>
#include <numeric>

namespace {

struct NeedTexts {
    Q_DECLARE_TR_FUNCTIONS(Need)
};

constexpr qint64 kMegabyte = 1'000'000;
/// A program without a picture.
constexpr qint64 kIdle = 60 * kMegabyte;

QString inGigabytes(qint64 bytes)
{
    return NeedTexts::tr("%1 GB").arg(QLocale().toString(bytes / 1e9, 'f', 1));
}

/// Whether \a view reaches across the canvas' edge, opposite to its centre.
bool crossesEdge(const Frame &frame, const View &view)
{
    constexpr int kSteps = 360;
    for (int i = 0; i <= kSteps; ++i) {
        const double pitch = (double(i) / kSteps - 0.5) * geometry::kPi;
        if (view.sees(directionOf(qDegreesToRadians(frame.yaw + 180), pitch)))
            return true;
    }
    return false;
}

} // namespace

Rendering renderingOf(const PtoProject &project)
{
    if (project.outputType == ProjectRecord::HdrRadiance)
        return Rendering::Radiance;
    QSet<int> locations;
    for (const PtoProject::Picture &picture : project.pictures)
        locations.insert(picture.location);
    return locations.size() < project.pictures.size() ? Rendering::Fused : Rendering::Plain;
}

qint64 areaOf(const QSize &size)
{
    return qint64(size.width()) * size.height();
}

QRect layerRect(const Frame &frame, const View &view, const QSize &picture)
{
    QRectF bounds;
    constexpr int kSteps = 40;
    for (int row = 0; row <= kSteps; ++row) {
        for (int column = 0; column <= kSteps; ++column) {
            const auto place
                = frame.project(view.at(picture.width() * (double(column) / kSteps - 0.5),
                    picture.height() * (double(row) / kSteps - 0.5)));
            if (place)
                bounds = bounds.united(QRectF(*place, QSizeF(1e-3, 1e-3)));
        }
    }
    for (const int sign : {1, -1}) {
        if (!view.sees({0, double(sign), 0}))
            continue;
        if (const auto pole = frame.project({0, double(sign), 0}))
            bounds = bounds.united(QRectF(*pole, QSizeF(1e-3, 1e-3)));
    }
    if (crossesEdge(frame, view)) {
        bounds.setLeft(0);
        bounds.setRight(frame.canvas.width());
    }
    return bounds.toAlignedRect().intersected(frame.crop);
}

QVector<QRect> layerRects(const PtoProject &project, const Frame &frame)
{
    const QVector<View> views = viewsOf(project);
    QVector<QRect> layers;
    for (int i = 0; i < views.size(); ++i)
        layers.append(layerRect(frame, views.at(i), project.pictures.at(i).lens.size));
    return layers;
}

Need needOf(const PtoProject &project, const Frame &frame, const QVector<QRect> &layers,
    Rendering rendering, bool deep, int jobs)
{
    // Measured with the tools' version 2022.0 and enblend 4.2, and rounded up.
    const bool isRadiance = rendering == Rendering::Radiance;
    const qint64 loadedPixel = isRadiance ? 28 : 12;
    const qint64 remappedPixel = isRadiance ? 40 : 14;
    const qint64 storedPixel = isRadiance ? 9 : 4;
    const qint64 fusedPixel = rendering == Rendering::Plain ? 0 : (isRadiance || deep ? 8 : 4);
    const qint64 fusingPixel = isRadiance ? 60 : 80;
    const qint64 blendedPixel = isRadiance ? 80 : (deep ? 64 : 40);
    const qint64 finishedPixel = isRadiance || deep ? 8 : 4;

    Need need;
    QVector<qint64> remapping;
    QHash<int, QRect> stacks;
    for (int i = 0; i < layers.size(); ++i) {
        const PtoProject::Picture &picture = project.pictures.at(i);
        const qint64 area = areaOf(layers.at(i).size());
        remapping.append(kIdle + areaOf(picture.lens.size) * loadedPixel + area * remappedPixel);
        need.disk += area * storedPixel;
        stacks[picture.location] = stacks.value(picture.location).united(layers.at(i));
    }
    const auto atATime = [jobs](QVector<qint64> needs) {
        std::sort(needs.begin(), needs.end(), std::greater<>());
        return std::accumulate(
            needs.cbegin(), needs.cbegin() + std::min(jobs, int(needs.size())), qint64(0));
    };
    QVector<qint64> fusing;
    for (const QRect &stack : qAsConst(stacks)) {
        const qint64 area = areaOf(stack.size());
        need.disk += area * fusedPixel;
        if (fusedPixel > 0)
            fusing.append(kIdle + area * fusingPixel);
    }
    const qint64 crop = areaOf(frame.crop.size());
    need.disk += 2 * crop * finishedPixel;
    need.memory = std::max({atATime(remapping), atATime(fusing), kIdle + crop * blendedPixel});
    return need;
}

qint64 availableMemory()
{
    QFile file(QStringLiteral("/proc/meminfo"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("MemAvailable:"))
            return line.simplified().split(' ').value(1).toLongLong() * 1024;
    }
    return 0;
}

Problem excess(const Need &need, qint64 memoryLimit, const QString &folder, qint64 kept)
{
    const bool isLimited = memoryLimit > 0;
    const qint64 memory = isLimited ? memoryLimit : availableMemory();
    if (memory > 0 && need.memory > memory) {
        const QString text = isLimited
            ? QStringLiteral("this needs some %1 of memory, and %2 are allowed; a narrower "
                             "panorama needs less")
            : NeedTexts::tr("this needs some %1 of memory, and there are %2; a narrower panorama "
                            "needs less");
        return {text.arg(inGigabytes(need.memory), inGigabytes(memory)),
            isLimited ? Remedy::NarrowerPanoramaOrMoreMemory : Remedy::NarrowerPanorama};
    }
    const QStorageInfo storage(folder);
    if (storage.isValid() && need.disk - kept > storage.bytesAvailable())
        return {
            NeedTexts::tr("this needs some %1 on the disk of %2, where %3 are free; a narrower "
                          "panorama needs less")
                .arg(inGigabytes(need.disk - kept), folder, inGigabytes(storage.bytesAvailable())),
            Remedy::NarrowerPanorama};
    return {};
}
