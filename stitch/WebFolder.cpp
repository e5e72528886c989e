// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/WebFolder.h"

#include "geometry/Angle.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QTemporaryDir>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace {

/// Pixels a side that every WebGL shows as one picture.
constexpr int kLargestTexture = 8192;
constexpr int kTile = 512;
constexpr int kTileQuality = 85;
constexpr int kPictureQuality = 90;
constexpr char kFaces[] = {'f', 'b', 'u', 'd', 'l', 'r'};
/// What the viewer consists of, its licence among it.
constexpr const char *kViewerFiles[] = {"pannellum.js", "pannellum.css", "COPYING"};
constexpr const char *kViewer = "viewer";

constexpr const char *kPage = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>%1</title>
<link rel="stylesheet" href="viewer/pannellum.css">
<style>html, body, #panorama { margin: 0; width: 100%; height: 100%; background: #000; }</style>
</head>
<body>
<div id="panorama"></div>
<script src="viewer/pannellum.js"></script>
<script src="scene.js"></script>
<script>
// Browsers let pages from disk read no other files than scripts: there the picture comes in one.
var viewer;
function showPicture() {
    var text = atob(pictureData);
    var bytes = new Uint8Array(text.length);
    for (var i = 0; i < text.length; ++i)
        bytes[i] = text.charCodeAt(i);
    scene.picture.panorama = URL.createObjectURL(new Blob([bytes], { type: 'image/jpeg' }));
    viewer = pannellum.viewer('panorama', scene.picture);
}
if (scene.tiles && location.protocol !== 'file:') {
    viewer = pannellum.viewer('panorama', scene.tiles);
} else {
    var script = document.createElement('script');
    script.src = 'picture.js';
    script.onload = showPicture;
    document.body.appendChild(script);
}
</script>
</body>
</html>
)";

bool write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush();
}

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
    const int left = tile.column * kTile;
    const int top = tile.row * kTile;
    QImage image(
        std::min(kTile, tile.size - left), std::min(kTile, tile.size - top), QImage::Format_RGB32);
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
    while (sizes.first() > kTile)
        sizes.prepend((sizes.first() + 1) / 2);
    return sizes;
}

/// Makes a folder's files. Everything goes to \a folder, which is there.
class WebWriter {
public:
    WebWriter(QString folder, const Frame &frame, int jobs, const Progress &progress)
        : m_folder(std::move(folder))
        , m_frame(frame)
        , m_jobs(std::max(1, jobs))
        , m_progress(progress)
    {
    }

    bool go(QImage picture, const QString &title)
    {
        const bool isLarge = std::max(picture.width(), picture.height()) > kLargestTexture;
        QJsonObject scene{{QStringLiteral("picture"), pictureScene()}};
        if (isLarge)
            scene.insert(QStringLiteral("tiles"), tilesScene());
        return copyViewer() && write(file("index.html"), page(title))
            && write(
                file("scene.js"), "var scene = " + QJsonDocument(scene).toJson().trimmed() + ";\n")
            && writePicture(picture) && (!isLarge || writeTiles(std::move(picture)));
    }

    bool isCancelled() const { return m_isCancelled; }

private:
    QString file(const char *name) const { return QDir(m_folder).filePath(QLatin1String(name)); }

    static QByteArray page(const QString &title)
    {
        return QString::fromLatin1(kPage)
            .replace(QLatin1String("%1"), title.toHtmlEscaped())
            .toUtf8();
    }

    double degreesPerPixel() const { return double(m_frame.angle) / m_frame.canvas.width(); }
    double fullWidth() const { return 360 / degreesPerPixel(); }
    /// Degrees, of the picture's upper edge and of its middle.
    double topPitch() const
    {
        return (m_frame.canvas.height() / 2.0 - m_frame.crop.top()) * degreesPerPixel();
    }
    double middlePitch() const
    {
        return topPitch() - m_frame.crop.height() / 2.0 * degreesPerPixel();
    }
    double heading() const
    {
        const double middle = m_frame.crop.left() + m_frame.crop.width() / 2.0;
        return m_frame.yaw + (middle - m_frame.canvas.width() / 2.0) * degreesPerPixel();
    }

    /// What holds however the panorama is shown.
    QJsonObject commonScene() const
    {
        const double across = std::min(360.0, m_frame.crop.width() * degreesPerPixel());
        const double high = std::min(180.0, m_frame.crop.height() * degreesPerPixel());
        QJsonObject scene{
            {QStringLiteral("autoLoad"), true},
            {QStringLiteral("haov"), across},
            {QStringLiteral("vaov"), high},
            {QStringLiteral("vOffset"), middlePitch()},
            {QStringLiteral("pitch"),
                middlePitch() > -30 && middlePitch() < 30 ? 0 : middlePitch()},
            {QStringLiteral("northOffset"), heading()},
            {QStringLiteral("hfov"), std::min(100.0, across)},
            // One pixel of the panorama is then some two of the screen.
            {QStringLiteral("minHfov"), std::clamp(500 * degreesPerPixel(), 1.0, 50.0)},
            {QStringLiteral("ignoreGPanoXMP"), true},
        };
        if (across < 360) {
            scene.insert(QStringLiteral("minYaw"), -across / 2);
            scene.insert(QStringLiteral("maxYaw"), across / 2);
        }
        if (high < 180) {
            scene.insert(QStringLiteral("minPitch"), middlePitch() - high / 2);
            scene.insert(QStringLiteral("maxPitch"), middlePitch() + high / 2);
        }
        return scene;
    }

