// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The pages as a host and a user find them: slots, widgets, texts.

#include "clauss/UIWPClauss.h"
#include "gigapan/UIWPGigapan.h"
#include "papywizard/UIWPMerlin.h"
#include "tests/support/FakeHost.h"
#include "tests/support/Files.h"
#include "tests/support/PageDriver.h"
#include "tests/support/Table.h"
#include "vrdrive2/UIWPVRDrive2.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QTabWidget>
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

/// What the form says of a widget.
QString describe(const QWidget *widget)
{
    QStringList says;
    for (const char *property :
        {"text", "title", "minimum", "maximum", "singleStep", "value", "checked", "currentIndex"}) {
        const QVariant value = widget->property(property);
        const bool isMeant
            = qstrcmp(property, "checked") != 0 || widget->property("checkable").toBool();
        if (value.isValid() && isMeant)
            says += value.toString();
    }
    const auto *label = qobject_cast<const QLabel *>(widget);
    if (label && !label->pixmap(Qt::ReturnByValue).isNull())
        says += QStringLiteral("(picture)");
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    if (button && !button->icon().pixmap(16).isNull())
        says += QStringLiteral("(icon)");
    const auto *list = qobject_cast<const QComboBox *>(widget);
    for (int i = 0; list && i < list->count(); ++i)
        says += list->itemText(i);
    const auto *tabs = qobject_cast<const QTabWidget *>(widget);
    for (int i = 0; tabs && i < tabs->count(); ++i)
        says += tabs->tabText(i);
    return says.join(QLatin1Char('|'));
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

/// Entries between semicolons. Captions may end in a blank: only blanks before an entry go.
QStringList entries(const char *text)
{
    static const QRegularExpression kBetween(QStringLiteral(";\\s*"));
    return QString::fromUtf8(text).trimmed().split(kBetween, Qt::SkipEmptyParts);
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
    BrowserWeb(QString) _url; SelectImages(); SelectConfigFile(); OnZoomChanged(); OnImageLoaded();
    OnInverseCoordinates(); OnRotate90(); OnRotate270(); OnFLUseXML(); OnFLUseImage(); Reset();
    SetConfigFFilename(QString) text; OnLevelLinkingClicked(bool) checked;
    OnStackLinkingClicked(bool) checked)";

constexpr auto kClaussSlots = R"(
    BrowserWeb(QString) url; SelectImages(); SelectConfigFile(); UpdateUI(); UpdatePreview();
    OnInverseCoordinates(); Reset(); SetConfigFFilename())";

constexpr auto kGigapanSlots = R"(
    SelectImages(); UpdateUI(); UpdatePreview(); Reset(); IgnoreNImages(int); SetRow(int);
    OnChangeBracket(int); OnMode0Toggled(bool) checked; OnMode1Toggled(bool) checked;
    OnMode2Toggled(bool) checked; OnMode3Toggled(bool) checked; OnMode4Toggled(bool) checked;
    OnLevelLinkingClicked(bool) checked; OnStackLinkingClicked(bool) checked)";

constexpr auto kClaussWidgets = R"(
    tabWidget: 0|General|Options; label: Script file:; m_leConfigFile: ; m_pbSelectConfigFile: ...;
    m_pbReset: Reset; label_5: Number of shoot:; m_lbPapyLog: N/A; label_6: Theta:;
    m_lbThetaMinMax: N/A; label_9: Phi:; m_lbPhiMinMax: N/A;
    m_pInverseCoordinates: Inverse Y coordinates; m_leImage: ; m_pbSelectImages: ...;
    label_10: Number of image:; m_lbImageLog: N/A; m_lbImage_2: Images:;
    m_autoStart: Auto detection|true; m_cleanLink: Clean wrong link|false;
    m_noOptim: Skip optimization|false; m_GridOptim: Guided optimization|true; groupBox: Preview;
    m_saPreview: ; label_2: Zoom; m_hSlider: 1|100|1|50)";

constexpr auto kGigapanWidgets = R"(
    tabWidget: 0|General|Shoot layout|Shoot setup|Stack|Detection options; label: Images :;
    m_leImage: ; m_pbSelectImages: ...; m_pbReset: Reset; m_lbImage: 0 images in ;
    m_sbRow: 4|1|100000|1|4; label_3: rows and; m_sbColumn: 5|1|100000|1|5;
    label_columns: columns.; label_ignore: Ignore N files ; m_sbIgnore: 0|0|100000|1|0;
    label_bracket: Nb image per location ( bracketing ); m_sbBracket: 1|1|100000|1|1;
    label_layout: Layout; m_lbMode0: |(picture); m_rbMode0: Columns (default)|true;
    m_lbMode1: |(picture); m_rbMode1: Rows: downward|false; m_lbMode2: |(picture);
    m_rbMode2: Rows: upward|false; m_lbMode3: |(picture); m_rbMode3: Columns: to left|false;
    m_cbIS360: Force 360° panorama|false; label_14: Overlapping; m_dsbOverlapping: 40.0|5|100|5|40;
    label_13: Detect links in:; m_rbLevelLinking0: The reference level|true;
    m_rbLevelLinking1: All stack levels|false; label_11: For a stack:;
    m_rbStackLinking0: Use hard links|true; m_rbStackLinking1: Detect control points|false;
    m_autoStart: Auto detection|true; m_cleanLink: Clean wrong link|false;
    m_noOptim: Skip optimization|false; groupBox: Preview; label_zoom: Zoom; m_hSlider: 1|100|1|50;
    m_saPreview: ;)";

