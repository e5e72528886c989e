// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/makeshooting/Shooting.h"

#include <QImage>

namespace makeshooting {

/// The picture at \a index of \a shooting.
QImage render(const Shooting &shooting, const Scene &scene, int index);

/// Renders \a shooting into the folder \a output: the pictures, the head's file, truth.json and
/// truth.pto. Returns what failed first, naming the file; empty when all is written.
QString writeShooting(const Shooting &shooting, const QString &output, int threads);

} // namespace makeshooting
