// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

/// What is in the file at \a path. Ends the test program when it cannot be read.
QByteArray fileContent(const QString &path);
/// The same of a file that may be missing: nothing then.
QByteArray contentIfThere(const QString &path);
/// Writes a file and gives its path. Ends the test program when it cannot be written.
QString writeFile(const QString &path, const QByteArray &content);
