// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "plugins/ZClaussImport.h"
#include "plugins/ZGigapanImport.h"
#include "plugins/ZMerlinImport.h"
#include "plugins/ZVRDrive2Import.h"
#include "tests/support/FakeHost.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QSlider>
#include <QTranslator>
#include <QWizard>
#include <memory>

namespace {

using Plugin = std::unique_ptr<QObject>;

struct Head {
    Plugin (*make)();
    const char *key;
    const char *name;
    const char *description;
    const char *identifier;
    const char *icon;
    const char *pageClass;
};

template <class Import> Plugin make()
{
    return std::make_unique<Import>();
}

const Head kHeads[] = {
    {make<ZClaussImport>, "ZClaussImport", "Clauss", "Clauss Rodeon import plugin",
        "5A6F7276-696B-2020-2020-D6D081182F97", "ZClauss.png", "UIWPClauss"},
    {make<ZGigapanImport>, "ZGigapanImport", "Gigapan", "Gigapan import plugin",
        "5A6F7276-696B-2020-2020-6028D47773DF", "ZGigapan.png", "UIWPGigapan"},
    {make<ZMerlinImport>, "ZMerlinImport", "Papywizard", "Papywizard XML import plugin",
        "5A6F7276-696B-2020-2020-483181480AB7", "Papywizard.png", "UIWPMerlin"},
    {make<ZVRDrive2Import>, "ZVRDrive2Import", "VRDrive2", "VRDrive2 XML import plugin",
        "5A6F7276-696B-2020-2020-B662C695C918", "VRDrive2.png", "UIWPVRDrive2"},
};

/// The one head that remembers nothing.
bool remembers(const Head &head)
{
    return qstrcmp(head.key, "ZVRDrive2Import") != 0;
}

FakeHost &host()
{
    return FakeHost::instance();
}

QPair<QString, QString> settingOf(const Head &head)
{
    return {QLatin1String(head.identifier), QLatin1String(head.key)};
}

QWizardPage *pageOf(const Plugin &plugin)
{
    return qobject_cast<ZIPluginImport *>(plugin.get())->GetWizardPages().value(0);
}

/// The choices that a page remembers, as "name=value".
QStringList choicesOf(QWizardPage *page)
{
    QStringList choices;
    for (const char *name : {"m_autoStart", "m_cleanLink", "m_noOptim", "m_GridOptim",
             "m_rbLevelLinking0", "m_rbLevelLinking1", "m_rbStackLinking0", "m_rbStackLinking1"}) {
        if (const auto *button = page->findChild<QAbstractButton *>(QLatin1String(name)))
            choices.append(
                QStringLiteral("%1=%2").arg(QLatin1String(name)).arg(button->isChecked()));
    }
    const auto *zoom = page->findChild<QSlider *>(QStringLiteral("m_hSlider"));
    choices.append(QStringLiteral("zoom=%1").arg(zoom->value()));
    return choices;
}

void setZoom(QWizardPage *page, int zoom)
{
    page->findChild<QSlider *>(QStringLiteral("m_hSlider"))->setValue(zoom);
}

/// Turns each choice to what it is not on a fresh page.
void changeChoices(QWizardPage *page)
{
    for (const char *name :
        {"m_autoStart", "m_cleanLink", "m_noOptim", "m_GridOptim", "m_rbLevelLinking1"}) {
        if (auto *button = page->findChild<QAbstractButton *>(QLatin1String(name)))
            button->click();
    }
    setZoom(page, 77);
}

class DescriptionTranslator final : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return QLatin1String(context) + QLatin1String(": ") + QString::fromUtf8(text);
    }
};

} // namespace

class tst_ImportPlugins : public QObject {
    Q_OBJECT

private slots:
    void init() { host().reset(); }
    void about_data() { heads(); }
    void about()
    {
        const Plugin plugin = head().make();
        QCOMPARE(QLatin1String(plugin->metaObject()->className()), QLatin1String(head().key));
        QCOMPARE(plugin->metaObject()->superClass(), &QObject::staticMetaObject);
        QCOMPARE(plugin->metaObject()->methodCount(), QObject::staticMetaObject.methodCount());
        QCOMPARE(plugin->objectName(), QLatin1String(head().key));
        const auto *about = static_cast<ZIAbout *>(plugin->qt_metacast("ZIAbout"));
        QVERIFY(about);
        QCOMPARE(about->GetName(), QLatin1String(head().name));
        QVERIFY(!about->GetAuthor().isEmpty());
        QCOMPARE(about->GetCompany(), QStringLiteral("Zorvik"));
        QCOMPARE(about->GetDescription(), QLatin1String(head().description));
        QCOMPARE(about->GetVersion(), QStringLiteral("3.0.0.400"));
        QCOMPARE(about->GetIdentifier(), QLatin1String(head().identifier));
        QVERIFY(!about->GetIcon().pixmap(32).isNull());
        QVERIFY(
            QFile::exists(QStringLiteral(":/%1/Resources/%2")
                              .arg(QLatin1String(head().identifier), QLatin1String(head().icon))));

        DescriptionTranslator translator;
        QCoreApplication::installTranslator(&translator);
        QCOMPARE(about->GetDescription(),
            QLatin1String(head().key) + QLatin1String(": ") + QLatin1String(head().description));
        QCoreApplication::removeTranslator(&translator);
    }
    void handsOutItsPage_data() { heads(); }
    void handsOutItsPage()
    {
        const Plugin plugin = head().make();
        auto *import = static_cast<ZIPluginImport *>(plugin->qt_metacast("ZIPluginImport"));
        QVERIFY(import);
        const QList<QWizardPage *> pages = import->GetWizardPages();
        QCOMPARE(pages.size(), 1);
        QCOMPARE(
            QLatin1String(pages[0]->metaObject()->className()), QLatin1String(head().pageClass));
        QVERIFY(!pages[0]->parent());
        QCOMPARE(import->GetWizardPages(), pages);
    }
    void remembersChoices_data() { heads(); }
    void remembersChoices()
    {
        Plugin plugin = head().make();
        QCOMPARE(host().settingsAsked.size(), 1);
        const auto [identifier, key, fallback] = host().settingsAsked[0];
        QCOMPARE(qMakePair(identifier, key), settingOf(head()));
        QVERIFY(!fallback.isValid());
        const QStringList fresh = choicesOf(pageOf(plugin));
        changeChoices(pageOf(plugin));
        const QStringList changed = choicesOf(pageOf(plugin));
        for (const QString &choice : changed)
            QVERIFY2(!fresh.contains(choice), qPrintable(choice));

        QVERIFY(host().settings.isEmpty());
        // A host may call its plug-ins what it likes.
        plugin->setObjectName(QStringLiteral("plug-in 3"));
        plugin.reset();
        QCOMPARE(host().settings.keys(), (QList<QPair<QString, QString>>{settingOf(head())}));
        const QVariant saved = host().settings.first();
        QCOMPARE(saved.userType(), int(QMetaType::QByteArray));
        QCOMPARE(saved.toByteArray().isEmpty(), !remembers(head()));

        plugin = head().make();
        QCOMPARE(choicesOf(pageOf(plugin)), remembers(head()) ? changed : fresh);
    }

