// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/ZIAbout.h"
#include "host/ZIApplication.h"
#include "host/ZIPluginImport.h"
#include "plugins/About.h"

#include <QObject>
#include <QPointer>

/// What an import plug-in says of itself.
struct ImportAbout {
    /// Name of the plug-in's class: object name, settings key and translation context.
    const char *key;
    const char *name;
    /// Source text, translated in the context of the class.
    const char *description;
    const heads::Head &head;
    /// File name of the icon among the plug-in's resources.
    const char *icon;
};

/// An import around its wizard page \a Page: makes it, hands it out, keeps its state in the host's
/// settings. Each plug-in class derives from it with Q_OBJECT and names its interfaces.
template <class Page> class ImportPlugin : public QObject, public ZIPluginImport, public ZIAbout {
public:
    ImportPlugin(const ImportAbout &about, QObject *parent)
        : QObject(parent)
        , m_about(about)
        , m_page(new Page)
    {
        setObjectName(QLatin1String(m_about.key));
        if (ZIApplication *host = FindApplication())
            m_page->RestoreState(
                host->GetSetting(GetIdentifier(), objectName(), QVariant()).toByteArray());
    }

    ~ImportPlugin() override
    {
        // The page may be gone with a wizard that had adopted it.
        if (!m_page)
            return;
        if (ZIApplication *host = FindApplication())
            host->SetSetting(GetIdentifier(), QLatin1String(m_about.key), m_page->SaveState());
        delete m_page;
    }

    QList<QWizardPage *> GetWizardPages() override { return {m_page.data()}; }

    QString GetName() const override { return QLatin1String(m_about.name); }
    QString GetAuthor() const override { return about::author(); }
    QString GetCompany() const override { return about::company(); }
    QString GetDescription() const override
    {
        return QCoreApplication::translate(m_about.key, m_about.description);
    }
    QString GetVersion() const override { return about::version(); }
    QIcon GetIcon() const override { return QIcon(heads::resource(m_about.head, m_about.icon)); }
    QString GetIdentifier() const override { return QLatin1String(m_about.head.identifier); }

private:
    ImportAbout m_about;
    QPointer<Page> m_page;
};
