// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/ZIAbout.h"
#include "host/ZIPluginLibrary.h"

#include <QObject>
#include <QPointer>

/// The module's root object: what a host gets from QPluginLoader::instance().
class Library final : public QObject, public ZIPluginLibrary, public ZIAbout {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.zorvik.panohead")
    Q_INTERFACES(ZIPluginLibrary ZIAbout)
public:
    /// Has the host load the translation of its language and sets up the look of the pages.
    explicit Library(QObject *parent = nullptr);

    QList<ZIPluginImport *> GetPlugins() override;

    QString GetName() const override;
    QString GetAuthor() const override;
    QString GetCompany() const override;
    QString GetDescription() const override;
    QString GetVersion() const override;
    QIcon GetIcon() const override;
    QString GetIdentifier() const override;

private:
    /// Not owned: the host deletes them.
    QList<QPointer<QObject>> m_plugins;
};
