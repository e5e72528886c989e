// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The pages as a host and a user find them: slots, widgets, texts.

#include "clauss/UIWPClauss.h"
#include "gigapan/UIWPGigapan.h"
#include "papywizard/UIWPMerlin.h"
#include "tests/support/FakeHost.h"
#include "tests/support/PageDriver.h"
#include "vrdrive2/UIWPVRDrive2.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSlider>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextDocument>
#include <QTranslator>

namespace {

enum class Kind { Clauss, Gigapan, Papywizard, VRDrive2 };

std::unique_ptr<QWizardPage> makePage(Kind kind)
{
    switch (kind) {
    case Kind::Clauss:
        return std::make_unique<UIWPClauss>();
    case Kind::Gigapan:
        return std::make_unique<UIWPGigapan>();
    case Kind::Papywizard:
        return std::make_unique<UIWPMerlin>();
    case Kind::VRDrive2:
        break;
    }
    return std::make_unique<UIWPVRDrive2>();
}

QString checkMark(const QAbstractButton &button)
{
    return button.isChecked() ? QStringLiteral(" [x]") : QStringLiteral(" [ ]");
}

/// Class, caption, range and start value.
QString describe(const QWidget *widget)
{
    const QString name = QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ');
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        const bool isPicture = !label->pixmap(Qt::ReturnByValue).isNull();
        return name + (isPicture ? QStringLiteral("(picture)") : label->text());
    }
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
        return name + (button->icon().pixmap(16).isNull() ? QString() : QStringLiteral("(icon)"))
            + button->text() + (button->isCheckable() ? checkMark(*button) : QString());
    if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
        return name + edit->text();
    if (const auto *box = qobject_cast<const QSpinBox *>(widget))
        return name
            + QStringLiteral("%1..%2 = %3")
                  .arg(QString::number(box->minimum()), QString::number(box->maximum()),
                      box->text());
    if (const auto *box = qobject_cast<const QDoubleSpinBox *>(widget))
        return name
            + QStringLiteral("%1..%2 step %3 = %4")
                  .arg(QString::number(box->minimum()), QString::number(box->maximum()),
                      QString::number(box->singleStep()), box->text());
    if (const auto *slider = qobject_cast<const QSlider *>(widget))
        return name
            + QStringLiteral("%1..%2 = %3")
                  .arg(slider->minimum())
                  .arg(slider->maximum())
                  .arg(slider->value());
    if (const auto *group = qobject_cast<const QGroupBox *>(widget))
        return name + group->title();
    QStringList items;
    if (const auto *list = qobject_cast<const QComboBox *>(widget)) {
        for (int i = 0; i < list->count(); ++i)
            items.append(list->itemText(i));
        return name + items.join(QLatin1Char('|')) + QLatin1String(" = ") + list->currentText();
    }
    if (const auto *tabs = qobject_cast<const QTabWidget *>(widget)) {
        for (int i = 0; i < tabs->count(); ++i)
            items.append(tabs->tabText(i));
        return name + items.join(QLatin1Char('|')) + QLatin1String(" = ")
            + tabs->tabText(tabs->currentIndex());
    }
    return name;
}

/// The widgets that the form names, as "name: description" each.
QStringList widgetsOf(const QWizardPage &page)
{
    QStringList lines;
    const auto widgets = page.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        const QWidget *parent = widget->parentWidget();
        // What Qt's widgets are made of is theirs.
        const bool isPart = qobject_cast<const QAbstractSpinBox *>(parent)
            || qobject_cast<const QComboBox *>(parent) || widget->objectName().isEmpty()
            || widget->objectName().startsWith(QLatin1String("qt_"))
            || widget->inherits("QComboBoxPrivateContainer") || widget->inherits("QToolButton");
        if (!isPart)
            lines.append(widget->objectName() + QLatin1String(": ") + describe(widget));
    }
    lines.sort();
    return lines;
}

