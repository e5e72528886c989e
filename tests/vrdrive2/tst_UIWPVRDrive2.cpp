// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the page adds to the one it shares its body with: output and reference exposure.

#include "tests/support/FakeHost.h"
#include "tests/support/Files.h"
#include "tests/support/PageDriver.h"
#include "tests/support/RecordDump.h"
#include "tests/support/Table.h"
#include "vrdrive2/UIWPVRDrive2.h"

#include <QApplication>
#include <QTemporaryDir>
#include <limits>

namespace {

using Exposures = QVector<float>;

FakeHost &host()
{
    return FakeHost::instance();
}

} // namespace

Q_DECLARE_METATYPE(Exposures)

class tst_UIWPVRDrive2 : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        host().reset();
        m_folder = std::make_unique<QTemporaryDir>();
    }

    void outputType()
    {
        PageDriver driver(new UIWPVRDrive2);
        driver.drop(makePictures(m_folder->path(), 4) + QStringList(makeXml(4, 2)));
        QVERIFY(driver.awaitRead(4));
        QStringList records;
        const auto accept = [&] {
            QVERIFY(driver.isComplete());
            QVERIFY(driver.page().validatePage());
            records.append(dump(host().imported.last()));
            driver.call("Reset");
            driver.drop(makePictures(m_folder->path(), 4) + QStringList(makeXml(4, 2)));
            QVERIFY(driver.awaitRead(4));
        };
        accept();
        driver.click("m_rbOutputMode2");
        accept();
        driver.click("m_rbOutputMode1");
        accept();
        QVERIFY(records[0].contains(QLatin1String("\noutputType: 2\n")));
        QCOMPARE(records[1],
            QString(records[0])
                .replace(QLatin1String("outputType: 2"), QLatin1String("outputType: 3")));
        QCOMPARE(records[2], records[0]);
    }

    void referenceExposureFirst_data()
    {
        constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
        const Table<int, Exposures, QString, QString> row(
            "brackets", "exposures", "stacks", "again");
        // A second accept swaps what the first had swapped, and appends.
        row("second", 3, {-2, 0, 2, 9, 9, 9}, "1 0 2|4 3 5", "0 1 2|3 4 5|1 0 2|4 3 5");
        row("first", 3, {0, -2, 2, 0, 0, 0}, "0 1 2|3 4 5", "0 1 2|3 4 5|0 1 2|3 4 5");
        row("the last of equals", 3, {2, 0, 0, 0, 0, 0}, "2 1 0|5 4 3", "0 1 2|3 4 5|2 1 0|5 4 3");
        row("the lower middle of four", 4, {3, 1, 4, 2}, "3 1 2 0", "0 1 2 3|3 1 2 0");
        row("the darker of two", 2, {1, 0, 5, 5}, "1 0|3 2", "0 1|2 3|1 0|3 2");
        row("no brackets", 1, {5, 1, 3}, "0|1|2", "0|1|2|0|1|2");
        row("no numbers", 3, {kNaN, kNaN, kNaN}, "0 1 2", "0 1 2|0 1 2");
    }
    void referenceExposureFirst()
    {
        QFETCH(int, brackets);
        QFETCH(Exposures, exposures);
        const QStringList files = makePictures(m_folder->path(), exposures.size());
        for (int i = 0; i < files.size(); ++i) {
            FakePicture picture;
            picture.exposure = exposures[i];
            host().setPicture(files[i], picture);
        }
        PageDriver driver(new UIWPVRDrive2);
        driver.drop(files + QStringList(makeXml(files.size(), brackets)));
        QVERIFY(driver.awaitRead(files.size()));
        QVERIFY(driver.isComplete());
        QVERIFY(driver.page().validatePage());
        QTEST(stacksOf(host().imported.value(0)), "stacks");
        QVERIFY(driver.page().validatePage());
        QTEST(stacksOf(host().imported.value(1)), "again");
    }

private:
    QString makeXml(int shots, int brackets) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

QString tst_UIWPVRDrive2::makeXml(int shots, int brackets) const
{
    QByteArray picts;
    for (int i = 0; i < shots; ++i)
        picts += "<pict><position yaw='" + QByteArray::number(20 * (i / brackets)) + "'/></pict>";
    return writeFile(m_folder->filePath(QStringLiteral("a.xml")),
        "<p><header><camera><bracketing nbPicts='" + QByteArray::number(brackets)
            + "'/></camera></header><shoot>" + picts + "</shoot></p>");
}

FAKE_HOST_GUI_MAIN(tst_UIWPVRDrive2)
#include "tst_UIWPVRDrive2.moc"
