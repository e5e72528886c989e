// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ImageInfo.h"
#include "host/ProjectRecord.h"
#include "host/ZIAbout.h"
#include "host/ZIApplication.h"
#include "host/ZIPluginImport.h"
#include "host/ZIPluginLibrary.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QTest>

namespace {

/// Calls the virtual function in \a slot of an interface as a program compiled elsewhere does:
/// through the table, knowing nothing but the slot's number and its arguments. The destructor in
/// slot 0 takes two entries of the table.
template <class Result, class Interface, class... Arguments>
Result callSlot(Interface *object, int slot, Arguments... arguments)
{
    auto *const *table = *reinterpret_cast<void *const *const *>(object);
    const auto function = reinterpret_cast<Result (*)(Interface *, Arguments...)>(table[slot + 1]);
    return function(object, arguments...);
}

/// Of the two entries the second also frees the object.
template <class Interface> void destroyBySlot(Interface *object)
{
    callSlot<void>(object, 0);
}

/// What was called last, and with what.
QString called;

class SpyApplication final : public ZIApplication {
public:
    ~SpyApplication() override { called = QStringLiteral("destroyed"); }
    void Reserved1() override { called = QStringLiteral("1"); }
    void Reserved2() override { called = QStringLiteral("2"); }
    QString GetImagesDirectory() override { return QStringLiteral("folder"); }
    void SetImagesDirectory(const QString &path) override { called = path; }
    QVariant GetSetting(
        const QString &identifier, const QString &key, const QVariant &fallback) override
    {
        return QString(identifier + key + fallback.toString());
    }
    void SetSetting(const QString &identifier, const QString &key, const QVariant &value) override
    {
        called = identifier + key + value.toString();
    }
    void Reserved7() override { called = QStringLiteral("7"); }
    QLocale GetLocale() override { return QLocale(QStringLiteral("fr_CA")); }
    void Reserved9() override { called = QStringLiteral("9"); }
    void Reserved10() override { called = QStringLiteral("10"); }
    void LoadTranslation(const QString &fileName) override { called = fileName; }
    ImageInfo *ReadImageInfo(const QString &path) override
    {
        called = path;
        return nullptr;
    }
    void ImportProject(const ProjectRecord &record) override
    {
        called = QString::number(record.outputType);
    }
    void Reserved14() override { called = QStringLiteral("14"); }
    void Reserved15() override { called = QStringLiteral("15"); }
    void *GetUiContext() override { return this; }
};

class SpyInfo final : public ImageInfo {
public:
    ~SpyInfo() override { called = QStringLiteral("destroyed"); }
    const QPixmap &GetThumbnail() const override { return m_thumbnail; }
    void Reserved2() override { called = QStringLiteral("2"); }
    void Reserved3() override { called = QStringLiteral("3"); }
    void Reserved4() override { called = QStringLiteral("4"); }
    void Reserved5() override { called = QStringLiteral("5"); }
    void Reserved6() override { called = QStringLiteral("6"); }
    void Reserved7() override { called = QStringLiteral("7"); }
    void Reserved8() override { called = QStringLiteral("8"); }
    void Reserved9() override { called = QStringLiteral("9"); }
    void Reserved10() override { called = QStringLiteral("10"); }
    void Reserved11() override { called = QStringLiteral("11"); }
    float GetFocalLength() const override { return 24.5F; }
    int GetLensType() const override { return 1; }
    void Reserved14() override { called = QStringLiteral("14"); }
    float GetExposure() const override { return -2.5F; }

private:
    QPixmap m_thumbnail{3, 2};
};

class SpyLibrary final : public ZIPluginLibrary {
public:
    ~SpyLibrary() override { called = QStringLiteral("destroyed"); }
    QList<ZIPluginImport *> GetPlugins() override { return {nullptr, nullptr}; }
};

class SpyImport final : public ZIPluginImport {
public:
    ~SpyImport() override { called = QStringLiteral("destroyed"); }
    QList<QWizardPage *> GetWizardPages() override { return {nullptr, nullptr, nullptr}; }
};

class SpyAbout final : public ZIAbout {
public:
    ~SpyAbout() override { called = QStringLiteral("destroyed"); }
    QString GetName() const override { return QStringLiteral("name"); }
    QString GetAuthor() const override { return QStringLiteral("author"); }
    QString GetCompany() const override { return QStringLiteral("company"); }
    QString GetDescription() const override { return QStringLiteral("description"); }
    QString GetVersion() const override { return QStringLiteral("version"); }
    QIcon GetIcon() const override { return {QPixmap(3, 2)}; }
    QString GetIdentifier() const override { return QStringLiteral("identifier"); }
};

/// A host as its author writes it.
class HostApplication final : public QGuiApplication, public ZIApplication {
    Q_OBJECT
    Q_INTERFACES(ZIApplication)
public:
    using QGuiApplication::QGuiApplication;
    QString GetImagesDirectory() override { return {}; }
    void SetImagesDirectory(const QString &) override { }
    QVariant GetSetting(const QString &, const QString &, const QVariant &fallback) override
    {
        return fallback;
    }
    void SetSetting(const QString &, const QString &, const QVariant &) override { }
    QLocale GetLocale() override { return {}; }
    void LoadTranslation(const QString &) override { }
    ImageInfo *ReadImageInfo(const QString &) override { return nullptr; }
    void ImportProject(const ProjectRecord &) override { }
    void *GetUiContext() override { return nullptr; }
};

} // namespace

