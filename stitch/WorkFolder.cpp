// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/WorkFolder.h"

#include "align/OutputFile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace {

struct FolderTexts {
    Q_DECLARE_TR_FUNCTIONS(WorkFolder)
};

/// Only files with this in front of their name are ours to take away.
const QString kFinished = QStringLiteral("done-");
const QString kUnfinished = QStringLiteral("part-");
const QString kLock = QStringLiteral("lock");
const QString kLog = QStringLiteral("log.txt");
/// Milliseconds.
constexpr int kPatience = 2000;

} // namespace

QString WorkFolder::file(const QString &name) const
{
    return QDir(m_path).filePath(name);
}

qint64 WorkFolder::size() const
{
    qint64 size = 0;
    for (const QFileInfo &info : QDir(m_path).entryInfoList(QDir::Files))
        size += info.size();
    return size;
}

QString WorkFolder::open()
{
    if (QFileInfo::exists(m_path) && !QFileInfo(m_path).isDir())
        return FolderTexts::tr("%1: is needed as a folder for the work, but is a file").arg(m_path);
    if (!QDir().mkpath(m_path))
        return FolderTexts::tr("%1: the folder for the work cannot be made").arg(m_path);
    m_lock = std::make_unique<QLockFile>(file(kLock));
    m_lock->setStaleLockTime(0);
    // What a run has started that was killed may take a moment to end, and holds the lock till
    // then.
    if (!m_lock->tryLock(kPatience)) {
        const bool isOther = m_lock->error() == QLockFile::LockFailedError;
        m_lock.reset();
        return isOther ? FolderTexts::tr("%1: another run is at work there").arg(m_path)
                       : FolderTexts::tr("%1: cannot be written to").arg(m_path);
    }
    sweep();
    return {};
}

QString WorkFolder::finished(const char *kind, const QByteArray &recipe, const char *suffix)
{
    const QByteArray key = QCryptographicHash::hash(recipe, QCryptographicHash::Sha1).toHex();
    const QString name = kFinished + QLatin1String(kind) + QLatin1Char('-')
        + QString::fromLatin1(key.left(24)) + QLatin1String(suffix);
    m_wanted.insert(name);
    return file(name);
}

bool WorkFolder::has(const QString &finished) const
{
    return QFileInfo(finished).size() > 0;
}

QString WorkFolder::unfinished(const QString &finished) const
{
    return file(kUnfinished + QFileInfo(finished).fileName());
}

QStringList WorkFolder::allUnfinished(const QString &pattern) const
{
    QStringList paths;
    for (const QString &name :
        QDir(m_path).entryList({kUnfinished + pattern}, QDir::Files, QDir::Name))
        paths.append(file(name));
    return paths;
}

QString WorkFolder::finish(const QString &unfinished, const QString &finished)
{
    return moveFile(unfinished, finished);
}

void WorkFolder::prune() const
{
    const QDir folder(m_path);
    for (const QString &name : folder.entryList({kFinished + QLatin1Char('*')}, QDir::Files)) {
        const bool isBeside = name.endsWith(QLatin1String("_gray.pgm"));
        QString owner = name;
        if (isBeside)
            owner.replace(QLatin1String("_gray.pgm"), QLatin1String(".exr"));
        if (!m_wanted.contains(owner))
            QFile::remove(folder.filePath(name));
    }
}

void WorkFolder::sweep() const
{
    for (const QString &path : allUnfinished(QStringLiteral("*")))
        QFile::remove(path);
    QFile::remove(file(kLog));
}

void WorkFolder::removeUnlessUsed()
{
    const QStringList finished{kFinished + QLatin1Char('*')};
    if (QDir(m_path).entryList(finished, QDir::Files).isEmpty())
        remove();
}

void WorkFolder::remove()
{
    m_wanted.clear();
    prune();
    sweep();
    m_lock.reset();
    QDir().rmdir(m_path);
}

QByteArray identityOf(const QString &path)
{
    const QFileInfo info(path);
    return path.toUtf8() + '\n' + QByteArray::number(info.size()) + '\n'
        + QByteArray::number(info.lastModified().toMSecsSinceEpoch()) + '\n';
}
