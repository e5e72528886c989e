// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QIcon>
#include <QString>
#include <QtPlugin>

/// Who a plug-in is. Offered by the library's root object (qobject_cast) and by every import
/// (dynamic_cast). Called in the window's thread; the answers are values, the caller's own.
class ZIAbout {
public:
    virtual ~ZIAbout() = default;

    /// "ZPanoHead"; of the imports "Clauss", "Gigapan", "Papywizard", "VRDrive2". Not translated.
    virtual QString GetName() const = 0;
    virtual QString GetAuthor() const = 0;
    virtual QString GetCompany() const = 0;
    /// One sentence in the user's language.
    virtual QString GetDescription() const = 0;
    /// Such as "3.0.0.400".
    virtual QString GetVersion() const = 0;
    virtual QIcon GetIcon() const = 0;
    /// 36 characters in the grouping of a UUID: the key of the plug-in's settings and resources.
    virtual QString GetIdentifier() const = 0;
};

Q_DECLARE_INTERFACE(ZIAbout, "ZIAbout")
