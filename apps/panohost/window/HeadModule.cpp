// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/HeadModule.h"

#include "host/ZIPluginLibrary.h"

#include <QCoreApplication>
#include <QPluginLoader>

namespace {

struct ModuleTexts {
    Q_DECLARE_TR_FUNCTIONS(HeadModule)
};

/// What this host knows of a head beyond what its plug-in says.
struct KnownHead {
    const char *identifier;
    HeadFileFormat format;
    bool hasSerpentine;
    bool hasFullAngles;
    const char *hint;
};

constexpr KnownHead kKnownHeads[] = {
    {"5A6F7276-696B-2020-2020-D6D081182F97", HeadFileFormat::Script, false, true,
        QT_TRANSLATE_NOOP("HeadModule",
            "Rodeon heads of Dr. Clauss: the script (.txt) that drove the head, and the "
            "pictures.")},
    {"5A6F7276-696B-2020-2020-6028D47773DF", HeadFileFormat::None, true, false,
        QT_TRANSLATE_NOOP("HeadModule",
            "Gigapan heads, and all that shoot a regular grid: only the pictures, rows and columns "
            "are asked for.")},
    {"5A6F7276-696B-2020-2020-483181480AB7", HeadFileFormat::Shooting, false, false,
        QT_TRANSLATE_NOOP("HeadModule",
            "Merlin, Orion and other heads driven by Papywizard: its shooting file (.xml) and the "
            "pictures.")},
    {"5A6F7276-696B-2020-2020-B662C695C918", HeadFileFormat::Shooting, false, false,
        QT_TRANSLATE_NOOP("HeadModule",
            "Roundshot VR Drive 2: its shooting file (.xml) and the pictures, made for HDR "
            "panoramas.")},
};

const KnownHead *knownHead(const ZIAbout &about)
{
    for (const KnownHead &head : kKnownHeads) {
        if (about.GetIdentifier() == QLatin1String(head.identifier))
            return &head;
    }
    return nullptr;
}

} // namespace

HeadImport::HeadImport(std::unique_ptr<ZIPluginImport> plugin, ZIAbout *about)
    : m_plugin(std::move(plugin))
    , m_about(about)
{
}

QWizardPage *HeadImport::page() const
{
    const QList<QWizardPage *> pages = m_plugin->GetWizardPages();
    return pages.value(0);
}

HeadFileFormat HeadImport::format() const
{
    const KnownHead *head = knownHead(*m_about);
    return head ? head->format : HeadFileFormat::None;
}

bool HeadImport::hasSerpentine() const
{
    const KnownHead *head = knownHead(*m_about);
    return head && head->hasSerpentine;
}

bool HeadImport::hasFullAngles() const
{
    const KnownHead *head = knownHead(*m_about);
    return head && head->hasFullAngles;
}

QString HeadImport::hint() const
{
    const KnownHead *head = knownHead(*m_about);
    return head ? ModuleTexts::tr(head->hint) : QString();
}

HeadModule::HeadModule(const QString &path)
{
    QPluginLoader loader(path);
    auto *library = qobject_cast<ZIPluginLibrary *>(loader.instance());
    if (!library) {
        const QString reason = loader.isLoaded()
            ? ModuleTexts::tr("It is a plug-in of another kind.")
            : loader.errorString();
        m_problem = ModuleTexts::tr("The module with the imports cannot be loaded from %1. %2")
                        .arg(path, reason);
        return;
    }
    const QList<ZIPluginImport *> plugins = library->GetPlugins();
    for (ZIPluginImport *plugin : plugins) {
        std::unique_ptr<ZIPluginImport> owned(plugin);
        if (auto *about = qobject_cast<ZIAbout *>(dynamic_cast<QObject *>(plugin)))
            m_imports.emplace_back(std::move(owned), about);
    }
    if (m_imports.empty())
        m_problem = ModuleTexts::tr("The module %1 offers no imports.").arg(path);
}
