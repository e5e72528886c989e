// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "plugins/ZGigapanImport.h"

ZGigapanImport::ZGigapanImport(QObject *parent)
    : ImportPlugin({"ZGigapanImport", "Gigapan", QT_TR_NOOP("Gigapan import plugin"),
                       heads::kGigapan, "ZGigapan.png"},
        parent)
{
}
