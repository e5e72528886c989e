// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/Console.h"

#include <QStringList>

/// panohost import HEAD ...: \a arguments are those behind "import".
ExitCode runImport(const QStringList &arguments);

/// How imports are called: all options, with the heads that know them.
QString importHelp();
