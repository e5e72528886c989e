// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

/// Heads' files for the benchmarks: rows over 360 x 90 degrees, as even as the number allows.
namespace bench {

/// With \a brackets pictures at every place; \a shots in all.
QByteArray shootingXml(int shots, int brackets = 1);
QByteArray claussScript(int shots);

} // namespace bench