    QJsonObject pictureScene() const
    {
        QJsonObject scene = commonScene();
        scene.insert(QStringLiteral("type"), QStringLiteral("equirectangular"));
        return scene;
    }

    QJsonObject tilesScene() const
    {
        QJsonObject scene = commonScene();
        scene.insert(QStringLiteral("type"), QStringLiteral("multires"));
        scene.insert(QStringLiteral("multiRes"),
            QJsonObject{
                {QStringLiteral("basePath"), QStringLiteral("tiles")},
                {QStringLiteral("path"), QStringLiteral("/%l/%s%y_%x")},
                {QStringLiteral("extension"), QStringLiteral("jpg")},
                {QStringLiteral("tileResolution"), kTile},
                {QStringLiteral("maxLevel"), levelSizes(cubeSize()).size()},
                {QStringLiteral("cubeResolution"), cubeSize()},
            });
        return scene;
    }

    /// Pixels of a cube's face: as many a degree in its middle as the panorama has.
    int cubeSize() const { return std::max(8, 8 * int(fullWidth() / geometry::kPi / 8)); }

    bool copyViewer() const
    {
        const QDir viewer(webViewerFolder());
        const QDir folder(m_folder);
        if (!folder.mkpath(QLatin1String(kViewer)))
            return false;
        return std::all_of(std::begin(kViewerFiles), std::end(kViewerFiles), [&](const char *name) {
            return QFile::copy(viewer.filePath(QLatin1String(name)),
                folder.filePath(
                    QStringLiteral("%1/%2").arg(QLatin1String(kViewer), QLatin1String(name))));
        });
    }

    bool writePicture(const QImage &picture) const
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        const QSize size = picture.size().boundedTo(QSize(kLargestTexture, kLargestTexture));
        const QImage shown = size == picture.size()
            ? picture
            : picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        return buffer.open(QIODevice::WriteOnly) && shown.save(&buffer, "JPEG", kPictureQuality)
            && write(file("picture.js"), "var pictureData = '" + bytes.toBase64() + "';\n");
    }

    bool writeTiles(QImage picture)
    {
        const QVector<int> sizes = levelSizes(cubeSize());
        int count = 0;
        for (const int size : sizes) {
            const int across = (size + kTile - 1) / kTile;
            count += 6 * across * across;
        }
        Sphere sphere(
            std::move(picture), fullWidth(), fullWidth() / 4 - topPitch() / degreesPerPixel());
        int done = 0;
        for (int level = sizes.size(); level >= 1; --level) {
            const QString folder = file("tiles") + QStringLiteral("/%1").arg(level);
            if (!QDir().mkpath(folder))
                return false;
            const QVector<Tile> tiles = tilesOf(folder, sizes.at(level - 1));
            if (!writeLevel(tiles, sphere, done, count))
                return false;
            done += tiles.size();
            if (level > 1)
                sphere = sphere.halved();
        }
        return true;
    }

    static QVector<Tile> tilesOf(const QString &folder, int size)
    {
        QVector<Tile> tiles;
        const int across = (size + kTile - 1) / kTile;
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

    bool writeLevel(const QVector<Tile> &tiles, const Sphere &sphere, int doneBefore, int count)
    {
        std::atomic<int> next{0};
        std::atomic<bool> isWell{true};
        std::mutex mutex;
        std::condition_variable changed;
        int done = 0;
        const auto work = [&] {
            for (int i = next++; i < tiles.size() && isWell; i = next++) {
                if (!render(tiles.at(i), sphere).save(tiles.at(i).path, "JPEG", kTileQuality))
                    isWell = false;
                const std::lock_guard lock(mutex);
                ++done;
                changed.notify_one();
            }
            const std::lock_guard lock(mutex);
            changed.notify_one();
        };
        std::vector<std::thread> threads;
        threads.reserve(std::size_t(m_jobs));
        for (int i = 0; i < m_jobs; ++i)
            threads.emplace_back(work);
        while (isWell) {
            std::unique_lock lock(mutex);
            if (done == tiles.size())
                break;
            changed.wait_for(lock, std::chrono::milliseconds(100));
            const int now = doneBefore + done;
            lock.unlock();
            if (m_progress && !m_progress(QStringLiteral("Making tiles"), now, count)) {
                m_isCancelled = true;
                isWell = false;
            }
        }
        for (std::thread &thread : threads)
            thread.join();
        return isWell;
    }

    QString m_folder;
    const Frame &m_frame;
    int m_jobs;
    const Progress &m_progress;
    bool m_isCancelled = false;
};

