// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/CubeTiles.h"

#include "align/OutputFile.h"
#include "align/View.h"
#include "geometry/Angle.h"

#include <QImageWriter>
#include <QMutex>
#include <QMutexLocker>
#include <QThreadPool>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <exception>
#include <new>
#include <utility>

namespace {

constexpr int kQuality = 85;
constexpr char kFaces[] = {'f', 'b', 'u', 'd', 'l', 'r'};
/// Milliseconds between two times that progress is told.
constexpr int kPulse = 100;

/// A part of the sphere, as pixels. Yaw 0 is its middle.
class Sphere {
public:
    Sphere(QImage picture, double width, double top)
        : m_picture(std::move(picture))
        , m_width(width)
        , m_top(top)
    {
    }

    /// The same in half as many pixels a side.
    Sphere halved() const
    {
        const QSize half(std::max(1, m_picture.width() / 2), std::max(1, m_picture.height() / 2));
        return {m_picture.scaled(half, Qt::IgnoreAspectRatio, Qt::SmoothTransformation),
            m_width / 2, m_top / 2};
    }

    QRgb at(const Direction &direction) const
    {
        const double yaw = std::atan2(direction[0], direction[2]);
        const double pitch = std::atan2(direction[1], std::hypot(direction[0], direction[2]));
        const double x = yaw / (2 * geometry::kPi) * m_width + m_picture.width() / 2.0 - 0.5;
        const double y = (0.5 - pitch / geometry::kPi) * m_width / 2 - m_top - 0.5;
        const bool isOutside = x < -1 || x > m_picture.width() || y < -1 || y > m_picture.height();
        return isOutside ? qRgb(0, 0, 0) : between(x, y);
    }

private:
    QRgb between(double x, double y) const
    {
        const int left = int(std::floor(x));
        const int top = int(std::floor(y));
        const double right = x - left;
        const double low = y - top;
        const QRgb a = pixel(left, top);
        const QRgb b = pixel(left + 1, top);
        const QRgb c = pixel(left, top + 1);
        const QRgb d = pixel(left + 1, top + 1);
        const auto mix = [&](int (*part)(QRgb)) {
            return qRound((part(a) * (1 - right) + part(b) * right) * (1 - low)
                + (part(c) * (1 - right) + part(d) * right) * low);
        };
        return qRgb(mix(qRed), mix(qGreen), mix(qBlue));
    }

    QRgb pixel(int x, int y) const
    {
        const int width = m_picture.width();
        // A full turn closes.
        x = std::abs(width - m_width) < 2 ? (x + width) % width : std::clamp(x, 0, width - 1);
        y = std::clamp(y, 0, m_picture.height() - 1);
        return reinterpret_cast<const QRgb *>(m_picture.constScanLine(y))[x];
    }

    QImage m_picture;
    /// Pixels that all of the sphere would have across, and above the picture.
    double m_width;
    double m_top;
};

/// Of a cube's \a face, \a u to the right and \a v down, both -1 to 1.
Direction cubeDirection(char face, double u, double v)
{
    switch (face) {
    case 'f':
        return {u, -v, 1};
    case 'b':
        return {-u, -v, -1};
    case 'l':
        return {-1, -v, u};
    case 'r':
        return {1, -v, -u};
    case 'u':
        return {u, 1, v};
    default:
        return {u, -1, -v};
    }
}

struct Tile {
    char face = 'f';
    int column = 0;
    int row = 0;
    /// Pixels of the face.
    int size = 0;
    QString path;
};

QImage render(const Tile &tile, const Sphere &sphere)
{
    const int left = tile.column * CubeTiles::kSide;
    const int top = tile.row * CubeTiles::kSide;
    QImage image(std::min(CubeTiles::kSide, tile.size - left),
        std::min(CubeTiles::kSide, tile.size - top), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = sphere.at(cubeDirection(tile.face, 2 * (left + x + 0.5) / tile.size - 1,
                2 * (top + y + 0.5) / tile.size - 1));
    }
    return image;
}

/// Sizes of the cube's faces from the smallest level to the largest.
QVector<int> levelSizes(int cube)
{
    QVector<int> sizes{cube};
    while (sizes.first() > CubeTiles::kSide)
        sizes.prepend((sizes.first() + 1) / 2);
    return sizes;
}

int tilesAcross(int size)
{
    return (size + CubeTiles::kSide - 1) / CubeTiles::kSide;
}

QVector<Tile> tilesOf(const QString &folder, int size)
{
    QVector<Tile> tiles;
    const int across = tilesAcross(size);
    for (const char face : kFaces) {
        for (int row = 0; row < across; ++row) {
            for (int column = 0; column < across; ++column)
                tiles.append({face, column, row, size,
                    QStringLiteral("%1/%2%3_%4.jpg")
                        .arg(folder, QString(QLatin1Char(face)))
                        .arg(row)
                        .arg(column)});
        }
    }
    return tiles;
}

/// Empty, or a sentence: why it cannot be.
QString writeTile(const Tile &tile, const Sphere &sphere)
{
    try {
        QImageWriter writer(tile.path, "JPEG");
        writer.setQuality(kQuality);
        return writer.write(render(tile, sphere)) ? QString()
                                                  : unwritable(tile.path, writer.errorString());
    } catch (const std::exception &error) {
        return unwritable(tile.path, QString::fromLocal8Bit(error.what()));
    }
}

/// As CubeTiles::write(); \a progress takes how many of \a tiles are done.
QString writeTiles(const QVector<Tile> &tiles, const Sphere &sphere, int jobs,
    const std::function<bool(int)> &progress, bool *isCancelled)
{
    std::atomic<int> done{0};
    std::atomic<bool> isOver{false};
    QMutex mutex;
    QString problem;
    QThreadPool pool;
    pool.setMaxThreadCount(std::max(1, jobs));
    for (const Tile &tile : tiles) {
        pool.start([&] {
            if (isOver)
                return;
            const QString trouble = writeTile(tile, sphere);
            ++done;
            if (trouble.isEmpty())
                return;
            isOver = true;
            const QMutexLocker lock(&mutex);
            problem = trouble;
        });
    }
    bool isAtEnd = false;
    while (!isAtEnd) {
        isAtEnd = pool.waitForDone(kPulse);
        if (!isOver && !progress(done))
            isOver = *isCancelled = true;
    }
    return *isCancelled ? QString() : problem;
}

} // namespace

CubeTiles::CubeTiles(double fullWidth)
    : m_fullWidth(fullWidth)
    , m_sizes(levelSizes(std::max(8, 8 * int(fullWidth / geometry::kPi / 8))))
{
}

QString CubeTiles::write(const QString &folder, QImage picture, double top, int jobs,
    const Progress &progress, bool *isCancelled) const
{
    int count = 0;
    for (const int size : m_sizes)
        count += int(std::size(kFaces)) * tilesAcross(size) * tilesAcross(size);
    Sphere sphere(std::move(picture), m_fullWidth, top);
    int done = 0;
    for (int level = levels(); level >= 1; --level) {
        const QString place = QStringLiteral("%1/%2").arg(folder).arg(level);
        QString problem = makeFolder(place);
        if (!problem.isEmpty())
            return problem;
        const QVector<Tile> tiles = tilesOf(place, m_sizes.at(level - 1));
        const auto tell = [&](int written) {
            return !progress || progress(QStringLiteral("Making tiles"), done + written, count);
        };
        problem = writeTiles(tiles, sphere, jobs, tell, isCancelled);
        if (*isCancelled || !problem.isEmpty())
            return problem;
        done += tiles.size();
        if (level > 1)
            sphere = sphere.halved();
    }
    return {};
}
