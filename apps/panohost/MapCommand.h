// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/Console.h"

#include <QStringList>

/// panohost map RECORD ...: \a arguments are those behind "map". Needs a QGuiApplication, for there
/// is text to be drawn, but no display.
ExitCode runMap(const QStringList &arguments);