QStringList lines(const char *text)
{
    QStringList trimmed;
    const auto all = QString::fromUtf8(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : all) {
        // Captions may end in a blank: only the source's indentation goes.
        int indent = 0;
        while (indent < line.size() && line[indent] == QLatin1Char(' '))
            ++indent;
        if (indent < line.size())
            trimmed.append(line.mid(indent));
    }
    return trimmed;
}

QStringList without(const QStringList &list, const QStringList &taken)
{
    QStringList rest;
    for (const QString &entry : list) {
        if (!taken.contains(entry))
            rest.append(entry);
    }
    return rest;
}

constexpr auto kShootingSlots = R"(
    BrowserWeb(QString) _url
    SelectImages()
    SelectConfigFile()
    OnZoomChanged()
    OnImageLoaded()
    OnInverseCoordinates()
    OnRotate90()
    OnRotate270()
    OnFLUseXML()
    OnFLUseImage()
    Reset()
    SetConfigFFilename(QString) text
    OnLevelLinkingClicked(bool) checked
    OnStackLinkingClicked(bool) checked)";

constexpr auto kClaussSlots = R"(
    BrowserWeb(QString) url
    SelectImages()
    SelectConfigFile()
    UpdateUI()
    UpdatePreview()
    OnInverseCoordinates()
    Reset()
    SetConfigFFilename())";

constexpr auto kGigapanSlots = R"(
    SelectImages()
    UpdateUI()
    UpdatePreview()
    Reset()
    IgnoreNImages(int)
    SetRow(int)
    OnChangeBracket(int)
    OnMode0Toggled(bool) checked
    OnMode1Toggled(bool) checked
    OnMode2Toggled(bool) checked
    OnMode3Toggled(bool) checked
    OnMode4Toggled(bool) checked
    OnLevelLinkingClicked(bool) checked
    OnStackLinkingClicked(bool) checked)";

constexpr auto kClaussWidgets = R"(
    tabWidget: QTabWidget General|Options = General
    label: QLabel Script file:
    m_leConfigFile: QLineEdit 
    m_pbSelectConfigFile: QPushButton ...
    m_pbReset: QPushButton Reset
    label_5: QLabel Number of shoot:
    m_lbPapyLog: QLabel N/A
    label_6: QLabel Theta:
    m_lbThetaMinMax: QLabel N/A
    label_9: QLabel Phi:
    m_lbPhiMinMax: QLabel N/A
    m_pInverseCoordinates: QPushButton Inverse Y coordinates
    m_leImage: QLineEdit 
    m_pbSelectImages: QPushButton ...
    label_10: QLabel Number of image:
    m_lbImageLog: QLabel N/A
    m_lbImage_2: QLabel Images:
    m_autoStart: QCheckBox Auto detection [x]
    m_cleanLink: QCheckBox Clean wrong link [ ]
    m_noOptim: QCheckBox Skip optimization [ ]
    m_GridOptim: QCheckBox Guided optimization [x]
    groupBox: QGroupBox Preview
    m_saPreview: QScrollArea 
    label_2: QLabel Zoom
    m_hSlider: QSlider 1..100 = 50)";