class tst_Interfaces : public QObject {
    Q_OBJECT

private slots:
    void init() { called.clear(); }
    void applicationOrder();
    void imageInfoOrder();
    void pluginOrder();
    void aboutOrder();
    void applicationIsFoundByName();
};

void tst_Interfaces::applicationOrder()
{
    ZIApplication *host = new SpyApplication;
    using Text = const QString &;
    using Value = const QVariant &;
    const QString a = QStringLiteral("a");
    const QString b = QStringLiteral("b");
    for (const int reserved : {1, 2, 7, 9, 10, 14, 15}) {
        callSlot<void>(host, reserved);
        QCOMPARE(called, QString::number(reserved));
    }
    QCOMPARE(callSlot<QString>(host, 3), QStringLiteral("folder"));
    callSlot<void, ZIApplication, Text>(host, 4, a);
    QCOMPARE(called, a);
    const QVariant c = QStringLiteral("c");
    QCOMPARE((callSlot<QVariant, ZIApplication, Text, Text, Value>(host, 5, a, b, c)).toString(),
        QStringLiteral("abc"));
    called.clear();
    callSlot<void, ZIApplication, Text, Text, Value>(host, 6, a, b, c);
    QCOMPARE(called, QStringLiteral("abc"));
    QCOMPARE(callSlot<QLocale>(host, 8), QLocale(QStringLiteral("fr_CA")));
    callSlot<void, ZIApplication, Text>(host, 11, QStringLiteral("x.qm"));
    QCOMPARE(called, QStringLiteral("x.qm"));
    callSlot<ImageInfo *, ZIApplication, Text>(host, 12, QStringLiteral("x.jpg"));
    QCOMPARE(called, QStringLiteral("x.jpg"));
    ProjectRecord record;
    record.outputType = 3;
    callSlot<void, ZIApplication, const ProjectRecord &>(host, 13, record);
    QCOMPARE(called, QStringLiteral("3"));
    QCOMPARE(callSlot<void *>(host, 16), static_cast<void *>(host));
    destroyBySlot(host);
    QCOMPARE(called, QStringLiteral("destroyed"));
}

void tst_Interfaces::imageInfoOrder()
{
    ImageInfo *info = new SpyInfo;
    for (const int reserved : {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 14}) {
        callSlot<void>(info, reserved);
        QCOMPARE(called, QString::number(reserved));
    }
    QCOMPARE((callSlot<const QPixmap &>(info, 1)).size(), QSize(3, 2));
    QCOMPARE(callSlot<float>(info, 12), 24.5F);
    QCOMPARE(callSlot<int>(info, 13), 1);
    QCOMPARE(callSlot<float>(info, 15), -2.5F);
    destroyBySlot(info);
    QCOMPARE(called, QStringLiteral("destroyed"));
}

void tst_Interfaces::pluginOrder()
{
    ZIPluginLibrary *library = new SpyLibrary;
    QCOMPARE(callSlot<QList<ZIPluginImport *>>(library, 1).size(), 2);
    destroyBySlot(library);
    QCOMPARE(called, QStringLiteral("destroyed"));

    called.clear();
    ZIPluginImport *import = new SpyImport;
    QCOMPARE(callSlot<QList<QWizardPage *>>(import, 1).size(), 3);
    destroyBySlot(import);
    QCOMPARE(called, QStringLiteral("destroyed"));
}

void tst_Interfaces::aboutOrder()
{
    ZIAbout *about = new SpyAbout;
    QCOMPARE(callSlot<QString>(about, 1), QStringLiteral("name"));
    QCOMPARE(callSlot<QString>(about, 2), QStringLiteral("author"));
    QCOMPARE(callSlot<QString>(about, 3), QStringLiteral("company"));
    QCOMPARE(callSlot<QString>(about, 4), QStringLiteral("description"));
    QCOMPARE(callSlot<QString>(about, 5), QStringLiteral("version"));
    QCOMPARE(callSlot<QIcon>(about, 6).availableSizes(), QList<QSize>{QSize(3, 2)});
    QCOMPARE(callSlot<QString>(about, 7), QStringLiteral("identifier"));
    destroyBySlot(about);
    QCOMPARE(called, QStringLiteral("destroyed"));
}

void tst_Interfaces::applicationIsFoundByName()
{
    auto *application = static_cast<HostApplication *>(QCoreApplication::instance());
    ZIApplication *host = application;
    QCOMPARE(application->qt_metacast("ZIApplication"), static_cast<void *>(host));
    QCOMPARE(FindApplication(), host);
    QVERIFY(!application->qt_metacast("ZIAbout"));
}

int main(int argc, char **argv)
{
    HostApplication application(argc, argv);
    tst_Interfaces test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_Interfaces.moc"
