// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "papywizard/UIWPMerlin.h"
#include "plugins/ImportPlugin.h"

class ZMerlinImport final : public ImportPlugin<UIWPMerlin> {
    Q_OBJECT
    Q_INTERFACES(ZIPluginImport ZIAbout)
public:
    explicit ZMerlinImport(QObject *parent = nullptr);
};