    void badStateDoesNoHarm_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QVariantList>("states");
        for (int i = 0; i < int(std::size(kHeads)); ++i) {
            host().reset();
            Plugin plugin = kHeads[i].make();
            changeChoices(pageOf(plugin));
            plugin.reset();
            const QByteArray saved = host().settings.first().toByteArray();

            QVariantList states{QVariant(), QByteArray(), QStringLiteral("on"), 42,
                QVariantMap{{QStringLiteral("zoom"), 3}}, QByteArray(1000, '\xff'), saved + 'x'};
            for (int length = 0; length < saved.size(); ++length)
                states.append(saved.left(length));
            QTest::addRow("%s, none of this version", kHeads[i].key) << i << states;
            if (saved.isEmpty())
                continue;
            QByteArray later = saved;
            ++later.data()[5];
            QByteArray foreign = saved;
            ++foreign.data()[0];
            QTest::addRow("%s, later and foreign", kHeads[i].key)
                << i << QVariantList{later, foreign, QByteArray(later + "more")};
        }
    }
    void badStateDoesNoHarm()
    {
        QFETCH(QVariantList, states);
        const QStringList fresh = choicesOf(pageOf(head().make()));
        for (const QVariant &state : states) {
            host().settings.insert(settingOf(head()), state);
            const Plugin plugin = head().make();
            QCOMPARE(choicesOf(pageOf(plugin)), fresh);
        }
    }
    void lastOneWins_data() { heads(); }
    void lastOneWins()
    {
        Plugin first = head().make();
        Plugin second = head().make();
        setZoom(pageOf(first), 11);
        setZoom(pageOf(second), 22);
        second.reset();
        first.reset();
        QCOMPARE(host().settings.size(), 1);
        const Plugin next = head().make();
        QVERIFY(choicesOf(pageOf(next))
                    .contains(
                        remembers(head()) ? QStringLiteral("zoom=11") : QStringLiteral("zoom=50")));
    }
    void pageDiesWithWizard_data() { heads(); }
    void pageDiesWithWizard()
    {
        Plugin plugin = head().make();
        {
            QWizard wizard;
            wizard.addPage(pageOf(plugin));
        }
        auto *import = qobject_cast<ZIPluginImport *>(plugin.get());
        QCOMPARE(import->GetWizardPages(), QList<QWizardPage *>{nullptr});
        plugin.reset();
        QVERIFY(host().settings.isEmpty());

        // One that outlives the plug-in's wizard goes with the plug-in.
        plugin = head().make();
        const QPointer<QWizardPage> page = pageOf(plugin);
        {
            QWizard wizard;
            wizard.addPage(page);
            page->setParent(nullptr);
        }
        QVERIFY(page);
        plugin.reset();
        QVERIFY(!page);
        QCOMPARE(host().settings.size(), 1);
    }
    void worksWithoutHost_data() { heads(); }
    void worksWithoutHost()
    {
        host().setAbsent(true);
        Plugin plugin = head().make();
        QVERIFY(pageOf(plugin));
        changeChoices(pageOf(plugin));
        plugin.reset();
        QVERIFY(host().settings.isEmpty());
        QVERIFY(host().settingsAsked.isEmpty());
    }

private:
    static void heads();
    static const Head &head();
};

void tst_ImportPlugins::heads()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(kHeads)); ++i)
        QTest::newRow(kHeads[i].key) << i;
}

const Head &tst_ImportPlugins::head()
{
    const int index = *static_cast<const int *>(QTest::qData("index", qMetaTypeId<int>()));
    return kHeads[index];
}

FAKE_HOST_GUI_MAIN(tst_ImportPlugins)
#include "tst_ImportPlugins.moc"
