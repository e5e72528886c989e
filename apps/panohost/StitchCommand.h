// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/Console.h"

#include <QStringList>

/// panohost stitch ...: \a arguments are those behind "stitch".
ExitCode runStitch(const QStringList &arguments);
