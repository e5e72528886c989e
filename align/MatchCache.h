// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QFile>
#include <QHash>

namespace align {

/// Results that outlive a run that is interrupted: values by keys in one file that only grows. What
/// a crash has left half written is forgotten; a file that cannot be read or written is as good as
/// none.
class MatchCache {
public:
    /// In \a folder, which is made; an empty one keeps nothing. \a fresh forgets what is there.
    MatchCache(const QString &folder, bool fresh);

    /// Whether anything is kept.
    bool isUsed() const { return m_file.isOpen(); }
    /// Empty when there is none.
    QByteArray value(const QByteArray &key) const { return m_values.value(key); }
    /// \a value must not be empty; it is in the file when this returns.
    void insert(const QByteArray &key, const QByteArray &value);

    /// Takes the file out of \a folder, and the folder away if nothing else is in it.
    static void remove(const QString &folder);

private:
    void read();

    QFile m_file;
    QHash<QByteArray, QByteArray> m_values;
};

} // namespace align