constexpr auto kGigapanWidgets = R"(
    tabWidget: QTabWidget General|Shoot layout|Shoot setup|Stack|Detection options = General
    label: QLabel Images :
    m_leImage: QLineEdit 
    m_pbSelectImages: QPushButton ...
    m_pbReset: QPushButton Reset
    m_lbImage: QLabel 0 images in 
    m_sbRow: QSpinBox 1..100000 = 4
    label_3: QLabel rows and
    m_sbColumn: QSpinBox 1..100000 = 5
    label_columns: QLabel columns.
    label_ignore: QLabel Ignore N files 
    m_sbIgnore: QSpinBox 0..100000 = 0
    label_bracket: QLabel Nb image per location ( bracketing )
    m_sbBracket: QSpinBox 1..100000 = 1
    label_layout: QLabel Layout
    m_lbMode0: QLabel (picture)
    m_rbMode0: QRadioButton Columns (default) [x]
    m_lbMode1: QLabel (picture)
    m_rbMode1: QRadioButton Rows: downward [ ]
    m_lbMode2: QLabel (picture)
    m_rbMode2: QRadioButton Rows: upward [ ]
    m_lbMode3: QLabel (picture)
    m_rbMode3: QRadioButton Columns: to left [ ]
    m_cbIS360: QCheckBox Force 360° panorama [ ]
    label_14: QLabel Overlapping
    m_dsbOverlapping: QDoubleSpinBox 5..100 step 5 = 40.0
    label_13: QLabel Detect links in:
    m_rbLevelLinking0: QRadioButton The reference level [x]
    m_rbLevelLinking1: QRadioButton All stack levels [ ]
    label_11: QLabel For a stack:
    m_rbStackLinking0: QRadioButton Use hard links [x]
    m_rbStackLinking1: QRadioButton Detect control points [ ]
    m_autoStart: QCheckBox Auto detection [x]
    m_cleanLink: QCheckBox Clean wrong link [ ]
    m_noOptim: QCheckBox Skip optimization [ ]
    groupBox: QGroupBox Preview
    label_zoom: QLabel Zoom
    m_hSlider: QSlider 1..100 = 50
    m_saPreview: QScrollArea )";

/// What both forms of the shooting file's pages have.
constexpr auto kShootingWidgets = R"(
    label_xml: QLabel XML:
    m_leConfigFile: QLineEdit 
    m_pbSelectConfigFile: QPushButton ...
    m_pbReset: QPushButton Reset
    label_4: QLabel Number of images:
    m_lbPapyLog: QLabel N/A
    label_2: QLabel Yaw:
    m_lbThetaMinMax: QLabel N/A
    label_9: QLabel Pitch:
    m_lbPhiMinMax: QLabel N/A
    label_10: QLabel Bracketing:
    m_lbBracket: QLabel N/A
    label_xmlFocal: QLabel XML focal:
    m_lbFocalLength: QLabel N/A
    m_lbImage: QLabel Images:
    m_leImage: QLineEdit 
    m_pbSelectImages: QPushButton ...
    label_5: QLabel Number of images:
    m_lbImageLog: QLabel N/A
    label_14: QLabel Image focal:
    m_lbFocalLengthImage: QLabel N/A
    m_lbWarning: QLabel <p style='color:red'></p>
    m_pInverseCoordinates: QPushButton Inverse Y coordinates
    m_pbRot270: QPushButton (icon)
    m_pbRot90: QPushButton (icon)
    label_15: QLabel Focal length:
    m_spFocal: QDoubleSpinBox 1..10000 step 1 = 1.000
    label_16: QLabel Lens Type:
    m_cbLensType: QComboBox Standard|Fisheye = Standard
    m_pbFLUseXML: QPushButton Use XML information
    m_pbFLUseImage: QPushButton Use image information
    label_13: QLabel Detect links in:
    m_rbLevelLinking0: QRadioButton The reference level [x]
    m_rbLevelLinking1: QRadioButton All stack levels [ ]
    label_11: QLabel For a stack:
    m_rbStackLinking0: QRadioButton Use hard links [x]
    m_rbStackLinking1: QRadioButton Detect control points [ ]
    m_autoStart: QCheckBox Auto detection [x]
    m_cleanLink: QCheckBox Clean wrong link [x]
    m_noOptim: QCheckBox Skip optimization [ ]
    m_GridOptim: QCheckBox Use recorded location [x]
    groupBox: QGroupBox Preview
    m_saPreview: QScrollArea 
    label_3: QLabel Zoom
    m_hSlider: QSlider 1..100 = 50)";

constexpr auto kPapywizardOnly = R"(
    label_6: QLabel Title:
    label_7: QLabel GPS:
    label_comment: QLabel Comment:
    m_leHeaderComment: QLineEdit 
    m_leHeaderGps: QLineEdit 
    m_leHeaderTitle: QLineEdit 
    tabWidget: QTabWidget General|Shoot setup|Stack|Detection options|Header details = General
    tab_header: QWidget )";

