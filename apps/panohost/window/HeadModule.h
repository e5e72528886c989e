// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/window/HeadFile.h"
#include "host/ZIAbout.h"
#include "host/ZIPluginImport.h"

#include <memory>
#include <vector>

/// An import as the plug-in module offers it, and what this host knows of its head besides.
class HeadImport {
public:
    HeadImport(std::unique_ptr<ZIPluginImport> plugin, ZIAbout *about);

    /// Null when a wizard has destroyed it.
    QWizardPage *page() const;
    const ZIAbout &about() const { return *m_about; }

    HeadFileFormat format() const;
    /// Whether the head also shoots in an order that its page can be told of but does not show.
    bool hasSerpentine() const;
    /// Whether its page can take angles in full that its file format cuts.
    bool hasFullAngles() const;
    /// One sentence on what the import needs.
    QString hint() const;

private:
    std::unique_ptr<ZIPluginImport> m_plugin;
    /// The same object.
    ZIAbout *m_about;
};

/// The module with the imports. It must go before the application object does: the imports then
/// save their pages' state.
class HeadModule {
public:
    /// Loads the module at \a path.
    explicit HeadModule(const QString &path);

    /// Why there are no imports, in one sentence; empty when there are.
    const QString &problem() const { return m_problem; }
    const std::vector<HeadImport> &imports() const { return m_imports; }

private:
    std::vector<HeadImport> m_imports;
    QString m_problem;
};
