// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clauss/UIWPClauss.h"
#include "plugins/ImportPlugin.h"

class ZClaussImport final : public ImportPlugin<UIWPClauss> {
    Q_OBJECT
    Q_INTERFACES(ZIPluginImport ZIAbout)
public:
    explicit ZClaussImport(QObject *parent = nullptr);
};
