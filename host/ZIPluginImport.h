// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QtPlugin>

class QWizardPage;

/// One import: a page for the host's wizard. Belongs to the window's thread, page and all. It is a
/// QObject and a ZIAbout as well: dynamic_cast tells.
///
/// A page takes files as the user drops them (Qt's drag and drop events), is complete when the
/// pictures that were read are as many as the shooting has, and hands its record to the host in
/// validatePage(). Beside what QWizardPage offers it has, for the host,
///   the property "configFile" (QString): the head's file, empty when there is none;
///   the property "images" (QStringList): the chosen pictures in their order;
///   the property "imagesRead" (int): how many the host has read for it by now;
///   the slot Reset(): forgets file and pictures, and waits for the picture being read.
/// The properties are there to be read; they have changed when completeChanged() is emitted.
/// The Clauss page heeds a property that the host sets, "fullAngles" (bool, unset is false): true
/// keeps the fractions of a degree that scripts read from then on may have. The Gigapan page's slot
/// OnMode4Toggled(true) chooses the shooting order for which it has no button: rows upward in
/// turning direction.
class ZIPluginImport {
public:
    virtual ~ZIPluginImport() = default;

    /// The pages to put into a QWizard: a list of one, the same page at every call, or null in it
    /// when the page was already destroyed. The plug-in deletes its page. A wizard deletes the
    /// pages that it holds, and their options are then not saved: delete the plug-in first, or take
    /// the page out (QWizard::removePage(), then setParent(nullptr)), which also allows to use it
    /// again.
    virtual QList<QWizardPage *> GetWizardPages() = 0;
};

Q_DECLARE_INTERFACE(ZIPluginImport, "ZIPluginImport")
