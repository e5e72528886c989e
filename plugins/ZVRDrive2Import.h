// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "plugins/ImportPlugin.h"
#include "vrdrive2/UIWPVRDrive2.h"

class ZVRDrive2Import final : public ImportPlugin<UIWPVRDrive2> {
    Q_OBJECT
    Q_INTERFACES(ZIPluginImport ZIAbout)
public:
    explicit ZVRDrive2Import(QObject *parent = nullptr);
};
