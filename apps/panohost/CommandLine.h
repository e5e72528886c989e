// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/Console.h"

#include <QStringList>

/// Whether \a word, the first behind the program's name, is a command or an option, not a file.
bool isCommand(const QString &word);

/// Runs one command and says what came of it. \a arguments are those behind the program's name, at
/// least one. Needs a QCoreApplication ("map" a QGuiApplication) and nothing else: no display, no
/// plug-in module.
ExitCode runCommandLine(const QStringList &arguments);
