// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/PictureList.h"

#include "apps/panohost/InputFile.h"
#include "apps/panohost/ProgressLine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <algorithm>

PictureTable PictureList::table() const
{
    PictureTable table;
    table.reserve(paths.size());
    for (int i = 0; i < facts.size(); ++i)
        table.insert(paths.at(i), facts.at(i));
    return table;
}

std::optional<QStringList> pathsFrom(const QString &list, QString *problem)
{
    auto content = readFile(list, problem);
    if (!content) {
        problem->prepend(list + QStringLiteral(": "));
        return std::nullopt;
    }
    if (content->startsWith("\xEF\xBB\xBF"))
        content->remove(0, 3);
    QStringList paths;
    for (QByteArray line : content->split('\n')) {
        // Blanks belong to a name; what an editor of another system ends its lines with does not.
        if (line.endsWith('\r'))
            line.chop(1);
        if (!line.isEmpty())
            paths.append(QFile::decodeName(line));
    }
    return paths;
}

QStringList picturesNamed(const QStringList &named, QStringList *problems)
{
    QStringList paths;
    for (const QString &name : named) {
        const QFileInfo info(name);
        if (!info.isDir()) {
            paths.append(info.absoluteFilePath());
            continue;
        }
        QStringList names = QDir(info.absoluteFilePath()).entryList(QDir::Files, QDir::NoSort);
        names.erase(std::remove_if(names.begin(), names.end(),
                        [](const QString &name) { return !isPictureName(name); }),
            names.end());
        names.sort();
        if (names.isEmpty())
            problems->append(QStringLiteral("%1: there are no pictures in this folder").arg(name));
        const QDir folder(info.absoluteFilePath());
        for (const QString &entry : qAsConst(names))
            paths.append(folder.absoluteFilePath(entry));
    }
    return paths;
}

void readPictures(PictureList *pictures, QStringList *problems)
{
    ProgressLine line(ProgressLine::Start::Later);
    QSet<QString> seen;
    pictures->facts.reserve(pictures->paths.size());
    for (const QString &path : qAsConst(pictures->paths)) {
        pictures->facts.append(readPictureFacts(path, Thumbnail::Skip));
        const PictureFacts &facts = pictures->facts.constLast();
        if (seen.contains(path))
            problems->append(QStringLiteral("%1: is chosen more than once").arg(path));
        else if (!facts.readable)
            problems->append(QStringLiteral("%1: %2").arg(path, facts.reason));
        seen.insert(path);
        line.show(
            QStringLiteral("reading pictures"), pictures->facts.size(), pictures->paths.size());
    }
}
