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

struct DropTexts {
    Q_DECLARE_TR_FUNCTIONS(DroppedFiles)
};

/// By its name, else by what is in it. One that is gone is told of as a picture that cannot be
/// read.
bool isPicture(const QString &path)
{
    return isPictureName(path) || !QFileInfo::exists(path)
        || readPictureFacts(path, Thumbnail::Skip).readable;
}

void takeFolder(const QString &path, DroppedFiles &files)
{
    const QDir folder(path);
    const int before = files.heads.size() + files.pictures.size();
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
    if (files.heads.size() + files.pictures.size() == before)
        files.refusal = DropTexts::tr("The folder “%1” holds no pictures and no file of a head.")
                            .arg(folder.dirName());
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
        else if (isPicture(path))
            files.pictures.append(path);
        else
            files.refusal = DropTexts::tr("“%1” is neither a picture nor the file of a head.")
                                .arg(QFileInfo(path).fileName());
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
