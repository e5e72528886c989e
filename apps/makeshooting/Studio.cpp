// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/makeshooting/Studio.h"

#include "apps/makeshooting/HeadFiles.h"
#include "apps/makeshooting/Noise.h"
#include "apps/makeshooting/PictureFile.h"
#include "apps/makeshooting/Rendering.h"
#include "apps/makeshooting/Truth.h"

#include <QDir>
#include <QSaveFile>
#include <mutex>

namespace makeshooting {

namespace {

/// Keeps the first failure; files are written by several threads.
class Writer {
public:
    explicit Writer(const QString &folder)
        : m_folder(folder)
    {
    }

    void write(const QString &name, const QByteArray &content)
    {
        QSaveFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()
            || !file.commit())
            fail(name, file.errorString());
    }
    void fail(const QString &name, const QString &reason)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_error.isEmpty())
            m_error
                = QDir::toNativeSeparators(m_folder.filePath(name)) + QLatin1String(": ") + reason;
    }
    bool failed()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return !m_error.isEmpty();
    }
    QString error() const { return m_error; }

private:
    QDir m_folder;
    std::mutex m_mutex;
    QString m_error;
};

} // namespace

QImage render(const Shooting &shooting, const Scene &scene, int index)
{
    const Picture &picture = shooting.pictures[index];
    Exposure exposure;
    exposure.ev = picture.ev;
    exposure.noise = shooting.options.noise;
    exposure.noiseSeed = scramble(shooting.options.scene.seed, 0x0153, index);
    return takePicture(scene, shooting.camera, picture.rotation, exposure);
}

QString writeShooting(const Shooting &shooting, const QString &output, int threads)
{
    prepareEncoding();
    Writer writer(output);
    const Scene scene(shooting.options.scene);
    forEachInParallel(shooting.pictures.size(), threads, [&](int index) {
        if (writer.failed())
            return;
        const Picture &picture = shooting.pictures[index];
        QString error;
        const QByteArray file
            = encodePicture(shooting, picture, render(shooting, scene, index), &error);
        if (file.isEmpty())
            writer.fail(picture.name, error);
        else
            writer.write(picture.name, file);
    });
    const HeadFile head = headFile(shooting);
    if (!head.name.isEmpty())
        writer.write(head.name, head.content);
    writer.write(QStringLiteral("truth.json"), truthJson(shooting));
    writer.write(QStringLiteral("truth.pto"), truthPto(shooting));
    return writer.error();
}

} // namespace makeshooting
