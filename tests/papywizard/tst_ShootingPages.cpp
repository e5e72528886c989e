// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The pages of the shooting file's heads, driven through their windows.

#include "papywizard/UIWPMerlin.h"
#include "tests/support/FakeHost.h"
#include "tests/support/Files.h"
#include "tests/support/PageDriver.h"
#include "tests/support/RecordDump.h"
#include "tests/support/Table.h"
#include "vrdrive2/UIWPVRDrive2.h"

#include <QApplication>
#include <QTemporaryDir>
#include <cmath>
#include <sys/stat.h>

namespace {

constexpr auto kExtremes = "3.40282e+38,-3.40282e+38";

FakeHost &host()
{
    return FakeHost::instance();
}

QByteArray xml(const QByteArray &picts, const QByteArray &header = {})
{
    return "<p><header>" + header + "</header><shoot>" + picts + "</shoot></p>";
}

QByteArray pict(double yaw, double pitch)
{
    return "<pict><position yaw='" + QByteArray::number(yaw, 'g', 12) + "' pitch='"
        + QByteArray::number(pitch, 'g', 12) + "'/></pict>";
}

/// \a shots shots to the right in rows of four.
QByteArray picts(int shots)
{
    QByteArray all;
    for (int i = 0; i < shots; ++i) {
        const int row = i / 4;
        all += pict(30 * (i % 4), 40 * row - 20);
    }
    return all;
}

QByteArray brackets(int count)
{
    return "<camera><bracketing nbPicts='" + QByteArray::number(count) + "'/></camera>";
}

QByteArray lens(const QByteArray &focal, const QByteArray &type = "standard")
{
    return "<lens type='" + type + "'><focal>" + focal + "</focal></lens>";
}

QString warning(const char *text)
{
    return QStringLiteral("<p style='color:red'>%1</p>").arg(QLatin1String(text));
}

FakePicture pictureOf(float focal, int lensType = 0)
{
    FakePicture picture;
    picture.focal = focal;
    picture.lensType = lensType;
    return picture;
}

} // namespace

/// Run once for each page.
class tst_ShootingPages : public QObject {
    Q_OBJECT
public:
    explicit tst_ShootingPages(bool isVRDrive2)
        : m_isVRDrive2(isVRDrive2)
    {
    }

private slots:
    void initTestCase() { qInfo(m_isVRDrive2 ? "VR Drive 2" : "Papywizard"); }

    void init()
    {
        host().reset();
        m_folder = std::make_unique<QTemporaryDir>();
    }

