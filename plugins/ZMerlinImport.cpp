// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "plugins/ZMerlinImport.h"

ZMerlinImport::ZMerlinImport(QObject *parent)
    : ImportPlugin({"ZMerlinImport", "Papywizard", QT_TR_NOOP("Papywizard XML import plugin"),
                       heads::kPapywizard, "Papywizard.png"},
        parent)
{
}
