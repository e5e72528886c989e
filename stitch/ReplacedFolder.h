// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLockFile>
#include <QString>
#include <QTemporaryDir>

/// A folder that is made in another beside it, so that at its path is always a whole one. What it
/// is made in goes with this object; what killed runs left goes when it is opened.
class ReplacedFolder {
public:
    explicit ReplacedFolder(QString path);

    /// Empty, or a sentence: why nothing can be made there.
    QString open();

    /// Where it is made; there when it is open.
    QString made() const { return m_folder.filePath(QStringLiteral("made")); }

    /// Puts what was made at the path. What stood there goes only when this is there. Empty, or a
    /// sentence: why it cannot be.
    QString putInPlace();

private:
    void sweep() const;

    QString m_path;
    QTemporaryDir m_folder;
    QLockFile m_lock;
};
