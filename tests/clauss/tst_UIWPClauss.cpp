// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The Clauss page's own rules, driven through its window.

#include "clauss/UIWPClauss.h"
#include "tests/support/FakeHost.h"
#include "tests/support/Files.h"
#include "tests/support/PageDriver.h"
#include "tests/support/RecordDump.h"
#include "tests/support/Table.h"

#include <QApplication>
#include <QLineEdit>
#include <QSlider>
#include <QTemporaryDir>

namespace {

FakeHost &host()
{
    return FakeHost::instance();
}

QByteArray script(const QVector<QPair<int, int>> &positions)
{
    QByteArray lines;
    for (const auto &[yaw, pitch] : positions)
        lines += "op_h-angle=" + QByteArray::number(yaw)
            + "\r\nop_v-angle=" + QByteArray::number(pitch) + "\r\nop_shoot\r\n";
    return lines;
}

QString figuresOf(const PageDriver &driver)
{
    return driver.text("m_lbPapyLog") + QLatin1Char(' ') + driver.text("m_lbThetaMinMax")
        + QLatin1Char(' ') + driver.text("m_lbPhiMinMax");
}

} // namespace

class tst_UIWPClauss : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        host().reset();
        m_folder = std::make_unique<QTemporaryDir>();
    }

    void showsScript_data()
    {
        const Table<QByteArray, QString> row("content", "figures");
        row("three shots", script({{0, 10}, {120, 10}, {240, 10}}), "3 0,240 10,10");
        row("no shots", "op_h-angle=5\n", "N/A 3.40282e+38,-3.40282e+38 3.40282e+38,-3.40282e+38");
        row("six digits", script({{1234567, -3}, {-2, 0}}), "2 -2,1.23457e+06 -3,0");
    }
    void showsScript()
    {
        QFETCH(QByteArray, content);
        PageDriver driver(new UIWPClauss);
        driver.drop({makeScript(content, "a.TXT")});
        QTEST(figuresOf(driver), "figures");
    }

    void badScript_data()
    {
        const Table<QString, bool> row("name", "hasShots");
        row("bad angle", "bad <b>%1.txt", true);
        row("missing", "missing.txt", false);
        row("folder", ".", false);
    }
    void badScript()
    {
        QFETCH(QString, name);
        QFETCH(bool, hasShots);
        const QString bad = m_folder->filePath(name);
        if (hasShots)
            writeFile(bad, "op_shoot\nop_h-angle=3x\nop_shoot\n");
        PageDriver driver(new UIWPClauss);
        driver.drop(makePictures(m_folder->path(), 2)
            + QStringList(makeScript(script({{0, -30}, {40, 45}}))));
        QVERIFY(driver.awaitRead(2));
        QVERIFY(driver.isComplete());

        auto *edit = driver.widget<QLineEdit>("m_leConfigFile");
        driver.type("m_leConfigFile", bad);
        QCOMPARE(figuresOf(driver), QStringLiteral("2 0,40 -30,45"));
        const auto seen = answering([&] { QTest::keyClick(edit, Qt::Key_Return); });
        // The box takes the focus from the line, which must not load once more.
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen[0].title, QStringLiteral("Error"));
        QCOMPARE(seen[0].text, QLatin1String("Error parse file:") + bad);
        QCOMPARE(seen[0].icon, QMessageBox::Critical);
        QCOMPARE(seen[0].buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        // The ranges are still the last good script's.
        QCOMPARE(figuresOf(driver), QStringLiteral("N/A 0,40 -30,45"));
        QVERIFY(!driver.isComplete());
        // The preview is of the two shots that were read, at one place.
        QCOMPARE(driver.previewSize(), hasShots ? QSize(50, 50) : QSize(0, 0));

        driver.click("m_pbReset");
        QCOMPARE(figuresOf(driver), QStringLiteral("N/A N/A N/A"));
    }

    void pathLine()
    {
        const QString good = makeScript(script({{0, 1}}));
        PageDriver driver(new UIWPClauss);
        auto *edit = driver.widget<QLineEdit>("m_leConfigFile");
        driver.type("m_leConfigFile", good);
        QCOMPARE(figuresOf(driver), QStringLiteral("N/A N/A N/A"));
        driver.widget("m_hSlider")->setFocus();
        QCOMPARE(figuresOf(driver), QStringLiteral("1 0,0 1,1"));
        QCOMPARE(driver.page().property("configFile").toString(), good);

        // Leaving the line once more must not undo the inversion.
        driver.click("m_pInverseCoordinates");
        QCOMPARE(figuresOf(driver), QStringLiteral("1 0,0 -1,-1"));
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_Return);
        driver.widget("m_hSlider")->setFocus();
        QCOMPARE(figuresOf(driver), QStringLiteral("1 0,0 -1,-1"));
    }

    void inverts()
    {
        PageDriver driver(new UIWPClauss);
        driver.click("m_pInverseCoordinates");
        QCOMPARE(figuresOf(driver), QStringLiteral("N/A N/A N/A"));

        driver.drop(makePictures(m_folder->path(), 2)
            + QStringList(makeScript(script({{0, -30}, {40, 45}}))));
        QVERIFY(driver.awaitRead(2));
        driver.click("m_pInverseCoordinates");
        QCOMPARE(figuresOf(driver), QStringLiteral("2 0,40 -45,30"));
        QVERIFY(driver.isComplete());
        driver.click("m_pInverseCoordinates");
        QCOMPARE(figuresOf(driver), QStringLiteral("2 0,40 -30,45"));
    }

    void equalChoiceIsNotReadAgain()
    {
        const QStringList files = makePictures(m_folder->path(), 2);
        PageDriver driver(new UIWPClauss);
        driver.drop(files);
        QVERIFY(driver.awaitRead(2));
        driver.drop(files + QStringList(makeScript(script({{0, 0}, {9, 0}}))));
        QVERIFY(driver.isComplete());
        driver.drop({files[1], files[0]});
        QTRY_COMPARE(host().asked().size(), 4);
        QVERIFY(driver.awaitRead(2));
        driver.choose("m_pbSelectImages", {files[1], files[0]});
        QTRY_COMPARE(host().asked().size(), 6);
    }

    void previewSize_data()
    {
        const Table<QByteArray, int, QSize> row("content", "zoom", "size");
        row("no shots", "\n", 50, {0, 0});
        row("one shot", script({{5, 5}}), 50, {50, 50});
        // No least step here: one degree is 96 pixels.
        row("narrow", script({{0, 0}, {1, 0}, {10, 20}}), 100, {1060, 2020});
        row("zoomed", script({{0, 0}, {1, 0}, {10, 20}}), 33, {349, 666});
        row("too wide", script({{0, 0}, {1, 0}, {360, 0}}), 50, {16384, 47});
    }
    void previewSize()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, zoom);
        PageDriver driver(new UIWPClauss);
        driver.drop({makeScript(content)});
        driver.widget<QSlider>("m_hSlider")->setValue(zoom);
        QTEST(driver.previewSize(), "size");
        if (!driver.previewSize().isEmpty())
            QCOMPARE(driver.preview().toImage().pixelColor(0, 0),
                driver.page().palette().color(QPalette::Base));
    }

    void record_data()
    {
        const Table<bool> row("changed");
        row("as it is", false);
        row("inverted, all options changed", true);
    }
    void record()
    {
        QFETCH(bool, changed);
        const QStringList made = makePictures(m_folder->path(), 12);
        QStringList files;
        QVector<float> focals;
        for (int i = 0; i < made.size(); ++i) {
            // In an order of their own, which stays.
            files.prepend(made[i]);
            FakePicture picture;
            picture.focal = float(20 + 10 * (i % 3));
            host().setPicture(made[i], picture);
            focals.prepend(picture.focal);
        }
        QVector<QPair<int, int>> positions;
        for (int i = 0; i < files.size(); ++i)
            positions.append({30 * (i % 4), 35 * (i / 4) - 20});
        const QString scriptFile = makeScript(script(positions));

        ClaussToSPP converter;
        QVERIFY(converter.ReadConfigFile(scriptFile));
        if (changed)
            invertPitches(converter.Shots());
        converter.Convert(files, focals);
        ProjectRecord expected = converter.Record();
        QVERIFY(!expected.links.isEmpty());
        expected.autoDetection = expected.guidedOptimization = !changed;
        expected.cleanLinks = expected.skipOptimization = changed;

        PageDriver driver(new UIWPClauss);
        driver.drop(files + QStringList(scriptFile));
        QVERIFY(driver.awaitRead(12));
        if (changed) {
            for (const char *button :
                {"m_pInverseCoordinates", "m_autoStart", "m_GridOptim", "m_cleanLink", "m_noOptim"})
                driver.click(button);
        }
        driver.clickWizard(QWizard::FinishButton);
        QCOMPARE(host().imported.size(), 1);
        QCOMPARE(dump(host().imported[0]), dump(expected));
    }

private:
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    QString makeScript(const QByteArray &content, const char *name = "a.txt") const
    {
        return writeFile(path(name), content);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

FAKE_HOST_GUI_MAIN(tst_UIWPClauss)
#include "tst_UIWPClauss.moc"
