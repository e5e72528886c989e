// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/ReplacedFolder.h"

#include "align/OutputFile.h"

#include <QDir>
#include <QFileInfo>
#include <utility>

namespace {

QString lockIn(const QString &folder)
{
    return QDir(folder).filePath(QStringLiteral("panohost.lock"));
}

} // namespace

ReplacedFolder::ReplacedFolder(QString path)
    : m_path(std::move(path))
    , m_folder(m_path + QStringLiteral(".XXXXXX"))
    , m_lock(lockIn(m_folder.path()))
{
    m_lock.setStaleLockTime(0);
}

QString ReplacedFolder::open()
{
    sweep();
    if (!m_folder.isValid())
        return unwritable(m_path, m_folder.errorString());
    if (!m_lock.tryLock(0))
        return unwritable(lockIn(m_folder.path()));
    return makeFolder(made());
}

QString ReplacedFolder::putInPlace()
{
    const QString old = m_folder.filePath(QStringLiteral("old"));
    const bool isOld = QFileInfo::exists(m_path);
    QString problem = isOld ? moveFile(m_path, old) : QString();
    if (!problem.isEmpty())
        return problem;
    problem = moveFile(made(), m_path);
    if (!problem.isEmpty() && isOld && !moveFile(old, m_path).isEmpty())
        m_folder.setAutoRemove(false);
    return problem;
}

/// Takes away what killed runs left. Without a lock in it, it is not ours.
void ReplacedFolder::sweep() const
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
