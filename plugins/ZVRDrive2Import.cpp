// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "plugins/ZVRDrive2Import.h"

ZVRDrive2Import::ZVRDrive2Import(QObject *parent)
    : ImportPlugin({"ZVRDrive2Import", "VRDrive2", QT_TR_NOOP("VRDrive2 XML import plugin"),
                       heads::kVRDrive2, "VRDrive2.png"},
        parent)
{
}