    void showsFile_data()
    {
        const Table<QByteArray, QStringList, QString> row("file", "labels", "toolTip");
        row("all there",
            xml(pict(-10, 5) + pict(350, -7.5),
                "<general><title>T</title><gps>G</gps><comment>C</comment></general>" + brackets(3)
                    + lens("10.5")),
            {"2", "-10,350", "-7.5,5", "3", "10.50mm"}, "T\nG\nC");
        row("nothing there", "<p/>", {"N/A", kExtremes, kExtremes, "N/A", "N/A"}, "\n\n");
        row("six digits", xml(pict(123.456789, 1234567)),
            {"1", "123.457,123.457", "1.23457e+06,1.23457e+06", "N/A", "N/A"}, "\n\n");
        row("bracketing without number, lens without focal",
            xml(pict(0, 0), "<camera><bracketing/></camera><lens/>"),
            {"1", "0,0", "0,0", "0", "0.00mm"}, "\n\n");
        row("places to fill in the texts",
            xml(pict(0, 0),
                "<general><title>%2 %3</title><gps>%1</gps><comment>50%</comment></general>"),
            {"1", "0,0", "0,0", "N/A", "N/A"}, "%2 %3\n%1\n50%");
    }
    void showsFile()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, labels);
        const auto driver = makeDriver();
        driver->drop({makeXml(file)});
        const QStringList shown{driver->text("m_lbPapyLog"), driver->text("m_lbThetaMinMax"),
            driver->text("m_lbPhiMinMax"), driver->text("m_lbBracket"),
            driver->text("m_lbFocalLength")};
        QCOMPARE(shown, labels);
        QTEST(driver->widget("m_leConfigFile")->toolTip(), "toolTip");
        QCOMPARE(driver->widget("m_pbFLUseXML")->isEnabled(), labels[4] != QLatin1String("N/A"));
    }

    void failedLoad_data()
    {
        const Table<QString> row("name");
        for (const char *name : {"missing.xml", "malformed.xml", "folder.xml", "pipe.xml"})
            row(name, name);
    }
    void failedLoad()
    {
        QFETCH(QString, name);
        makeXml("<p><shoot>" + pict(1, 1), "malformed.xml");
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder.xml")));
        QCOMPARE(mkfifo(QFile::encodeName(path("pipe.xml")).constData(), 0600), 0);

        const auto driver = driverWith(xml(pict(10, 20), brackets(3) + lens("24")), 1);
        QVERIFY(driver->isComplete());
        // No box: nobody would answer it here.
        driver->type("m_leConfigFile", m_folder->filePath(name));
        QVERIFY(!driver->isComplete());
        const QString yaw = m_isVRDrive2 ? QStringLiteral("10,10") : QString::fromLatin1(kExtremes);
        const QString pitch
            = m_isVRDrive2 ? QStringLiteral("20,20") : QString::fromLatin1(kExtremes);
        QCOMPARE(driver->text("m_lbPapyLog"), QStringLiteral("N/A"));
        QCOMPARE(driver->text("m_lbThetaMinMax"), yaw);
        QCOMPARE(driver->text("m_lbPhiMinMax"), pitch);
        QCOMPARE(driver->text("m_lbBracket"), QStringLiteral("N/A"));
        QCOMPARE(driver->text("m_lbFocalLength"), QStringLiteral("N/A"));
        QCOMPARE(driver->widget("m_leConfigFile")->toolTip(), QStringLiteral("\n\n"));
        QCOMPARE(driver->previewSize(), QSize(0, 0));

        driver->call("Reset");
        QCOMPARE(driver->text("m_lbThetaMinMax"), QStringLiteral("N/A"));
        QCOMPARE(driver->text("m_lbPhiMinMax"), QStringLiteral("N/A"));
    }

    void showsHeader()
    {
        if (m_isVRDrive2)
            return; // Its page shows no header.
        PageDriver driver(new UIWPMerlin);
        driver.drop({makeXml(xml({}, "<general><title> T </title><gps>G</gps></general>"))});
        const auto shown = [&] {
            return QStringList{driver.text("m_leHeaderTitle"), driver.text("m_leHeaderGps"),
                driver.text("m_leHeaderComment")};
        };
        const QStringList expected{QStringLiteral("T"), QStringLiteral("G"), QString()};
        QCOMPARE(shown(), expected);
        driver.drop({makeXml("<p", "b.xml")});
        QCOMPARE(shown(), expected);
        driver.click("m_pbReset");
        QCOMPARE(shown(), expected);
    }

    void warns_data()
    {
        const Table<QByteArray, int, int, float, int, QString> row(
            "header", "shots", "count", "focal", "lensType", "text");
        row("none", lens("24") + brackets(3), 3, 3, 26, 0, "");
        row("multiple", brackets(3), 4, 4, 0, 0,
            "Bracketing used in XML, should be multiple of that number");
        row("bracketing of 0", brackets(0), 4, 4, 0, 0, "");
        row("count", brackets(3), 4, 5, 0, 0, "Not the same as in XML fil");
        row("focal", lens("24"), 3, 2, 27, 0, "Focal");
        row("lens", lens("24"), 3, 2, 27, 1, "Lens type difference between EXIF and XML");
        row("both fisheye", lens("24", " FishEye "), 3, 3, 24, 1, "");
        row("no shots", lens("24", "fisheye"), 0, 3, 50, 0, "");
    }
    void warns()
    {
        QFETCH(QByteArray, header);
        QFETCH(int, shots);
        QFETCH(int, count);
        QFETCH(float, focal);
        QFETCH(int, lensType);
        QFETCH(QString, text);
        if (text == QLatin1String("Focal"))
            text = m_isVRDrive2 ? QStringLiteral("Focal length difference between EXIF and XML")
                                : QStringLiteral("Focal Length difference between EXIF and XML");
        host().setEveryPicture(pictureOf(focal, lensType));
        const auto driver = driverWith(xml(picts(shots), header), count);
        QCOMPARE(driver->text("m_lbWarning"), warning(text.toLatin1().constData()));
    }

    void completeness_data()
    {
        const Table<int, int, bool, bool> row("shots", "count", "twice", "complete");
        row("equal", 3, 3, false, true);
        row("too few", 3, 2, false, false);
        row("too many", 3, 4, false, false);
        // A picture chosen twice is read once.
        row("one twice", 4, 3, true, false);
    }
    void completeness()
    {
        QFETCH(int, shots);
        QFETCH(int, count);
        QFETCH(bool, twice);
        const auto driver = makeDriver();
        QStringList files = pictures(count);
        if (twice)
            files.append(files[0]);
        driver->drop(files + QStringList(makeXml(xml(picts(shots)))));
        QVERIFY(driver->awaitRead(count));
        QTEST(driver->isComplete(), "complete");
    }

    void typesPath()
    {
        const QString file = makeXml(xml(picts(3)), "abc.xml");
        const auto driver = makeDriver();
        driver->drop(pictures(3));
        QVERIFY(driver->awaitRead(3));
        driver->type("m_leConfigFile", path("ac.xml"));
        QCOMPARE(driver->text("m_lbPapyLog"), QStringLiteral("N/A"));

        auto *edit = driver->widget<QLineEdit>("m_leConfigFile");
        const int place = path("a").size();
        edit->setCursorPosition(place);
        QTest::keyClicks(edit, QStringLiteral("bx"));
        QTest::keyClick(edit, Qt::Key_Backspace);
        QCOMPARE(edit->text(), file);
        QCOMPARE(edit->cursorPosition(), place + 1);
        QCOMPARE(driver->text("m_lbPapyLog"), QStringLiteral("3"));
        QCOMPARE(driver->page().property("configFile").toString(), file);
        QVERIFY(driver->isComplete());
    }

    void takesLens_data()
    {
        const Table<QByteArray, QVector<float>, int, double, QString> row(
            "header", "focals", "lensType", "focal", "lens");
        row("the pictures' before the file's", lens("24"), {20, 20}, 1, 20, "Fisheye");
        row("the file's", lens("24.1236", "fisheye"), {0, 0}, 0, 24.124, "Fisheye");
        row("none", lens("0", "fisheye"), {0}, 0, 1, "Standard");
        row("beyond the range", {}, {20000}, 0, 10000, "Standard");
        row("unheard of lens", {}, {20}, 7, 20, "Fisheye");
        row("negative lens", {}, {20}, -1, 20, "Standard");
    }
    void takesLens()
    {
        QFETCH(QByteArray, header);
        QFETCH(QVector<float>, focals);
        QFETCH(int, lensType);
        const QStringList files = pictures(focals.size());
        for (int i = 0; i < focals.size(); ++i)
            host().setPicture(files[i], pictureOf(focals[i], lensType));
        // The file first: it alone proposes nothing.
        const auto driver = makeDriver();
        driver->drop({makeXml(xml(picts(2), header))});
        QCOMPARE(driver->widget<QDoubleSpinBox>("m_spFocal")->value(), 1.0);
        driver->choose("m_pbSelectImages", files);
        QVERIFY(driver->awaitRead(files.size()));
        QTEST(driver->widget<QDoubleSpinBox>("m_spFocal")->value(), "focal");
        QTEST(driver->widget<QComboBox>("m_cbLensType")->currentText(), "lens");
    }

    void lensButtons()
    {
        const auto driver = makeDriver();
        QVERIFY(!driver->widget("m_pbFLUseXML")->isEnabled());
        QVERIFY(!driver->widget("m_pbFLUseImage")->isEnabled());
        QCOMPARE(driver->text("m_lbFocalLengthImage"), QStringLiteral("N/A"));
        host().setEveryPicture(pictureOf(35.006F, 0));
        driver->drop(pictures(2) + QStringList(makeXml(xml(picts(2), lens("16.5", "fisheye")))));
        QVERIFY(driver->awaitRead(2));
        QCOMPARE(driver->text("m_lbFocalLengthImage"), QStringLiteral("35.01mm"));

        const auto *focal = driver->widget<QDoubleSpinBox>("m_spFocal");
        const auto *type = driver->widget<QComboBox>("m_cbLensType");
        driver->click("m_pbFLUseXML");
        QCOMPARE(focal->value(), 16.5);
        QCOMPARE(type->currentText(), QStringLiteral("Fisheye"));
        driver->click("m_pbFLUseImage");
        QCOMPARE(focal->value(), 35.006);
        QCOMPARE(type->currentText(), QStringLiteral("Standard"));
    }

    // What the user typed meanwhile is overwritten by news only.
    void loadedWithoutNews()
    {
        const auto driver = driverWith(xml(picts(3)), 3);
        const auto *focal = driver->widget<QDoubleSpinBox>("m_spFocal");
        const qint64 drawing = driver->preview().cacheKey();
        driver->type("m_spFocal", QStringLiteral("99"));
        QVERIFY(driver->call("OnImageLoaded"));
        QCOMPARE(focal->value(), 99.0);
        QCOMPARE(driver->preview().cacheKey(), drawing);

        // As many others are news.
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("others")));
        host().setEveryPicture(pictureOf(50));
        driver->drop(makePictures(path("others"), 3));
        QTRY_COMPARE(focal->value(), 50.0);
        QVERIFY(driver->isComplete());
        QVERIFY(driver->preview().cacheKey() != drawing);

        // So are none at all after another choice: the focal length was the others'.
        const QStringList unreadable = pictures(3);
        for (const QString &path : unreadable)
            host().setUnreadable(path);
        driver->drop(unreadable);
        QTRY_COMPARE(driver->text("m_lbFocalLengthImage"), QStringLiteral("N/A"));
        QVERIFY(!driver->isComplete());
    }

    void turnsReachRecord()
    {
        const auto driver = driverWith(xml(pict(0, -20) + pict(30, 0) + pict(60, 30)), 3);
        driver->click("m_pInverseCoordinates");
        QCOMPARE(driver->text("m_lbPhiMinMax"), QStringLiteral("-30,20"));
        for (const char *button : {"m_pbRot90", "m_pbRot90", "m_pbRot90", "m_pbRot90", "m_pbRot90",
                 "m_pbRot270", "m_pbRot90"})
            driver->click(button);
        QVERIFY(driver->isComplete());
        driver->clickWizard(QWizard::FinishButton);
        QCOMPARE(host().imported.size(), 1);
        const ProjectRecord &record = host().imported[0];

        constexpr double kDegree = 3.141592653589793 / 180;
        QCOMPARE(
            record.pitches, (QVector<float>{float(20 * kDegree), -0.0F, float(-30 * kDegree)}));
        QVERIFY(std::signbit(record.pitches[1]));
        // No wrapping.
        QCOMPARE(record.rolls, QVector<float>(3, float(450 * kDegree)));

        driver->click("m_pInverseCoordinates");
        QCOMPARE(driver->text("m_lbPhiMinMax"), QStringLiteral("-20,30"));
    }

    void optionsReachRecord()
    {
        const QByteArray file = xml(picts(12), brackets(3) + lens("20"));
        // The middle exposure of the first series, 0.jpg, 1.jpg and 10.jpg, stands first already.
        for (const auto &[name, exposure] : {std::pair{"1.jpg", -1.0F}, {"10.jpg", 1.0F}}) {
            FakePicture picture;
            picture.exposure = exposure;
            host().setPicture(path(name), picture);
        }
        for (const bool changed : {false, true}) {
            host().imported.clear();
            const auto driver = driverWith(file, 12);
            driver->type("m_spFocal", QStringLiteral("27.5"));
            if (changed) {
                for (const char *option :
                    {"m_autoStart", "m_cleanLink", "m_noOptim", "m_GridOptim", "m_rbLevelLinking1"})
                    driver->click(option);
                driver->widget<QComboBox>("m_cbLensType")->setCurrentIndex(1);
            }
            VRDrive2ToSPP converter;
            ProjectRecord expected = convert(converter, *driver);
            expected.autoDetection = !changed;
            expected.cleanLinks = !changed;
            expected.skipOptimization = changed;
            expected.guidedOptimization = !changed;
            expected.levelLinking = expected.stackLinking = changed ? 1 : 0;
            expected.outputType = m_isVRDrive2 ? 2 : 0;
            QCOMPARE(expected.groups.size(), 4);
            QCOMPARE(expected.links.isEmpty(), changed);

            driver->clickWizard(QWizard::FinishButton);
            QCOMPARE(host().imported.size(), 1);
            QCOMPARE(dump(host().imported[0]), dump(expected));
        }
    }

    void incompleteBrackets()
    {
        // As many shots as pictures, so that the wizard lets the user go on.
        auto driver = driverWith(xml(picts(13), brackets(3)), 13);
        QVERIFY(driver->isComplete());
        const auto seen = answering([&] { driver->clickWizard(QWizard::FinishButton); });
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen[0].title, QStringLiteral("Warning"));
        QCOMPARE(seen[0].text,
            QStringLiteral(
                "Papywizard XML has bracketing and the number of images isn't a multiple of "
                "this number of brackets."));
        QCOMPARE(seen[0].icon, QMessageBox::Warning);
        QCOMPARE(seen[0].buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        QVERIFY(driver->wizard().isVisible());
        QCOMPARE(host().imported.size(), 0);
        QCOMPARE(driver->text("m_lbBracket"), QStringLiteral("3"));

        // No brackets count as one, which the label shows then.
        driver = driverWith(xml(picts(2)), 2);
        QCOMPARE(driver->text("m_lbBracket"), QStringLiteral("N/A"));
        QVERIFY(driver->page().validatePage());
        QCOMPARE(driver->text("m_lbBracket"), QStringLiteral("1"));
        QCOMPARE(host().imported.size(), 1);
    }

    void resetKeepsChoices()
    {
        const auto driver = driverWith(xml(picts(2), lens("24", "fisheye")), 2);
        driver->click("m_pbFLUseXML");
        driver->click("m_rbLevelLinking1");
        driver->click("m_cleanLink");
        driver->widget<QSlider>("m_hSlider")->setValue(70);
        driver->click("m_pbReset");
        QCOMPARE(driver->widget<QDoubleSpinBox>("m_spFocal")->value(), 24.0);
        QCOMPARE(driver->widget<QComboBox>("m_cbLensType")->currentIndex(), 1);
        QVERIFY(driver->widget<QAbstractButton>("m_rbStackLinking1")->isChecked());
        QVERIFY(!driver->widget<QAbstractButton>("m_cleanLink")->isChecked());
        QCOMPARE(driver->widget<QSlider>("m_hSlider")->value(), 70);
        QCOMPARE(driver->text("m_lbFocalLength"), QStringLiteral("N/A"));
        QCOMPARE(driver->text("m_lbFocalLengthImage"), QStringLiteral("N/A"));
        QCOMPARE(driver->text("m_lbWarning"), warning(""));
    }

    void previewSize_data()
    {
        const Table<QByteArray, int, QSize> row("file", "zoom", "size");
        row("no shots", xml({}), 50, {0, 0});
        row("one shot", xml(pict(5, 5)), 50, {50, 50});
        // Steps of 7 degrees count as 8: 12 pixels to one.
        const QByteArray narrow = xml(pict(0, 0) + pict(7, 0) + pict(7, 7));
        row("start", narrow, 50, {92, 92});
        row("full size", narrow, 100, {184, 184});
        row("least", narrow, 1, {1, 1});
        row("absurd", xml(pict(0, 0) + pict(1e30, 0)), 50, {16384, 1});
    }
    void previewSize()
    {
        QFETCH(QByteArray, file);
        QFETCH(int, zoom);
        const auto driver = makeDriver();
        driver->drop({makeXml(file)});
        auto *slider = driver->widget<QSlider>("m_hSlider");
        if (zoom == 100)
            QTest::keyClick(slider, Qt::Key_End);
        else if (zoom == 1)
            QTest::keyClick(slider, Qt::Key_Home);
        else
            slider->setValue(zoom);
        QCOMPARE(slider->value(), zoom);
        QTEST(driver->previewSize(), "size");
    }

    void previewShowsPictures()
    {
        FakePicture picture;
        picture.thumbnail = QImage(80, 80, QImage::Format_RGB32);
        picture.thumbnail.fill(Qt::blue);
        for (int x = 0; x < 40; ++x) {
            for (int y = 0; y < 80; ++y)
                picture.thumbnail.setPixelColor(x, y, Qt::red);
        }
        host().setEveryPicture(picture);
        const auto driver = makeDriver();
        driver->widget<QSlider>("m_hSlider")->setValue(100);
        const auto colourAt
            = [&](int x, int y) { return driver->preview().toImage().pixelColor(x, y).name(); };
        const QString red = QStringLiteral("#ff0000");
        const QString blue = QStringLiteral("#0000ff");
        driver->drop({makeXml(xml(pict(0, 0) + pict(30, 0)))});
        const QString ground = driver->page().palette().color(QPalette::Window).name();
        QCOMPARE(colourAt(120, 20), ground);
        // One picture too few: the second cell stays empty.
        driver->drop(pictures(1));
        QVERIFY(driver->awaitRead(1));
        QCOMPARE(colourAt(20, 20), red);
        QCOMPARE(colourAt(80, 20), blue);
        QCOMPARE(colourAt(120, 20), ground);
        // Clockwise the left side comes to lie at the top.
        driver->click("m_pbRot90");
        QCOMPARE(colourAt(20, 20), red);
        QCOMPARE(colourAt(80, 20), red);
        QCOMPARE(colourAt(20, 70), blue);
    }