/// What both forms of the shooting file's pages have.
constexpr auto kShootingWidgets = R"(
    label_xml: XML:; m_leConfigFile: ; m_pbSelectConfigFile: ...; m_pbReset: Reset;
    label_4: Number of images:; m_lbPapyLog: N/A; label_2: Yaw:; m_lbThetaMinMax: N/A;
    label_9: Pitch:; m_lbPhiMinMax: N/A; label_10: Bracketing:; m_lbBracket: N/A;
    label_xmlFocal: XML focal:; m_lbFocalLength: N/A; m_lbImage: Images:; m_leImage: ;
    m_pbSelectImages: ...; label_5: Number of images:; m_lbImageLog: N/A; label_14: Image focal:;
    m_lbFocalLengthImage: N/A; m_lbWarning: <p style='color:red'></p>;
    m_pInverseCoordinates: Inverse Y coordinates; m_pbRot270: |(icon); m_pbRot90: |(icon);
    label_15: Focal length:; m_spFocal: 1.000|1|10000|1|1; label_16: Lens Type:;
    m_cbLensType: 0|Standard|Fisheye; m_pbFLUseXML: Use XML information;
    m_pbFLUseImage: Use image information; label_13: Detect links in:;
    m_rbLevelLinking0: The reference level|true; m_rbLevelLinking1: All stack levels|false;
    label_11: For a stack:; m_rbStackLinking0: Use hard links|true;
    m_rbStackLinking1: Detect control points|false; m_autoStart: Auto detection|true;
    m_cleanLink: Clean wrong link|true; m_noOptim: Skip optimization|false;
    m_GridOptim: Use recorded location|true; groupBox: Preview; m_saPreview: ; label_3: Zoom;
    m_hSlider: 1|100|1|50)";

constexpr auto kPapywizardOnly = R"(
    label_6: Title:; label_7: GPS:; label_comment: Comment:; m_leHeaderComment: ; m_leHeaderGps: ;
    m_leHeaderTitle: ; tabWidget: 0|General|Shoot setup|Stack|Detection options|Header details;
    tab_header: ;)";

constexpr auto kVRDrive2Only = R"(
    label_6: Output:; m_rbOutputMode1: 8-bits / 16-bits tonemapped|true;
    m_rbOutputMode2: 32-bits HDR radiance|false;
    m_renderMode: 0|General|Shoot setup|Stack|Detection options)";

constexpr auto kPapywizardSubTitle
    = "Papywizard| is a free project to drive Merlin/Orion panorama heads. The XML file format is "
      "open and used by a wide range of motorized panorama heads.";
constexpr auto kVRDrive2SubTitle
    = "VR Drive 2| plug-in enables an automated HDR workflow with all parameters set for true "
      "light rendering and easy use of Pano & Co software.";

/// Keeps what it was asked for, as "context|text", and shows the pages' "N/A" in another language.
class TextRecorder final : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        asked.insert(QLatin1String(context) + QLatin1Char('|') + QString::fromUtf8(text));
        return qstrcmp(text, "N/A") == 0 && qstrncmp(context, "UIWP", 4) == 0
            ? QStringLiteral("k. A.")
            : QString();
    }
    mutable QSet<QString> asked;
};

} // namespace

Q_DECLARE_METATYPE(Kind)

class tst_PageForms : public QObject {
    Q_OBJECT

private slots:
    void init() { FakeHost::instance().reset(); }

