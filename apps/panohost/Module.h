// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

/// The places where the plug-in module may lie, the likeliest first, for a program in
/// \a programFolder: the build tree, then the places of an installation. What the environment
/// variable ZPANOHEAD_MODULE names is the only one where it is set.
QStringList modulePlaces(const QString &programFolder);

/// The first of modulePlaces() that exists, else the first of all, so that a message can name it.
/// Needs the application object.
QString findModule();
