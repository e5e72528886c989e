// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The Gigapan page's own rules, driven through its window.

#include "gigapan/UIWPGigapan.h"
#include "tests/support/FakeHost.h"
#include "tests/support/PageDriver.h"
#include "tests/support/RecordDump.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QRadioButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSlider>
#include <QTemporaryDir>

namespace {

FakeHost &host()
{
    return FakeHost::instance();
}

/// "rows x columns, bracket, ignore, mode" as the widgets show them.
QString layoutOf(const PageDriver &driver)
{
    QString mode;
    for (const char *button : {"m_rbMode0", "m_rbMode1", "m_rbMode2", "m_rbMode3"}) {
        if (driver.widget<QRadioButton>(button)->isChecked())
            mode += QLatin1Char(button[8]);
    }
    return QStringLiteral("%1 x %2, %3, %4, %5")
        .arg(driver.widget<QSpinBox>("m_sbRow")->value())
        .arg(driver.widget<QSpinBox>("m_sbColumn")->value())
        .arg(driver.widget<QSpinBox>("m_sbBracket")->value())
        .arg(driver.widget<QSpinBox>("m_sbIgnore")->value())
        .arg(mode.isEmpty() ? QStringLiteral("-") : mode);
}

QImage drawingOf(const PageDriver &driver)
{
    const auto *label = qobject_cast<QLabel *>(driver.widget<QScrollArea>("m_saPreview")->widget());
    return label->pixmap(Qt::ReturnByValue).toImage();
}

QString groupsOf(const ProjectRecord &record)
{
    QStringList groups;
    for (const QStringList &group : record.groups) {
        QStringList names;
        for (const QString &path : group)
            names.append(QFileInfo(path).completeBaseName());
        groups.append(names.join(QLatin1Char(' ')));
    }
    return groups.join(QLatin1Char('|'));
}

} // namespace

class tst_UIWPGigapan : public QObject {
    Q_OBJECT

private slots:
    void init() { host().reset(); }
    void choosesGrid_data();
    void choosesGrid();
    void typesLayout_data();
    void typesLayout();
    void badValuesChangeNothing_data();
    void badValuesChangeNothing();
    void refreshRunsNoSlot();
    void modes();
    void record_data();
    void record();
    void previewShowsOrder();
    void previewSize_data();
    void previewSize();
    void countsWhatIsNotUsed_data();
    void countsWhatIsNotUsed();

private:
    /// A page with \a count pictures that have been read.
    static std::unique_ptr<PageDriver> driverWith(int count);
};

std::unique_ptr<PageDriver> tst_UIWPGigapan::driverWith(int count)
{
    auto driver = std::make_unique<PageDriver>(new UIWPGigapan);
    driver->drop(picturePaths(QStringLiteral("/p"), count));
    if (!driver->awaitRead(count))
        qFatal("The pictures are not read");
    return driver;
}

void tst_UIWPGigapan::choosesGrid_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("layout");
    QTest::newRow("12") << 12 << "3 x 4, 1, 0, 0";
    QTest::newRow("24") << 24 << "4 x 6, 1, 0, 0";
    QTest::newRow("25") << 25 << "5 x 5, 1, 0, 0";
    QTest::newRow("prime") << 7 << "1 x 7, 1, 0, 0";
}

// Whatever was set for the pictures before; only the order stays.
void tst_UIWPGigapan::choosesGrid()
{
    QFETCH(int, count);
    QFETCH(QString, layout);
    const auto driver = driverWith(30);
    driver->type("m_sbBracket", QStringLiteral("3"));
    driver->type("m_sbIgnore", QStringLiteral("2"));
    driver->drop(picturePaths(QStringLiteral("/q"), count));
    QCOMPARE(layoutOf(*driver), layout);
    QCOMPARE(driver->text("m_lbImage"), QStringLiteral("%1 images in ").arg(count));
    QVERIFY(driver->awaitRead(count));
    QVERIFY(driver->isComplete());
}

void tst_UIWPGigapan::typesLayout_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("bracket");
    QTest::addColumn<QString>("ignore");
    QTest::addColumn<QString>("layout");
    QTest::newRow("brackets") << 24 << "4"
                              << "3"
                              << "0"
                              << "4 x 2, 3, 0, 0";
    QTest::newRow("ignored and left over") << 24 << "3"
                                           << "2"
                                           << "5"
                                           << "3 x 3, 2, 5, 0";
    QTest::newRow("more rows than pictures") << 24 << "25"
                                             << "1"
                                             << "0"
                                             << "25 x 1, 1, 0, 0";
    QTest::newRow("all ignored") << 24 << "4"
                                 << "1"
                                 << "100000"
                                 << "4 x 1, 1, 100000, 0";
    QTest::newRow("no pictures") << 0 << "2"
                                 << "1"
                                 << "0"
                                 << "2 x 1, 1, 0, 0";
}