    void metaObject_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QString>("className");
        QTest::addColumn<QStringList>("slotList");
        const auto row = [](const char *name, Kind kind, const char *className,
                             const char *slotList) {
            QTest::newRow(name) << kind << QString::fromLatin1(className) << entries(slotList);
        };
        row("clauss", Kind::Clauss, "UIWPClauss", kClaussSlots);
        row("gigapan", Kind::Gigapan, "UIWPGigapan", kGigapanSlots);
        row("papywizard", Kind::Papywizard, "UIWPMerlin", kShootingSlots);
        row("vrdrive2", Kind::VRDrive2, "UIWPVRDrive2", kShootingSlots);
    }
    void metaObject()
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

    void widgets_data()
    {
        const Table<Kind, QStringList> row("kind", "expected");
        row("clauss", Kind::Clauss, entries(kClaussWidgets));
        row("gigapan", Kind::Gigapan, entries(kGigapanWidgets));
        row("papywizard", Kind::Papywizard, entries(kShootingWidgets) + entries(kPapywizardOnly));
        row("vrdrive2", Kind::VRDrive2, entries(kShootingWidgets) + entries(kVRDrive2Only));
    }
    void widgets()
    {
        QFETCH(Kind, kind);
        QFETCH(QStringList, expected);
        const auto page = makePage(kind);
        const QStringList missing = without(expected, widgetsOf(*page));
        QCOMPARE(missing.join(QLatin1Char('\n')), QString());
    }

    void shootingFormsDifferAsWritten()
    {
        const QStringList papywizard = widgetsOf(*makePage(Kind::Papywizard));
        const QStringList vrDrive2 = widgetsOf(*makePage(Kind::VRDrive2));
        QCOMPARE(without(papywizard, vrDrive2), entries(kPapywizardOnly));
        QCOMPARE(without(vrDrive2, papywizard), entries(kVRDrive2Only));

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

    void pageTexts_data()
    {
        const Table<Kind, QString, QString, QString, QString, QString> row(
            "kind", "formName", "windowTitle", "title", "subTitle", "colour");
        const QString textColour = QApplication::palette().color(QPalette::WindowText).name();
        const QString grey = QStringLiteral("#DCDCDC");
        row("clauss", Kind::Clauss, "UIWPClaussClass", "", "Clauss panohead import",
            "Clauss| provides special equipment for panoramic photography and "
            "VR applications.",
            grey);
        row("gigapan", Kind::Gigapan, "UIWPGigapanClass", "", "Gigapan panorama import",
            "Gigapan| allows users to upload, share, and explore brilliant "
            "gigapixel+ panoramas from around the globe.",
            grey);
        row("papywizard", Kind::Papywizard, "UIWPMerlinClass",
            "Papywizard panohead control software", "Papywizard import", kPapywizardSubTitle,
            textColour);
        row("vrdrive2", Kind::VRDrive2, "UIWPVRDrive2Class", "VR Drive II import plugin",
            "VR Drive 2", kVRDrive2SubTitle, grey);
    }
    void pageTexts()
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

    void textsAreInThePagesContext_data()
    {
        const Table<Kind, QString, QStringList> row("kind", "context", "texts");
        const QStringList ofShooting{QStringLiteral("N/A"), QStringLiteral("All Files (*.*)"),
            QStringLiteral("XML files (*.xml)"), QStringLiteral("Select images"),
            QStringLiteral("Select the preset file and/or images"),
            QStringLiteral("Not the same as in XML fil"), QStringLiteral("Warning"),
            QStringLiteral(
                "Papywizard XML has bracketing and the number of images isn't a multiple of "
                "this number of brackets.")};
        row("clauss", Kind::Clauss, "UIWPClauss",
            {"N/A", "All Files (*.*)", "Select images", "Select the preset file and/or images",
                "Error", "Error parse file:%1"});
        row("gigapan", Kind::Gigapan, "UIWPGigapan",
            {"images in ", "All Files (*.*)", "Select images"});
        row("papywizard", Kind::Papywizard, "UIWPMerlin", ofShooting);
        row("vrdrive2", Kind::VRDrive2, "UIWPVRDrive2", ofShooting);
    }
    void textsAreInThePagesContext()
    {
        QFETCH(Kind, kind);
        QFETCH(QString, context);
        QFETCH(QStringList, texts);
        QTemporaryDir folder;
        const QString file
            = writeFile(folder.filePath(kind == Kind::Clauss ? QStringLiteral("s.txt")
                                                             : QStringLiteral("s.xml")),
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

    void yawIsNotTranslated_data()
    {
        const Table<Kind> row("kind");
        row("clauss", Kind::Clauss);
        row("papywizard", Kind::Papywizard);
        row("vrdrive2", Kind::VRDrive2);
    }
    void yawIsNotTranslated();
};

void tst_PageForms::yawIsNotTranslated()
{
    QFETCH(Kind, kind);
    TextRecorder translator;
    QCoreApplication::installTranslator(&translator);
    const PageDriver driver(makePage(kind).release());
    QCoreApplication::removeTranslator(&translator);
    for (const char *label : {"m_lbPapyLog", "m_lbPhiMinMax", "m_lbImageLog"})
        QCOMPARE(driver.text(label), QStringLiteral("k. A."));
    QCOMPARE(driver.text("m_lbThetaMinMax"), QStringLiteral("N/A"));
}

FAKE_HOST_GUI_MAIN(tst_PageForms)
#include "tst_PageForms.moc"
