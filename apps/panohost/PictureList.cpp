// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/PictureList.h"

#include "apps/panohost/Console.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <algorithm>
#include <cstdio>

namespace {

/// Tells how far the reading is: on a terminal in one changing line, in a log now and then.
class Progress {
public:
    explicit Progress(int total)
        : m_total(total)
        , m_watched(console::isWatched())
        , m_next(m_watched ? 1000 : 10'000)
    {
        m_timer.start();
    }
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;
    ~Progress()
    {
        if (m_shown && m_watched)
            console::showPassing({});
    }

    void advance(int done)
    {
        if (m_timer.elapsed() < m_next)
            return;
        m_next = m_timer.elapsed() + (m_watched ? 200 : 10'000);
        m_shown = true;
        const QString text = QStringLiteral("%1 of %2 pictures read").arg(done).arg(m_total);
        m_watched ? console::showPassing(text) : console::complain(text);
    }

private:
    int m_total;
    bool m_watched;
    bool m_shown = false;
    /// Milliseconds since the start.
    qint64 m_next;
    QElapsedTimer m_timer;
};

} // namespace

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
    QFile file;
    bool open = false;
    if (list == QLatin1String("-")) {
        open = file.open(stdin, QIODevice::ReadOnly);
    } else {
        file.setFileName(list);
        open = !QFileInfo(list).isDir() && file.open(QIODevice::ReadOnly);
    }
    if (!open) {
        *problem = QStringLiteral("%1: %2").arg(list,
            QFileInfo(list).isDir()
                ? QStringLiteral("is a folder, not a list of pictures")
                : QStringLiteral("cannot be opened: %1").arg(file.errorString()));
        return std::nullopt;
    }
    QByteArray content = file.readAll();
    if (content.startsWith("\xEF\xBB\xBF"))
        content.remove(0, 3);
    QStringList paths;
    for (QByteArray line : content.split('\n')) {
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
    Progress progress(pictures->paths.size());
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
        progress.advance(pictures->facts.size());
    }
}