constexpr auto kVRDrive2Only = R"(
    label_6: QLabel Output:
    m_rbOutputMode1: QRadioButton 8-bits / 16-bits tonemapped [x]
    m_rbOutputMode2: QRadioButton 32-bits HDR radiance [ ]
    m_renderMode: QTabWidget General|Shoot setup|Stack|Detection options = General)";

constexpr auto kPapywizardSubTitle
    = "Papywizard| is a free project to drive Merlin/Orion panorama heads. The XML file format is "
      "open and used by a wide range of motorized panorama heads.";
constexpr auto kVRDrive2SubTitle
    = "VR Drive 2| plug-in enables an automated HDR workflow with all parameters set for true "
      "light rendering and easy use of Pano & Co software.";

/// Keeps what it was asked for, as "context|text".
class TextRecorder final : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        asked.insert(QLatin1String(context) + QLatin1Char('|') + QString::fromUtf8(text));
        return {};
    }
    mutable QSet<QString> asked;
};

/// Shows "N/A" of the pages in another language.
class NotAvailable final : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        if (qstrcmp(text, "N/A") != 0 || qstrncmp(context, "UIWP", 4) != 0)
            return {};
        return QStringLiteral("k. A.");
    }
};

} // namespace

Q_DECLARE_METATYPE(Kind)

class tst_PageForms : public QObject {
    Q_OBJECT

private slots:
    void init() { FakeHost::instance().reset(); }
    void metaObject_data();
    void metaObject();
    void widgets_data();
    void widgets();
    void shootingFormsDifferAsWritten();
    void pageTexts_data();
    void pageTexts();
    void textsAreInThePagesContext_data();
    void textsAreInThePagesContext();
    void yawIsNotTranslated_data();
    void yawIsNotTranslated();
};

void tst_PageForms::metaObject_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("className");
    QTest::addColumn<QStringList>("slotList");
    const auto row = [](const char *name, Kind kind, const char *className, const char *slotList) {
        QTest::newRow(name) << kind << QString::fromLatin1(className) << lines(slotList);
    };
    row("clauss", Kind::Clauss, "UIWPClauss", kClaussSlots);
    row("gigapan", Kind::Gigapan, "UIWPGigapan", kGigapanSlots);
    row("papywizard", Kind::Papywizard, "UIWPMerlin", kShootingSlots);
    row("vrdrive2", Kind::VRDrive2, "UIWPVRDrive2", kShootingSlots);
}

void tst_PageForms::metaObject()
{
    QFETCH(Kind, kind);
    QFETCH(QStringList, slotList);
    const auto page = makePage(kind);
    const QMetaObject *meta = page->metaObject();
    QTEST(QString::fromLatin1(meta->className()), "className");
    QCOMPARE(meta->superClass(), &QWizardPage::staticMetaObject);
    QCOMPARE(meta->propertyOffset(), meta->propertyCount());
    QCOMPARE(meta->methodCount() - meta->methodOffset(), slotList.size());
    for (int i = 0; i < slotList.size(); ++i) {
        const QMetaMethod method = meta->method(meta->methodOffset() + i);
        const QStringList expected = slotList[i].split(QLatin1Char(' '));
        QCOMPARE(QString::fromLatin1(method.methodSignature()), expected[0]);
        QCOMPARE(method.methodType(), QMetaMethod::Slot);
        QCOMPARE(method.access(), QMetaMethod::Public);
        if (expected.size() > 1)
            QCOMPARE(QString::fromLatin1(method.parameterNames().value(0)), expected[1]);
    }
}

void tst_PageForms::widgets_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("clauss") << Kind::Clauss << lines(kClaussWidgets);
    QTest::newRow("gigapan") << Kind::Gigapan << lines(kGigapanWidgets);
    QTest::newRow("papywizard") << Kind::Papywizard
                                << lines(kShootingWidgets) + lines(kPapywizardOnly);
    QTest::newRow("vrdrive2") << Kind::VRDrive2 << lines(kShootingWidgets) + lines(kVRDrive2Only);
}