/// Where the folder at \a path is made: in another beside it that goes with this object.
class Workshop {
public:
    explicit Workshop(QString path)
        : m_path(std::move(path))
        , m_folder(m_path + QStringLiteral(".XXXXXX"))
        , m_lock(lockIn(m_folder.path()))
    {
        m_lock.setStaleLockTime(0);
    }

    bool open()
    {
        sweep();
        return m_folder.isValid() && m_lock.tryLock(0) && QDir().mkpath(made());
    }

    QString made() const { return m_folder.filePath(QStringLiteral("made")); }

    /// What stood at the path before goes only when what was made is there.
    bool putInPlace()
    {
        QDir disk;
        const QString old = m_folder.filePath(QStringLiteral("old"));
        const bool isOld = QFileInfo::exists(m_path);
        if (isOld && !disk.rename(m_path, old))
            return false;
        if (disk.rename(made(), m_path))
            return true;
        if (isOld && !disk.rename(old, m_path))
            m_folder.setAutoRemove(false);
        return false;
    }

private:
    static QString lockIn(const QString &folder)
    {
        return QDir(folder).filePath(QStringLiteral("panohost.lock"));
    }

    /// Takes away what killed runs left. Without a lock in it, it is not ours.
    void sweep() const
    {
        const QFileInfo path(m_path);
        const QString pattern = QStringLiteral("*.??????");
        const auto filter = QDir::Dirs | QDir::Hidden | QDir::NoSymLinks;
        for (const QFileInfo &left : path.absoluteDir().entryInfoList({pattern}, filter)) {
            if (left.completeBaseName() != path.fileName())
                continue;
            const QString folder = left.absoluteFilePath();
            QLockFile lock(lockIn(folder));
            lock.setStaleLockTime(0);
            if (!QFileInfo::exists(lockIn(folder)) || !lock.tryLock(0))
                continue;
            lock.unlock();
            QDir(folder).removeRecursively();
        }
    }

    QString m_path;
    QTemporaryDir m_folder;
    QLockFile m_lock;
};

/// The folder meant by \a path, which may be a link to it or end in a slash.
QString placeOf(const QString &path)
{
    const QFileInfo info(QDir::cleanPath(path));
    return info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
}

bool isWebFolder(const QDir &folder)
{
    return folder.exists(QStringLiteral("scene.js")) && folder.exists(QStringLiteral("picture.js"))
        && folder.exists(QLatin1String(kViewer));
}

} // namespace

QString webViewerFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char *place : {"../" PANOHOST_VIEWER_FOLDER, PANOHOST_INSTALLED_VIEWER_FOLDER}) {
        const QDir folder(program.absoluteFilePath(QString::fromUtf8(place)));
        const auto isThere
            = [&folder](const char *name) { return folder.exists(QLatin1String(name)); };
        if (std::all_of(std::begin(kViewerFiles), std::end(kViewerFiles), isThere))
            return QDir::cleanPath(folder.absolutePath());
    }
    return {};
}

QString webObstacle(const WebFolder &folder)
{
    if (webViewerFolder().isEmpty())
        return QStringLiteral("this panohost was built without the viewer that a web folder needs: "
                              "there was no network to fetch it");
    const QFileInfo info(placeOf(folder.path));
    if (!QFileInfo(info.absolutePath()).isDir())
        return QStringLiteral("%1: there is no folder %2").arg(folder.path, info.absolutePath());
    if (!info.exists() && !info.isSymLink())
        return {};
    if (!info.isDir())
        return QStringLiteral("%1: is no folder").arg(folder.path);
    const QDir existing(folder.path);
    if (existing.isEmpty())
        return {};
    if (!isWebFolder(existing))
        return QStringLiteral("%1: holds other things than an earlier web folder").arg(folder.path);
    return folder.force
        ? QString()
        : QStringLiteral("%1: exists already; --force writes over it").arg(folder.path);
}

QString writeWebFolder(const WebFolder &folder, const QString &picture, const Frame &frame,
    const QString &title, const Progress &progress, bool *isCancelled)
{
    *isCancelled = false;
    QString problem = webObstacle(folder);
    if (!problem.isEmpty())
        return problem;
    QImageReader reader(picture);
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QImageReader::setAllocationLimit(0);
#endif
    QImage image = reader.read();
    if (image.isNull())
        return QStringLiteral("%1: cannot be read: %2").arg(picture, reader.errorString());
    Workshop workshop(placeOf(folder.path));
    WebWriter writer(workshop.made(), frame, folder.jobs, progress);
    const bool isWell = workshop.open()
        && writer.go(image.convertToFormat(QImage::Format_RGB32), title) && workshop.putInPlace();
    if (isWell)
        return {};
    *isCancelled = writer.isCancelled();
    return *isCancelled ? QString() : QStringLiteral("%1: cannot be written").arg(folder.path);
}
