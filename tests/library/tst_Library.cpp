// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ZIAbout.h"
#include "host/ZIPluginImport.h"
#include "host/ZIPluginLibrary.h"
#include "tests/support/FakeHost.h"

#include <QApplication>
#include <QDir>
#include <QJsonObject>
#include <QPluginLoader>
#include <QPointer>
#include <QTranslator>
#include <QWizardPage>

namespace {

/// Object names, "-" for a plug-in that is gone.
QStringList namesOf(const QList<ZIPluginImport *> &plugins)
{
    QStringList names;
    for (ZIPluginImport *plugin : plugins) {
        const auto *object = dynamic_cast<QObject *>(plugin);
        names.append(object ? object->objectName() : QStringLiteral("-"));
    }
    return names;
}

class CommentTranslator final : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        const bool is = qstrcmp(context, "Library") == 0 && qstrcmp(text, "Comment") == 0;
        return is ? QStringLiteral("Kommentar") : QString();
    }
};

} // namespace

class tst_Library : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        FakeHost::instance().reset();
        // A context, whatever it is, keeps the library from a look of its own.
        FakeHost::instance().uiContext = this;
    }

    void cleanup() { delete m_loader.instance(); }

    void metaData()
    {
        const QJsonObject data = m_loader.metaData();
        QCOMPARE(
            data.value(QLatin1String("IID")).toString(), QStringLiteral("com.zorvik.panohead"));
        QCOMPARE(data.value(QLatin1String("className")).toString(), QStringLiteral("Library"));
        QVERIFY(data.value(QLatin1String("MetaData")).toObject().isEmpty());
    }

    void isMadeAgain()
    {
        QPointer<QObject> instance = m_loader.instance();
        QVERIFY2(instance, qPrintable(m_loader.errorString()));
        QCOMPARE(m_loader.instance(), instance.data());
        QVERIFY(!instance->parent());
        QCOMPARE(QLatin1String(instance->metaObject()->className()), QLatin1String("Library"));
        QCOMPARE(instance->objectName(), QStringLiteral("ZPanoHead"));
        QVERIFY(instance->qt_metacast("ZIPluginLibrary"));
        QVERIFY(instance->qt_metacast("ZIAbout"));
        delete instance;
        QVERIFY(m_loader.instance());
        QVERIFY(qobject_cast<ZIPluginLibrary *>(m_loader.instance()));
    }

    void asksForTranslation_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("fileName");
        QTest::newRow("French") << QLocale(QStringLiteral("fr_FR")) << "ZPanoHead_fr_FR.qm";
        QTest::newRow("Canadian French")
            << QLocale(QStringLiteral("fr_CA")) << "ZPanoHead_fr_CA.qm";
        QTest::newRow("none") << QLocale::c() << "ZPanoHead_C.qm";
    }

    // One name and no other; the host knows what to fall back on.
    void asksForTranslation()
    {
        QFETCH(QLocale, locale);
        FakeHost::instance().locale = locale;
        QVERIFY(makeInstance());
        QCOMPARE(FakeHost::instance().translations.size(), 1);
        QTEST(FakeHost::instance().translations[0], "fileName");
    }

    void worksWithoutHost()
    {
        FakeHost::instance().setAbsent(true);
        ZIPluginLibrary *library = makeLibrary();
        QVERIFY(library);
        const auto plugins = library->GetPlugins();
        QCOMPARE(plugins.size(), 4);
        for (ZIPluginImport *plugin : plugins)
            QVERIFY(plugin->GetWizardPages().value(0));
        qDeleteAll(plugins);
        QVERIFY(FakeHost::instance().translations.isEmpty());
        QVERIFY(FakeHost::instance().settings.isEmpty());
    }

    void leavesTheHostsLook()
    {
        QVERIFY(makeInstance());
        QCOMPARE(QDir::searchPaths(QStringLiteral("UI")), QStringList());
    }

    void about()
    {
        const auto *about = qobject_cast<ZIAbout *>(makeInstance());
        QVERIFY(about);
        QCOMPARE(about->GetName(), QStringLiteral("ZPanoHead"));
        QVERIFY(!about->GetAuthor().isEmpty());
        QCOMPARE(about->GetCompany(), QStringLiteral("Zorvik"));
        QCOMPARE(about->GetDescription(), QStringLiteral("Comment"));
        QCOMPARE(about->GetVersion(), QStringLiteral("3.0.0.400"));
        QCOMPARE(about->GetIdentifier(), QStringLiteral("5A6F7276-696B-2020-2020-2D91D0DDB961"));
        // An icon of a missing file is not null either.
        QVERIFY(!about->GetIcon().pixmap(48).isNull());
        QVERIFY(QFile::exists(
            QStringLiteral(":/5A6F7276-696B-2020-2020-2D91D0DDB961/Resources/ZGigapan.png")));

        CommentTranslator translator;
        QCoreApplication::installTranslator(&translator);
        QCOMPARE(about->GetDescription(), QStringLiteral("Kommentar"));
        QCoreApplication::removeTranslator(&translator);
    }

    void listsPlugins()
    {
        const QStringList four{QStringLiteral("ZClaussImport"), QStringLiteral("ZGigapanImport"),
            QStringLiteral("ZMerlinImport"), QStringLiteral("ZVRDrive2Import")};
        ZIPluginLibrary *library = makeLibrary();
        const auto first = library->GetPlugins();
        QCOMPARE(namesOf(first), four);
        for (ZIPluginImport *plugin : first)
            QVERIFY(!dynamic_cast<QObject *>(plugin)->parent());

        delete first[1];
        const auto second = library->GetPlugins();
        const QStringList left{four[0], QStringLiteral("-"), four[2], four[3]};
        QCOMPARE(namesOf(second), left + four);
        QCOMPARE(second[0], first[0]);
        QCOMPARE(second[3], first[3]);

        // The library deletes none of them.
        delete m_loader.instance();
        QCOMPARE(namesOf(second), left + four);
        qDeleteAll(second);
    }

private:
    /// The library as the host finds it now, made anew.
    QObject *makeInstance();
    ZIPluginLibrary *makeLibrary() { return qobject_cast<ZIPluginLibrary *>(makeInstance()); }

    QPluginLoader m_loader{QStringLiteral(ZPANOHEAD_MODULE)};
};

QObject *tst_Library::makeInstance()
{
    delete m_loader.instance();
    FakeHost::instance().translations.clear();
    return m_loader.instance();
}

FAKE_HOST_GUI_MAIN(tst_Library)
#include "tst_Library.moc"
