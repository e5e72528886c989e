// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/WebFolder.h"

#include "align/OutputFile.h"
#include "stitch/CubeTiles.h"
#include "stitch/ReplacedFolder.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

namespace {

/// Pixels a side that every WebGL shows as one picture.
constexpr int kLargestTexture = 8192;
constexpr int kPictureQuality = 90;
/// What the viewer consists of, its licence among it.
constexpr const char *kViewerFiles[] = {"pannellum.js", "pannellum.css", "COPYING"};
constexpr const char *kViewer = "viewer";

/// Makes a folder's files. Everything goes to \a folder, which is there.
class WebWriter {
public:
    WebWriter(QString folder, const Frame &frame, int jobs, const Progress &progress)
        : m_folder(std::move(folder))
        , m_frame(frame)
        , m_jobs(jobs)
        , m_progress(progress)
        , m_tiles(fullWidth())
    {
    }

    /// Empty when done or cancelled, else what went wrong, a sentence.
    QString go(QImage picture, const QString &title)
    {
        const bool isLarge = std::max(picture.width(), picture.height()) > kLargestTexture;
        QJsonObject scene{{QStringLiteral("picture"), pictureScene()}};
        if (isLarge)
            scene.insert(QStringLiteral("tiles"), tilesScene());
        QString problem = copyViewer();
        if (problem.isEmpty())
            problem = writeWhole({{file("index.html"), page(title)},
                {file("scene.js"),
                    "var scene = " + QJsonDocument(scene).toJson().trimmed() + ";\n"}});
        if (problem.isEmpty())
            problem = writePicture(picture);
        if (problem.isEmpty() && isLarge)
            problem = m_tiles.write(file("tiles"), std::move(picture),
                fullWidth() / 4 - topPitch() / degreesPerPixel(), m_jobs, m_progress,
                &m_isCancelled);
        return problem;
    }

    bool isCancelled() const { return m_isCancelled; }

private:
    QString file(const char *name) const { return QDir(m_folder).filePath(QLatin1String(name)); }

    static QByteArray page(const QString &title)
    {
        QFile viewer(QStringLiteral(":/stitch/viewer.html"));
        const bool isOpen = viewer.open(QIODevice::ReadOnly);
        Q_ASSERT(isOpen);
        return QString::fromUtf8(viewer.readAll())
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
                {QStringLiteral("tileResolution"), CubeTiles::kSide},
                {QStringLiteral("maxLevel"), m_tiles.levels()},
                {QStringLiteral("cubeResolution"), m_tiles.cubeSize()},
            });
        return scene;
    }

    QString copyViewer() const
    {
        const QDir viewer(webViewerFolder());
        const QDir folder(file(kViewer));
        QString problem = makeFolder(folder.path());
        if (!problem.isEmpty())
            return problem;
        for (const char *name : kViewerFiles) {
            QFile original(viewer.filePath(QLatin1String(name)));
            const QString copy = folder.filePath(QLatin1String(name));
            if (!original.copy(copy))
                return unwritable(copy, original.errorString());
        }
        return {};
    }

    QString writePicture(const QImage &picture) const
    {
        const QString path = file("picture.js");
        const QSize size = picture.size().boundedTo(QSize(kLargestTexture, kLargestTexture));
        const QImage shown = size == picture.size()
            ? picture
            : picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QImageWriter writer(&buffer, "JPEG");
        writer.setQuality(kPictureQuality);
        if (!writer.write(shown))
            return unwritable(path, writer.errorString());
        return writeWhole({{path, "var pictureData = '" + buffer.data().toBase64() + "';\n"}});
    }

    QString m_folder;
    const Frame &m_frame;
    int m_jobs;
    const Progress &m_progress;
    CubeTiles m_tiles;
    bool m_isCancelled = false;
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

Problem webObstacle(const WebFolder &folder)
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
    if (folder.force)
        return {};
    return {QStringLiteral("%1: exists already").arg(folder.path), Remedy::WritingOver};
}

Problem writeWebFolder(const WebFolder &folder, const QString &picture, const Frame &frame,
    const QString &title, const Progress &progress, bool *isCancelled)
{
    *isCancelled = false;
    Problem problem = webObstacle(folder);
    if (!problem.isEmpty())
        return problem;
    QImageReader reader(picture);
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QImageReader::setAllocationLimit(0);
#endif
    QImage image = reader.read();
    if (image.isNull())
        return QStringLiteral("%1: cannot be read: %2").arg(picture, reader.errorString());
    ReplacedFolder place(placeOf(folder.path));
    WebWriter writer(place.made(), frame, folder.jobs, progress);
    problem = place.open();
    if (problem.isEmpty())
        problem = writer.go(image.convertToFormat(QImage::Format_RGB32), title);
    *isCancelled = writer.isCancelled();
    if (!problem.isEmpty() || *isCancelled)
        return problem;
    return place.putInPlace();
}