void tst_UIWPGigapan::typesLayout()
{
    QFETCH(int, count);
    QFETCH(QString, rows);
    QFETCH(QString, bracket);
    QFETCH(QString, ignore);
    const auto driver
        = count > 0 ? driverWith(count) : std::make_unique<PageDriver>(new UIWPGigapan);
    driver->type("m_sbRow", rows);
    driver->type("m_sbBracket", bracket);
    driver->type("m_sbIgnore", ignore);
    QTEST(layoutOf(*driver), "layout");
    QCOMPARE(driver->isComplete(), count > 0);
    driver->click("m_pbReset");
    QCOMPARE(layoutOf(*driver), QStringLiteral("4 x 5, 1, 0, 0"));
    QVERIFY(!driver->isComplete());
}

void tst_UIWPGigapan::badValuesChangeNothing_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("layout");
    const QString same = QStringLiteral("4 x 6, 1, 0, 0");
    QTest::newRow("no rows") << QByteArray("SetRow") << 0 << same;
    QTest::newRow("negative rows") << QByteArray("SetRow") << -3 << same;
    QTest::newRow("no bracket") << QByteArray("OnChangeBracket") << 0 << same;
    QTest::newRow("negative bracket") << QByteArray("OnChangeBracket") << -1 << same;
    QTest::newRow("negative ignore") << QByteArray("IgnoreNImages") << -1 << same;
    QTest::newRow("two rows") << QByteArray("SetRow") << 2 << "2 x 12, 1, 0, 0";
    QTest::newRow("two pictures") << QByteArray("OnChangeBracket") << 2 << "4 x 3, 2, 0, 0";
    QTest::newRow("ignore four") << QByteArray("IgnoreNImages") << 4 << "4 x 5, 1, 4, 0";
}

void tst_UIWPGigapan::badValuesChangeNothing()
{
    QFETCH(QByteArray, slot);
    QFETCH(int, value);
    const auto driver = driverWith(24);
    QVERIFY(QMetaObject::invokeMethod(&driver->page(), slot.constData(), Q_ARG(int, value)));
    QTEST(layoutOf(*driver), "layout");
}

void tst_UIWPGigapan::refreshRunsNoSlot()
{
    const auto driver = driverWith(24);
    QSignalSpy rows(
        driver->widget<QSpinBox>("m_sbRow"), QOverload<int>::of(&QSpinBox::valueChanged));
    QSignalSpy toggles(driver->widget<QRadioButton>("m_rbMode0"), &QRadioButton::toggled);
    driver->drop(picturePaths(QStringLiteral("/q"), 12));
    driver->call("UpdateUI");
    driver->call("Reset");
    QCOMPARE(rows.size(), 0);
    QCOMPARE(toggles.size(), 0);
    QCOMPARE(layoutOf(*driver), QStringLiteral("4 x 5, 1, 0, 0"));
}

void tst_UIWPGigapan::modes()
{
    const auto driver = driverWith(4);
    const auto toggle = [&](const char *slot, bool checked) {
        QVERIFY(QMetaObject::invokeMethod(&driver->page(), slot, Q_ARG(bool, checked)));
    };
    const auto mode = [&] { return layoutOf(*driver).right(1); };
    for (const char *button : {"m_rbMode3", "m_rbMode1", "m_rbMode2", "m_rbMode0"}) {
        driver->click(button);
        QCOMPARE(mode(), QString(QLatin1Char(button[8])));
    }
    // The turning order has no button, and any button leaves it, also the one that was checked.
    for (const char *button : {"m_rbMode0", "m_rbMode3"}) {
        toggle("OnMode4Toggled", true);
        QCOMPARE(mode(), QStringLiteral("-"));
        driver->call("UpdateUI");
        QCOMPARE(mode(), QStringLiteral("-"));
        QVERIFY(driver->page().validatePage());
        QCOMPARE(host().imported.last().layoutMode, 4);
        driver->click(button);
        QCOMPARE(mode(), QString(QLatin1Char(button[8])));
        QVERIFY(driver->page().validatePage());
        QCOMPARE(host().imported.last().layoutMode, button[8] - '0');
    }
    toggle("OnMode1Toggled", false);
    toggle("OnMode4Toggled", false);
    QCOMPARE(mode(), QStringLiteral("3"));
}

void tst_UIWPGigapan::record_data()
{
    QTest::addColumn<bool>("changed");
    QTest::newRow("as it is") << false;
    QTest::newRow("all changed") << true;
}

