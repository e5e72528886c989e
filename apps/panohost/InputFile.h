// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// The whole content of the file at \a path; nothing, and in \a problem why, in words that follow
/// the file's name and a colon, when it cannot be read. "-" is standard input.
std::optional<QByteArray> readFile(const QString &path, QString *problem);
