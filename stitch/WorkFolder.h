// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QLockFile>
#include <QSet>
#include <QString>
#include <memory>

/// Where the work on one panorama lies until it is done. What is finished is named after all that
/// it was made of: a later run that needs the same finds it and makes nothing twice.
class WorkFolder {
public:
    explicit WorkFolder(QString path)
        : m_path(std::move(path))
    {
    }

    /// Makes the folder where need be, keeps other runs out of it and sweeps what an interrupted
    /// run left half done. Empty, or why it cannot be used.
    QString open();

    QString path() const { return m_path; }
    /// Bytes of its files.
    qint64 size() const;
    QString file(const QString &name) const;

    /// The finished file of \a kind ("layer") made by \a recipe, with \a suffix.
    QString finished(const char *kind, const QByteArray &recipe, const char *suffix);
    bool has(const QString &finished) const;
    /// Where something is made that is not finished yet; swept by open().
    QString unfinished(const QString &finished) const;
    /// The unfinished files of names like \a pattern, in their order.
    QStringList allUnfinished(const QString &pattern) const;
    /// Makes what was unfinished finished. Empty, or a sentence: why it cannot be.
    static QString finish(const QString &unfinished, const QString &finished);

    /// Takes finished files away that finished() was not asked for since open().
    void prune() const;
    /// Takes all away, and the folder when nothing else is in it.
    void remove();
    /// Takes the folder away where nothing is in it that a later run could go on from.
    void removeUnlessUsed();

private:
    /// Takes away what is not finished.
    void sweep() const;

    QString m_path;
    QSet<QString> m_wanted;
    std::unique_ptr<QLockFile> m_lock;
};

/// What tells the file at \a path from another and from itself when it has changed.
QByteArray identityOf(const QString &path);
