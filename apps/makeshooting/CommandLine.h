// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/makeshooting/Shooting.h"

#include <QStringList>

namespace makeshooting {

struct CommandLine {
    ShootingOptions shooting;
    /// Folder for the shooting; empty when only the scene is wanted.
    QString output;
    bool force = false;
    /// 0: as many as there are cores.
    int threads = 0;
    /// File for the whole scene, and its width in pixels.
    QString scene;
    int sceneWidth = 4096;

    /// Set instead of the rest: an answer for standard output, or what is wrong.
    QString answer;
    QString error;
};

/// \a arguments begin with the program's name.
CommandLine parseCommandLine(const QStringList &arguments);

/// Names as the command line and the truth's file have them.
QString nameOf(HeadFormat format);
QString nameOf(Lens lens);

} // namespace makeshooting