void tst_PageForms::widgets()
{
    QFETCH(Kind, kind);
    QFETCH(QStringList, expected);
    const auto page = makePage(kind);
    const QStringList missing = without(expected, widgetsOf(*page));
    QCOMPARE(missing.join(QLatin1Char('\n')), QString());
}

void tst_PageForms::shootingFormsDifferAsWritten()
{
    const QStringList papywizard = widgetsOf(*makePage(Kind::Papywizard));
    const QStringList vrDrive2 = widgetsOf(*makePage(Kind::VRDrive2));
    QCOMPARE(without(papywizard, vrDrive2), lines(kPapywizardOnly));
    QCOMPARE(without(vrDrive2, papywizard), lines(kVRDrive2Only));

    // The first of the two rows on the first tab.
    const auto firstRow = [](Kind kind) {
        const PageDriver driver(makePage(kind).release());
        const int file = driver.widget("m_leConfigFile")->y();
        return file < driver.widget("m_leImage")->y() ? QStringLiteral("file")
                                                      : QStringLiteral("pictures");
    };
    QCOMPARE(firstRow(Kind::Papywizard), QStringLiteral("file"));
    QCOMPARE(firstRow(Kind::VRDrive2), QStringLiteral("pictures"));
}

void tst_PageForms::pageTexts_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("formName");
    QTest::addColumn<QString>("windowTitle");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("subTitle");
    QTest::addColumn<QString>("colour");
    const QString textColour = QApplication::palette().color(QPalette::WindowText).name();
    const QString grey = QStringLiteral("#DCDCDC");
    QTest::newRow("clauss") << Kind::Clauss << "UIWPClaussClass" << QString()
                            << "Clauss panohead import"
                            << "Clauss| provides special equipment for panoramic photography and "
                               "VR applications."
                            << grey;
    QTest::newRow("gigapan") << Kind::Gigapan << "UIWPGigapanClass" << QString()
                             << "Gigapan panorama import"
                             << "Gigapan| allows users to upload, share, and explore brilliant "
                                "gigapixel+ panoramas from around the globe."
                             << grey;
    QTest::newRow("papywizard") << Kind::Papywizard << "UIWPMerlinClass"
                                << "Papywizard panohead control software"
                                << "Papywizard import" << kPapywizardSubTitle << textColour;
    QTest::newRow("vrdrive2") << Kind::VRDrive2 << "UIWPVRDrive2Class"
                              << "VR Drive II import plugin"
                              << "VR Drive 2" << kVRDrive2SubTitle << grey;
}

void tst_PageForms::pageTexts()
{
    QFETCH(Kind, kind);
    QFETCH(QString, windowTitle);
    QFETCH(QString, subTitle);
    QFETCH(QString, colour);
    QCoreApplication::setApplicationName(QStringLiteral("Pano & Co"));
    const auto page = makePage(kind);
    QCoreApplication::setApplicationName(QString());
    QTEST(page->objectName(), "formName");
    QTEST(page->title(), "title");
    if (!windowTitle.isEmpty())
        QCOMPARE(page->windowTitle(), windowTitle);
    QCOMPARE(page->minimumSize(), QSize(600, 600));
    QCOMPARE(page->size(), QSize(681, 600));

    QTextDocument shown;
    shown.setHtml(page->subTitle());
    QCOMPARE(shown.toPlainText(), QString(subTitle).remove(QLatin1Char('|')));
    const QTextFragment link = shown.firstBlock().begin().fragment();
    QCOMPARE(link.text(), subTitle.section(QLatin1Char('|'), 0, 0));
    QVERIFY(link.charFormat().isAnchor());
    QVERIFY(page->subTitle().contains(QStringLiteral("<font color=\"%1\">").arg(colour)));
}