private:
    std::unique_ptr<PageDriver> makeDriver() const;
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    QString makeXml(const QByteArray &content, const char *name = "a.xml") const
    {
        return writeFile(path(name), content);
    }

    QStringList pictures(int count) const { return makePictures(m_folder->path(), count); }
    /// The file and \a count pictures, chosen and read.
    std::unique_ptr<PageDriver> driverWith(const QByteArray &file, int count) const;
    /// What the converter by itself makes of the same.
    static ProjectRecord convert(MerlinToSPP &converter, const PageDriver &driver);

    const bool m_isVRDrive2;
    std::unique_ptr<QTemporaryDir> m_folder;
};

std::unique_ptr<PageDriver> tst_ShootingPages::makeDriver() const
{
    QWizardPage *page = m_isVRDrive2 ? static_cast<QWizardPage *>(new UIWPVRDrive2)
                                     : static_cast<QWizardPage *>(new UIWPMerlin);
    return std::make_unique<PageDriver>(page);
}

std::unique_ptr<PageDriver> tst_ShootingPages::driverWith(const QByteArray &file, int count) const
{
    auto driver = makeDriver();
    driver->drop(pictures(count) + QStringList(makeXml(file)));
    if (!driver->awaitRead(count))
        qFatal("The pictures are not read");
    return driver;
}

ProjectRecord tst_ShootingPages::convert(MerlinToSPP &converter, const PageDriver &driver)
{
    const QStringList pictures = driver.page().property("images").toStringList();
    converter.ReadXML(driver.page().property("configFile").toString());
    converter.CheckBracketing(pictures.size());
    converter.Convert(pictures, driver.widget<QDoubleSpinBox>("m_spFocal")->value(),
        driver.widget<QComboBox>("m_cbLensType")->currentIndex());
    return converter.Record();
}

int main(int argc, char **argv)
{
    FakeApplication<QApplication> application(argc, argv);
    tst_ShootingPages papywizard(false);
    tst_ShootingPages vrDrive2(true);
    return QTest::qExec(&papywizard, argc, argv) + QTest::qExec(&vrDrive2, argc, argv);
}
#include "tst_ShootingPages.moc"
