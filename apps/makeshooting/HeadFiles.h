// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/makeshooting/Shooting.h"

#include <QByteArray>

namespace makeshooting {

/// What the head itself leaves behind: "shooting.xml", "script.txt" or, without a name, nothing.
struct HeadFile {
    QString name;
    QByteArray content;
};

/// The head's file of \a shooting with its nominal positions.
HeadFile headFile(const Shooting &shooting);

} // namespace makeshooting
