// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "gigapan/UIWPGigapan.h"
#include "plugins/ImportPlugin.h"

class ZGigapanImport final : public ImportPlugin<UIWPGigapan> {
    Q_OBJECT
    Q_INTERFACES(ZIPluginImport ZIAbout)
public:
    explicit ZGigapanImport(QObject *parent = nullptr);
};
