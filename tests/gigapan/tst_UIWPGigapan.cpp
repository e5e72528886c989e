// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The Gigapan page's own rules, driven through its window.

#include "gigapan/UIWPGigapan.h"
#include "tests/support/FakeHost.h"
#include "tests/support/PageDriver.h"
#include "tests/support/RecordDump.h"
#include "tests/support/Table.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSlider>

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

} // namespace

class tst_UIWPGigapan : public QObject {
    Q_OBJECT

private slots:
    void init() { host().reset(); }

    void layouts_data()
    {
        // Typed; none: what is chosen for the pictures.
        const Table<int, QString, QString, QString> row(
            "count", "rowsBracketIgnore", "layout", "unused");
        row("12", 12, "", "3 x 4, 1, 0, 0", "");
        row("prime", 7, "", "1 x 7, 1, 0, 0", "");
        row("brackets", 24, "4 3 0", "4 x 2, 3, 0, 0", "");
        row("ignored", 24, "2 2 4", "2 x 5, 2, 4, 0", "Pictures ignored: 4");
        row("ignored and left over", 24, "3 2 5", "3 x 3, 2, 5, 0",
            "Pictures ignored: 5\nPictures left over: 1");
        row("more rows than pictures", 24, "25 1 0", "25 x 1, 1, 0, 0", "Pictures left over: 24");
        row("all ignored", 24, "4 1 100000", "4 x 1, 1, 100000, 0", "Pictures ignored: 24");
        row("no pictures", 0, "2 1 0", "2 x 1, 1, 0, 0", "");
    }
    // Whatever was set for the pictures before.
    void layouts()
    {
        QFETCH(int, count);
        QFETCH(QString, rowsBracketIgnore);
        QStringList typed = rowsBracketIgnore.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        const auto driver = driverWith(30);
        driver->type("m_sbBracket", QStringLiteral("3"));
        driver->type("m_sbIgnore", QStringLiteral("2"));
        if (count > 0)
            driver->drop(picturePaths(QStringLiteral("/q"), count));
        else
            driver->click("m_pbReset");
        QVERIFY(driver->awaitRead(count));
        for (const char *box : {"m_sbRow", "m_sbBracket", "m_sbIgnore"}) {
            if (!typed.isEmpty())
                driver->type(box, typed.takeFirst());
        }
        QTEST(layoutOf(*driver), "layout");
        QTEST(driver->widget("m_saPreview")->toolTip(), "unused");
        QCOMPARE(driver->text("m_lbImage"), QStringLiteral("%1 images in ").arg(count));
        QCOMPARE(driver->isComplete(), count > 0);
        driver->click("m_pbReset");
        QCOMPARE(layoutOf(*driver), QStringLiteral("4 x 5, 1, 0, 0"));
        QVERIFY(!driver->isComplete());
    }

    void badValuesChangeNothing()
    {
        const auto driver = driverWith(24);
        for (const auto &[slot, value, layout] :
            {std::tuple{"SetRow", 0, "4 x 6, 1, 0, 0"}, {"SetRow", -3, "4 x 6, 1, 0, 0"},
                {"OnChangeBracket", 0, "4 x 6, 1, 0, 0"}, {"OnChangeBracket", -1, "4 x 6, 1, 0, 0"},
                {"IgnoreNImages", -1, "4 x 6, 1, 0, 0"}, {"SetRow", 2, "2 x 12, 1, 0, 0"},
                {"OnChangeBracket", 2, "2 x 6, 2, 0, 0"}, {"IgnoreNImages", 4, "2 x 5, 2, 4, 0"}}) {
            QVERIFY(QMetaObject::invokeMethod(&driver->page(), slot, Q_ARG(int, value)));
            QCOMPARE(layoutOf(*driver), QLatin1String(layout));
        }
    }

    void refreshRunsNoSlot()
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

    void modes()
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

    void record_data()
    {
        QTest::addColumn<bool>("changed");
        QTest::newRow("as it is") << false;
        QTest::newRow("all changed") << true;
    }
    void record()
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
                stacksOf(expected), QStringLiteral("18 17|16 15|14 13|12 11|10 9|8 7|6 5|4 3|2 1"));

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

    void previewShowsOrder()
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
            const QImage drawing = driver.preview().toImage();
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

    void previewSize_data()
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
    void previewSize()
    {
        QFETCH(int, count);
        QFETCH(int, rows);
        QFETCH(int, zoom);
        const auto driver = driverWith(count);
        driver->type("m_sbRow", QString::number(rows));
        driver->widget<QSlider>("m_hSlider")->setValue(zoom);
        QTEST(driver->previewSize(), "size");
    }

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

FAKE_HOST_GUI_MAIN(tst_UIWPGigapan)
#include "tst_UIWPGigapan.moc"
