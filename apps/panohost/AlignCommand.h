// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/Console.h"

#include <QStringList>

/// Imports and aligns; \a arguments are those behind "align". Ctrl+C ends it and leaves nothing.
ExitCode runAlign(const QStringList &arguments);
