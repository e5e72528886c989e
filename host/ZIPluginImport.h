// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QtPlugin>

class QWizardPage;

/// One import: a page for the host's wizard.
class ZIPluginImport {
public:
    virtual ~ZIPluginImport() = default;

    /// The pages to put into a QWizard: a list of one, the same page at every call, or null in it
    /// when the page was already destroyed. The plug-in deletes its page, unless a wizard that had
    /// taken it did: take it out of the wizard (setParent(nullptr)) to use it again.
    virtual QList<QWizardPage *> GetWizardPages() = 0;
};

Q_DECLARE_INTERFACE(ZIPluginImport, "ZIPluginImport")
