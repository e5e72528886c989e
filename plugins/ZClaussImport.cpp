// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "plugins/ZClaussImport.h"

ZClaussImport::ZClaussImport(QObject *parent)
    : ImportPlugin({"ZClaussImport", "Clauss", QT_TR_NOOP("Clauss Rodeon import plugin"),
                       heads::kClauss, "ZClauss.png"},
        parent)
{
}
