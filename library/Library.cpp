// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "library/Library.h"

#include "host/ZIApplication.h"
#include "plugins/ZClaussImport.h"
#include "plugins/ZGigapanImport.h"
#include "plugins/ZMerlinImport.h"
#include "plugins/ZVRDrive2Import.h"

#include <QDir>

namespace {

constexpr const char *kName = "ZPanoHead";

// The imports in the order in which a host lists them.
constexpr QObject *(*kMakers[])() = {
    []() -> QObject * { return new ZClaussImport; },
    []() -> QObject * { return new ZGigapanImport; },
    []() -> QObject * { return new ZMerlinImport; },
    []() -> QObject * { return new ZVRDrive2Import; },
};

// A host's context carries a look that the pages take over as it is; without one they bring theirs.
void setUpLook(const void *hostContext)
{
    static bool done = false;
    if (done)
        return;
    done = true;
    if (!hostContext)
        QDir::setSearchPaths(QStringLiteral("UI"), {QStringLiteral(":/UI")});
}

} // namespace

Library::Library(QObject *parent)
    : QObject(parent)
{
    setObjectName(QLatin1String(kName));
    ZIApplication *host = FindApplication();
    if (!host)
        return;
    host->LoadTranslation(
        QStringLiteral("%1_%2.qm").arg(QLatin1String(kName), host->GetLocale().name()));
    setUpLook(host->GetUiContext());
}

QList<ZIPluginImport *> Library::GetPlugins()
{
    for (const auto make : kMakers)
        m_plugins.append(make());
    QList<ZIPluginImport *> plugins;
    for (const QPointer<QObject> &plugin : qAsConst(m_plugins))
        plugins.append(qobject_cast<ZIPluginImport *>(plugin.data()));
    return plugins;
}

QString Library::GetName() const
{
    return QLatin1String(kName);
}

QString Library::GetAuthor() const
{
    return about::author();
}

QString Library::GetCompany() const
{
    return about::company();
}

QString Library::GetDescription() const
{
    return tr("Comment");
}

QString Library::GetVersion() const
{
    return about::version();
}

QIcon Library::GetIcon() const
{
    return QIcon(heads::resource(heads::kLibrary, heads::kLibrary.logo));
}

QString Library::GetIdentifier() const
{
    return QLatin1String(heads::kLibrary.identifier);
}
