// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QtPlugin>

class ZIPluginImport;

/// What the module's root object offers: the imports. The root object is what
/// QPluginLoader::instance() returns, asked for in the window's thread once the application object
/// is there. The loader owns it.
class ZIPluginLibrary {
public:
    virtual ~ZIPluginLibrary() = default;

    /// Makes the import plug-ins and returns them in their fixed order (an entry is null when its
    /// plug-in was already destroyed). The host owns them and deletes them before its application
    /// object goes, and before the module is unloaded; that saves their pages' options. Every call
    /// makes new ones: call it once.
    virtual QList<ZIPluginImport *> GetPlugins() = 0;
};

Q_DECLARE_INTERFACE(ZIPluginLibrary, "ZIPluginLibrary")