void tst_PageForms::textsAreInThePagesContext_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("context");
    QTest::addColumn<QStringList>("texts");
    const QStringList ofShooting{QStringLiteral("N/A"), QStringLiteral("All Files (*.*)"),
        QStringLiteral("XML files (*.xml)"), QStringLiteral("Select images"),
        QStringLiteral("Select the preset file and/or images"),
        QStringLiteral("Not the same as in XML fil"), QStringLiteral("Warning"),
        QStringLiteral("Papywizard XML has bracketing and the number of images isn't a multiple of "
                       "this number of brackets.")};
    QTest::newRow("clauss") << Kind::Clauss << "UIWPClauss"
                            << QStringList{QStringLiteral("N/A"), QStringLiteral("All Files (*.*)"),
                                   QStringLiteral("Select images"),
                                   QStringLiteral("Select the preset file and/or images"),
                                   QStringLiteral("Error"), QStringLiteral("Error parse file:%1")};
    QTest::newRow("gigapan") << Kind::Gigapan << "UIWPGigapan"
                             << QStringList{QStringLiteral("images in "),
                                    QStringLiteral("All Files (*.*)"),
                                    QStringLiteral("Select images")};
    QTest::newRow("papywizard") << Kind::Papywizard << "UIWPMerlin" << ofShooting;
    QTest::newRow("vrdrive2") << Kind::VRDrive2 << "UIWPVRDrive2" << ofShooting;
}

void tst_PageForms::textsAreInThePagesContext()
{
    QFETCH(Kind, kind);
    QFETCH(QString, context);
    QFETCH(QStringList, texts);
    QTemporaryDir folder;
    const QString file = makeFile(
        folder.filePath(kind == Kind::Clauss ? QStringLiteral("s.txt") : QStringLiteral("s.xml")),
        kind == Kind::Clauss ? "op_h-angle=bad\n"
                             : "<p><shoot><pict/></shoot><header><camera>"
                               "<bracketing nbPicts='3'/></camera></header></p>");

    TextRecorder recorder;
    QCoreApplication::installTranslator(&recorder);
    PageDriver driver(makePage(kind).release());
    driver.choose("m_pbSelectImages", {});
    if (kind != Kind::Gigapan) {
        driver.choose("m_pbSelectConfigFile", {file});
        driver.drop({QStringLiteral("/p/1.jpg")});
    }
    answering([&] { driver.page().validatePage(); });
    QCoreApplication::removeTranslator(&recorder);

    for (const QString &text : texts)
        QVERIFY2(recorder.asked.contains(context + QLatin1Char('|') + text), qPrintable(text));
    // The rest is the form's, or Qt's own.
    for (const QString &asked : qAsConst(recorder.asked)) {
        const QString used = asked.section(QLatin1Char('|'), 0, 0);
        QVERIFY2(used == context || used == context + QLatin1String("Class")
                || (used.startsWith(QLatin1Char('Q')) && used != QLatin1String("QWizardPage")),
            qPrintable(asked));
    }
}

void tst_PageForms::yawIsNotTranslated_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::newRow("clauss") << Kind::Clauss;
    QTest::newRow("papywizard") << Kind::Papywizard;
    QTest::newRow("vrdrive2") << Kind::VRDrive2;
}

void tst_PageForms::yawIsNotTranslated()
{
    QFETCH(Kind, kind);
    NotAvailable translator;
    QCoreApplication::installTranslator(&translator);
    const PageDriver driver(makePage(kind).release());
    QCoreApplication::removeTranslator(&translator);
    for (const char *label : {"m_lbPapyLog", "m_lbPhiMinMax", "m_lbImageLog"})
        QCOMPARE(driver.text(label), QStringLiteral("k. A."));
    QCOMPARE(driver.text("m_lbThetaMinMax"), QStringLiteral("N/A"));
}

FAKE_HOST_GUI_MAIN(tst_PageForms)
#include "tst_PageForms.moc"
