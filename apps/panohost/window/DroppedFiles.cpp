// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/DroppedFiles.h"

#include "align/PictureFacts.h"

#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace {

void takeFolder(const QString &path, DroppedFiles &files)
{
    const QDir folder(path);
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        const QString file = folder.filePath(name);
        if (isPictureName(name)) {
            files.pictures.append(file);
        } else if (const HeadFileFormat format = headFileFormat(name);
                   format != HeadFileFormat::None) {
            // What else lies there in such files is nobody's business.
            const HeadFile head = readHeadFile(file, format);
            if (head.problem.isEmpty())
                files.heads.append(head);
        }
    }
}

} // namespace

const HeadFile *DroppedFiles::shooting() const
{
    for (auto head = heads.crbegin(); head != heads.crend(); ++head) {
        if (head->problem.isEmpty())
            return &*head;
    }
    return nullptr;
}

QStringList localPaths(const QMimeData &data)
{
    QStringList paths;
    const QList<QUrl> urls = data.urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    return paths;
}

DroppedFiles sortOut(const QStringList &paths)
{
    DroppedFiles files;
    for (const QString &path : paths) {
        if (QFileInfo(path).isDir())
            takeFolder(path, files);
        else if (const HeadFileFormat format = headFileFormat(path); format != HeadFileFormat::None)
            files.heads.append(readHeadFile(path, format));
        else
            files.pictures.append(path);
    }
    return files;
}

bool dropOn(QWidget *page, const QStringList &files)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &file : files)
        urls.append(QUrl::fromLocalFile(file));
    data.setUrls(urls);
    const QPoint at = page->rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(page, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(page, &drop);
    return drop.isAccepted();
}
