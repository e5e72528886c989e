// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clauss/UIWPClauss.h"
#include "papywizard/UIWPMerlin.h"
#include "tests/support/FakeHost.h"
#include "tests/support/PageDriver.h"
#include "vrdrive2/UIWPVRDrive2.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QTemporaryDir>
#include <cmath>

namespace {

constexpr int kShots = 8000;

/// Spread evenly over the sphere.
double yaw(int shot)
{
    return std::fmod(shot * 137.50776, 360);
}
double pitch(int shot)
{
    return std::asin((2 * shot + 1.0) / kShots - 1) * 180 / 3.141592653589793;
}

QByteArray shootingXml()
{
    QByteArray xml = "<p><shoot>";
    for (int k = 0; k < kShots; ++k)
        xml += "<pict><position yaw=\"" + QByteArray::number(yaw(k)) + "\" pitch=\""
            + QByteArray::number(pitch(k)) + "\"/></pict>";
    return xml + "</shoot></p>";
}

QByteArray script()
{
    QByteArray script;
    for (int k = 0; k < kShots; ++k)
        script += "op_h-angle=" + QByteArray::number(qRound(yaw(k)))
            + "\nop_v-angle=" + QByteArray::number(qRound(pitch(k))) + "\nop_shoot\n";
    return script;
}

using MakePage = QWizardPage *(*)();
template <class Page> QWizardPage *make()
{
    return new Page;
}

} // namespace

Q_DECLARE_METATYPE(MakePage)

/// Pages whose import would link nearly everything with everything.
class tst_LinkRefusal : public QObject {
    Q_OBJECT
private slots:
    void refuses_data();
    void refuses();
};

void tst_LinkRefusal::refuses_data()
{
    QTest::addColumn<MakePage>("makePage");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("millions");
    QTest::newRow("Clauss") << MakePage(make<UIWPClauss>) << QStringLiteral("a.txt") << script()
                            << QStringLiteral("25");
    QTest::newRow("Papywizard") << MakePage(make<UIWPMerlin>) << QStringLiteral("a.xml")
                                << shootingXml() << QStringLiteral("27");
    QTest::newRow("VR Drive 2") << MakePage(make<UIWPVRDrive2>) << QStringLiteral("a.xml")
                                << shootingXml() << QStringLiteral("27");
}

void tst_LinkRefusal::refuses()
{
    QFETCH(const MakePage, makePage);
    QFETCH(const QString, name);
    QFETCH(const QByteArray, file);
    QFETCH(const QString, millions);

    FakeHost &host = FakeHost::instance();
    host.reset();
    FakePicture picture;
    picture.focal = 1;
    host.setEveryPicture(picture);
    const QTemporaryDir folder;
    const PageDriver driver(makePage());
    driver.drop(
        picturePaths(QStringLiteral("/pictures"), kShots) << makeFile(folder.filePath(name), file));
    QVERIFY(driver.awaitRead(kShots));
    QTRY_VERIFY(driver.isComplete());

    const QVector<SeenDialog> seen = answering([&] { driver.clickWizard(QWizard::FinishButton); });
    QCOMPARE(seen.size(), 1);
    QCOMPARE(seen[0].title, QStringLiteral("Warning"));
    QCOMPARE(seen[0].text,
        QStringLiteral("A focal length of 1 mm makes about %1 million links between the pictures, "
                       "more than 20 million. Check the focal length.")
            .arg(millions));
    QVERIFY(host.imported.isEmpty());
    QVERIFY(driver.wizard().isVisible());

    // Only the pages of the shooting file's heads let the user say better.
    auto *focal = driver.page().findChild<QDoubleSpinBox *>(QStringLiteral("m_spFocal"));
    if (!focal)
        return;
    focal->setValue(200);
    QVERIFY(answering([&] { driver.clickWizard(QWizard::FinishButton); }).isEmpty());
    QCOMPARE(host.imported.size(), 1);
    QVERIFY(!host.imported[0].links.isEmpty());
    QCOMPARE(host.imported[0].groups.size(), kShots);
}

FAKE_HOST_GUI_MAIN(tst_LinkRefusal)
#include "tst_LinkRefusal.moc"
