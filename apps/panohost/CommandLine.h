// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/Console.h"

#include <QStringList>

/// Runs one command and says what came of it. \a arguments are those behind the program's name, at
/// least one. Needs a QCoreApplication ("map" a QGuiApplication) and nothing else: no display, no
/// plug-in module.
ExitCode runCommandLine(const QStringList &arguments);