void tst_UIWPGigapan::record()
{
    QFETCH(bool, changed);
    QStringList files = picturePaths(QStringLiteral("/p"), 20);
    // In an order of their own, which stays.
    std::reverse(files.begin(), files.end());
    GigapanToSPP converter;
    converter.ChooseInitialGrid(20);
    if (changed) {
        converter.Layout().rows = 3;
        converter.Layout().bracket = 2;
        converter.Layout().ignore = 1;
        converter.Layout().mode = 2;
        converter.DeriveColumns(20);
    }
    converter.Convert(files, changed);
    ProjectRecord expected = converter.Record();
    expected.autoDetection = !changed;
    expected.cleanLinks = expected.skipOptimization = changed;
    expected.levelLinking = expected.stackLinking = changed ? 1 : 0;
    expected.overlap = changed ? 33.5 : 40;
    if (changed)
        QCOMPARE(
            groupsOf(expected), QStringLiteral("18 17|16 15|14 13|12 11|10 9|8 7|6 5|4 3|2 1"));

    PageDriver driver(new UIWPGigapan);
    driver.drop(files);
    QVERIFY(driver.awaitRead(20));
    if (changed) {
        driver.type("m_sbRow", QStringLiteral("3"));
        driver.type("m_sbBracket", QStringLiteral("2"));
        driver.type("m_sbIgnore", QStringLiteral("1"));
        for (const char *option : {"m_rbMode2", "m_cbIS360", "m_autoStart", "m_cleanLink",
                 "m_noOptim", "m_rbLevelLinking1"})
            driver.click(option);
        driver.type("m_dsbOverlapping", QStringLiteral("33.5"));
    }
    driver.clickWizard(QWizard::FinishButton);
    QCOMPARE(host().imported.size(), 1);
    QCOMPARE(dump(host().imported[0]), dump(expected));
}

void tst_UIWPGigapan::previewShowsOrder()
{
    // Each location's first picture in its own colour; the second of a stack is not seen.
    const QVector<QColor> colours{Qt::red, Qt::green, Qt::blue, Qt::yellow};
    const QStringList files = picturePaths(QStringLiteral("/p"), 10);
    for (int i = 0; i < files.size(); ++i) {
        FakePicture picture;
        picture.thumbnail = QImage(60, 60, QImage::Format_RGB32);
        picture.thumbnail.fill(i % 2 == 0 || i > 8 ? Qt::black : colours[i / 2]);
        host().setPicture(files[i], picture);
    }
    PageDriver driver(new UIWPGigapan);
    driver.widget<QSlider>("m_hSlider")->setValue(100);
    driver.drop(files);
    QVERIFY(driver.awaitRead(10));
    driver.type("m_sbRow", QStringLiteral("2"));
    driver.type("m_sbBracket", QStringLiteral("2"));
    driver.type("m_sbIgnore", QStringLiteral("1"));
    QCOMPARE(layoutOf(driver), QStringLiteral("2 x 2, 2, 1, 0"));
    const auto cells = [&] {
        const QImage drawing = drawingOf(driver);
        QVector<QColor> shown;
        for (const QPoint &cell : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 1)})
            shown.append(drawing.pixelColor(8 + 104 * cell.x() + 34, 8 + 104 * cell.y() + 14));
        return shown;
    };
    using Colours = QVector<QColor>;
    QCOMPARE(cells(), (Colours{Qt::red, Qt::blue, Qt::green, Qt::yellow}));
    driver.click("m_rbMode1");
    QCOMPARE(cells(), (Colours{Qt::red, Qt::green, Qt::blue, Qt::yellow}));
    driver.click("m_rbMode2");
    QCOMPARE(cells(), (Colours{Qt::blue, Qt::yellow, Qt::red, Qt::green}));
    driver.click("m_rbMode3");
    QCOMPARE(cells(), (Colours{Qt::blue, Qt::red, Qt::yellow, Qt::green}));
    QVERIFY(QMetaObject::invokeMethod(&driver.page(), "OnMode4Toggled", Q_ARG(bool, true)));
    QCOMPARE(cells(), (Colours{Qt::yellow, Qt::blue, Qt::red, Qt::green}));
}

void tst_UIWPGigapan::previewSize_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("zoom");
    QTest::addColumn<QSize>("size");
    QTest::newRow("grid of 2 x 3") << 6 << 2 << 100 << QSize(3 * 104 + 8, 2 * 104 + 8);
    QTest::newRow("zoomed") << 6 << 2 << 33 << QSize(105, 71);
    QTest::newRow("no columns") << 6 << 7 << 100 << QSize(0, 0);
    QTest::newRow("too high") << 400 << 400 << 50 << QSize(44, 16384);
}

void tst_UIWPGigapan::previewSize()
{
    QFETCH(int, count);
    QFETCH(int, rows);
    QFETCH(int, zoom);
    const auto driver = driverWith(count);
    driver->type("m_sbRow", QString::number(rows));
    driver->widget<QSlider>("m_hSlider")->setValue(zoom);
    QTEST(driver->previewSize(), "size");
}

void tst_UIWPGigapan::countsWhatIsNotUsed_data()
{
    QTest::addColumn<int>("ignore");
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("all used") << 0 << "";
    QTest::newRow("ignored") << 4 << "Pictures ignored: 4";
    QTest::newRow("both") << 1 << "Pictures ignored: 1\nPictures left over: 3";
    QTest::newRow("all ignored") << 100 << "Pictures ignored: 12";
}

void tst_UIWPGigapan::countsWhatIsNotUsed()
{
    QFETCH(int, ignore);
    const auto driver = driverWith(12);
    driver->type("m_sbRow", QStringLiteral("2"));
    driver->type("m_sbBracket", QStringLiteral("2"));
    driver->type("m_sbIgnore", QString::number(ignore));
    QTEST(driver->widget("m_saPreview")->toolTip(), "toolTip");
}

FAKE_HOST_GUI_MAIN(tst_UIWPGigapan)
#include "tst_UIWPGigapan.moc"
