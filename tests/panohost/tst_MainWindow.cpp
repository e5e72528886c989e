// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/RecordJson.h"
#include "apps/panohost/Module.h"
#include "apps/panohost/window/DroppedFiles.h"
#include "apps/panohost/window/HeadModule.h"
#include "apps/panohost/window/MainWindow.h"
#include "apps/panohost/window/MapView.h"
#include "apps/panohost/window/SummaryPage.h"
#include "apps/screenshots/WindowDriver.h"
#include "tests/align/TestPicture.h"
#include "tests/support/Files.h"
#include "tests/support/Gate.h"
#include "tests/support/Program.h"
#include "tests/support/RecordDump.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QDesktopServices>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <QWizardPage>
#include <memory>

namespace {

QString quoted(const char *text)
{
    return QString::fromUtf8(text);
}

/// The steps of a head's own turn: columns 30 degrees apart, in rows 25 degrees apart.
struct Angles {
    double yaw;
    double pitch;
};

QVector<Angles> anglesOf(int shots, int brackets)
{
    QVector<Angles> angles;
    for (int shot = 0; shot < shots; ++shot) {
        const int location = shot / brackets;
        const int column = location / 3;
        angles.append({30.0 * column, 25.0 * (location % 3)});
    }
    return angles;
}

QByteArray shootingXml(int shots, int brackets, double focal)
{
    QString text = QStringLiteral("<papywizard><header>");
    if (focal > 0)
        text += QStringLiteral("<lens type='rectilinear'><focal>%1</focal></lens>").arg(focal);
    text += QStringLiteral("<camera><sensor coef='1'/><bracketing nbPicts='%1'/></camera></header>"
                           "<shoot>")
                .arg(brackets);
    int number = 0;
    for (const Angles &angle : anglesOf(shots, brackets)) {
        text
            += QStringLiteral("<pict id='%1' bracket='%2'><position yaw='%3' pitch='%4'/></pict>\n")
                   .arg(number + 1)
                   .arg(number % brackets + 1)
                   .arg(angle.yaw)
                   .arg(angle.pitch);
        ++number;
    }
    return (text + QStringLiteral("</shoot></papywizard>")).toUtf8();
}

QByteArray claussScript(int shots, double finer = 0)
{
    QString text;
    for (const Angles &angle : anglesOf(shots, 1))
        text += QStringLiteral("op_h-angle=%1\nop_v-angle=%2\nop_shoot\n")
                    .arg(angle.yaw + finer)
                    .arg(angle.pitch);
    return text.toLatin1();
}

} // namespace

/// Uses the window with mouse and keyboard, with the imports of the real module.
class tst_MainWindow : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void importsLikeTheCommandLine_data();
    void importsLikeTheCommandLine();
    void importsAnother();
    void offersHeadsForFiles_data();
    void offersHeadsForFiles();
    void opensTheOnlyHead();
    void namesUnreadablePictures();
    void choosesTooMuch();
    void stopsReading();
    void asksForMissingPictures();
    void keepsInputs();
    void changesOfMindCostNothing();
    void doubtsFocalLengths();
    void asksForFocalLengths_data();
    void asksForFocalLengths();
    void takesFullAngles();
    void leavesImports();
    void worksByKeyboard();
    void opensWhatItWrote();
    void cancelsWhatItFinishes();
    void alignsWhatItImported();
    void makesPanoramas();
    void keepsProjectsThatWereChanged();
    void remembers();
    void saysWhatModuleIsMissing_data();
    void saysWhatModuleIsMissing();

public slots:
    void takeUrl(const QUrl &url) { m_urls.append(url); }

private:
    static DrivenHost &host() { return static_cast<DrivenHost &>(*qApp); }
    QString at(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    void open();
    void close();
    bool click(const char *name) { return m_driver->click(QString::fromUtf8(name)); }
    QAbstractButton *button(const char *name) { return m_driver->button(QString::fromUtf8(name)); }
    bool says(const char *text) const { return advice().contains(QString::fromUtf8(text)); }
    /// JPEGs 1.jpg and on; none tells a focal length of 0.
    QStringList makePictures(int count, const char *focal = "24", int brackets = 1) const;
    /// shooting.xml of \a shots shots, and as many pictures.
    QStringList makeShooting(int shots, const char *focal = "24", int brackets = 1) const;
    /// Opens an import and hands it all that there is; waits until the pictures are read.
    void begin(const char *head);
    QString advice() const;
    QStringList images() const { return m_driver->page()->property("images").toStringList(); }
    QString configFile() const { return m_driver->page()->property("configFile").toString(); }
    /// What the command line makes of the same; its project is cli.pto beside the window's.
    ProjectRecord commandLine(const QString &head, const QStringList &arguments) const;
    /// Presses Import and gives each dialog to \a answer. How many came.
    int pressImport(const std::function<void(QWidget *dialog, int number)> &answer);
    /// Types \a place into a dialog for files.
    static void choose(QWidget *dialog, const QString &place);
    /// Presses Import and answers the question for the place.
    void import(const QString &project);
    /// Imports a row of three pictures, of a head that is a degree off, as shooting/x.pto. Its
    /// text.
    QByteArray importRow();
    /// Waits until the task of the last page is done. What the page says then.
    QString reportWhenDone();

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QTemporaryDir> m_settings;
    std::unique_ptr<HeadModule> m_module;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<WindowDriver> m_driver;
    QVector<ProjectRecord> m_imported;
    QList<QUrl> m_urls;
    Gate m_gate;
};

void tst_MainWindow::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_settings = std::make_unique<QTemporaryDir>();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings->path());
    QSettings().clear();
    m_imported.clear();
    connect(&host(), &HostApplication::projectImported, this,
        [this](const ProjectRecord &record) { m_imported.append(record); });
    open();
}

void tst_MainWindow::cleanup()
{
    close(); // Nobody reads any more.
    host().beforeReading = nullptr;
    host().disconnect(this);
}

void tst_MainWindow::open()
{
    m_module = std::make_unique<HeadModule>(findModule());
    QCOMPARE(m_module->problem(), QString());
    m_window = std::make_unique<MainWindow>(host(), *m_module);
    m_driver = std::make_unique<WindowDriver>(*m_window);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void tst_MainWindow::close()
{
    if (m_window)
        m_window->close();
    m_driver.reset();
    m_window.reset();
    m_module.reset();
}

QStringList tst_MainWindow::makePictures(int count, const char *focal, int brackets) const
{
    static const char *const kTimes[] = {"1/400", "1/100", "1/25"};
    QStringList paths;
    for (int i = 0; i < count; ++i) {
        const QString path
            = m_folder->filePath(QStringLiteral("%1.jpg").arg(i + 1, 3, 10, QLatin1Char('0')));
        Tags tags{{"Exif.Photo.FNumber", "8/1"},
            {"Exif.Photo.ExposureTime", kTimes[brackets == 3 ? i % 3 : 1]}};
        if (qstrcmp(focal, "0") != 0)
            tags.emplace_back("Exif.Photo.FocalLengthIn35mmFilm", focal);
        writeJpeg(path, QSize(60, 40), tags);
        paths.append(path);
    }
    return paths;
}

QStringList tst_MainWindow::makeShooting(int shots, const char *focal, int brackets) const
{
    writeFile(at("shooting.xml"), shootingXml(shots, brackets, atof(focal)));
    return makePictures(shots, focal, brackets);
}

void tst_MainWindow::begin(const char *head)
{
    if (!click(head) || !m_driver->drop({m_folder->path()}) || !m_driver->waitForPictures())
        qFatal("The import of %s does not begin: %s", head, qPrintable(advice()));
}

QString tst_MainWindow::advice() const
{
    const auto *label = m_window->findChild<QLabel *>(QStringLiteral("advice"));
    return label ? label->text() : QString();
}

ProjectRecord tst_MainWindow::commandLine(const QString &head, const QStringList &arguments) const
{
    const Texts outputs{"--force", "--output", at("cli.pto"), "--record", at("cli.json")};
    const Run program
        = run(PANOHOST, QStringList{quoted("import"), head.toLower()} + outputs + arguments);
    if (program.code != 0)
        qFatal("%s", program.err.constData());
    QString problem;
    const auto record = recordFromJson(fileContent(at("cli.json")), &problem);
    if (!record)
        qFatal("%s", qPrintable(problem));
    return *record;
}

int tst_MainWindow::pressImport(const std::function<void(QWidget *dialog, int number)> &answer)
{
    return WindowDriver::withDialogs([this] { QVERIFY(click("import")); }, answer);
}

void tst_MainWindow::choose(QWidget *dialog, const QString &place)
{
    auto *files = qobject_cast<QFileDialog *>(dialog);
    QVERIFY(files);
    files->setOption(QFileDialog::DontConfirmOverwrite);
    files->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(place);
    static_cast<QDialog *>(files)->accept();
}

void tst_MainWindow::import(const QString &project)
{
    QCOMPARE(pressImport([&](QWidget *dialog, int) { choose(dialog, project); }), 1);
}

void tst_MainWindow::importsLikeTheCommandLine_data()
{
    QTest::addColumn<QString>("head");
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("brackets");
    QTest::addColumn<bool>("serpentine");
    QTest::addColumn<QString>("saysPictures");
    const auto row = [](const char *name, const char *head, const char *file, int brackets,
                         bool serpentine, const char *says) {
        QTest::newRow(name) << quoted(head) << quoted(file) << brackets << serpentine
                            << quoted(says);
    };
    row("Papywizard", "Papywizard", "shooting.xml", 1, false, "36");
    row("Papywizard, stacks", "Papywizard", "shooting.xml", 3, false, "36, in stacks of 3");
    row("Clauss", "Clauss", "script.txt", 1, false, "36");
    row("Gigapan", "Gigapan", "", 1, false, "36");
    row("Gigapan, serpentine", "Gigapan", "", 1, true, "36");
    row("VR Drive 2", "VRDrive2", "shooting.xml", 3, false, "36, in stacks of 3");
}

void tst_MainWindow::importsLikeTheCommandLine()
{
    QFETCH(QString, head);
    QFETCH(QString, file);
    QFETCH(int, brackets);
    QFETCH(bool, serpentine);
    QFETCH(QString, saysPictures);

    const QStringList paths = makePictures(36, "24", brackets);
    const QString config = m_folder->filePath(file);
    if (!file.isEmpty())
        writeFile(config,
            file.endsWith(QLatin1String(".xml")) ? shootingXml(36, brackets, 35)
                                                 : claussScript(36));

    begin(qPrintable(head));
    if (serpentine)
        QVERIFY(click("serpentine"));
    QTRY_VERIFY2(says("are read"), qPrintable(advice()));
    import(at("window.pto"));

    QStringList arguments;
    if (!file.isEmpty())
        arguments += QStringList{QStringLiteral("--config"), config};
    if (serpentine)
        arguments += words("--order serpentine-up");
    QCOMPARE(m_imported.size(), 1);
    QCOMPARE(dump(m_imported[0]), dump(commandLine(head, arguments + paths)));
    QCOMPARE(fileContent(at("window.pto")), fileContent(at("cli.pto")));
    QVERIFY(fileContent(at("window.pto")).contains("n\"001.jpg\""));

    auto *summary = m_window->findChild<SummaryPage *>();
    QVERIFY(summary && summary->isVisible());
    QStringList shown;
    for (const QLabel *label : summary->findChildren<QLabel *>())
        shown += label->text();
    for (const QString &text : {saysPictures, quoted("24 mm, from the pictures"),
             quoted("standard, from the pictures"), at("window.pto")})
        QVERIFY2(shown.contains(text), qPrintable(shown.join(QLatin1Char('|'))));
    QCOMPARE(summary->map().map()->layout().places.size(), m_imported[0].groups.size());
}

void tst_MainWindow::importsAnother()
{
    const QStringList paths = makePictures(12);
    for (const int shots : {12, 6}) {
        QVERIFY(click("Papywizard"));
        // Nothing is left of the import before.
        QCOMPARE(images() + QStringList(configFile()), QStringList(QString()));
        writeFile(at("shooting.xml"), shootingXml(shots, 1, 24));
        QVERIFY(m_driver->drop(paths.mid(0, shots) + QStringList(at("shooting.xml"))));
        QVERIFY(m_driver->waitForPictures());
        import(m_folder->filePath(QStringLiteral("%1.pto").arg(shots)));
        QCOMPARE(m_imported.last().groups.size(), shots);
        QCOMPARE(m_imported.last().yaws.size(), shots);
        QVERIFY(click("another"));
    }
}

void tst_MainWindow::offersHeadsForFiles_data()
{
    QTest::addColumn<QStringList>("dropped");
    QTest::addColumn<QString>("says");
    QTest::addColumn<QStringList>("heads");

    const QStringList all = words("Clauss Gigapan Papywizard VRDrive2");
    const QStringList xml = all.mid(2);
    const auto row
        = [](const char *name, const char *dropped, const char *says, const QStringList &heads) {
              QTest::newRow(name) << words(dropped) << quoted(says) << heads;
          };
    row("shooting file", "shooting.xml", "“shooting.xml” tells of 6 shots. Which", xml);
    row("capital suffix", "SHOOTING.XML", "“SHOOTING.XML” tells of 6 shots. Which", xml);
    row("with pictures", "001.jpg shooting.xml 002.jpg", "6 shots. 2 pictures come with it. Which",
        xml);
    row("folder", "folder", "“inside.xml” tells of 3 shots. 1 picture comes", xml);
    row("pictures", "001.jpg 002.jpg", "Pictures without the file of a head: 2", all);
    row("preset list", "presets.xml", "“presets.xml” is a list of presets and holds no shots", all);
    row("preset list and pictures", "presets.xml 001.jpg", "Pictures without the file of a head: 1",
        all);
    row("no shots", "empty.xml", "“empty.xml” holds no shots", all);
    row("no XML", "garbage.xml", "“garbage.xml” is damaged or no shooting file. Line 1", all);
    row("cut short", "cut.xml", "“cut.xml” is damaged", all);
    row("empty file", "zero.xml", "“zero.xml” is damaged", all);
    row("a letter", "letter.txt", "“letter.txt” holds no shots", all);
    row("gone", "gone.xml", "There is no file “gone.xml”", all);
    row("empty folder", "bare", "folder “bare” holds no pictures and no file of a head", all);
    row("another kind of file", "manual.pdf", "“manual.pdf” is neither a picture nor", all);
    row("a picture by another name", "picture", "Pictures without the file of a head: 1", all);
    row("with what is of no use", "shooting.xml manual.pdf bare", "“shooting.xml” tells", xml);
    row("good after bad", "presets.xml shooting.xml", "“shooting.xml” tells of 6 shots", xml);
    row("bad after good", "shooting.xml presets.xml", "“shooting.xml” tells of 6 shots", xml);
}

void tst_MainWindow::offersHeadsForFiles()
{
    QFETCH(QStringList, dropped);
    QFETCH(QString, says);
    QFETCH(QStringList, heads);

    makePictures(2);
    const QByteArray xml = shootingXml(6, 1, 24);
    writeFile(at("shooting.xml"), xml);
    writeFile(at("SHOOTING.XML"), xml);
    writeFile(at("presets.xml"),
        "<papywizard><preset name='a'><shoot><pict/></shoot></preset></papywizard>");
    writeFile(at("empty.xml"), "<papywizard/>");
    writeFile(at("garbage.xml"), "BM\0\1\2");
    writeFile(at("cut.xml"), xml.left(xml.size() / 2));
    writeFile(at("zero.xml"), {});
    writeFile(at("manual.pdf"), "%PDF-1.4\n");
    QVERIFY(QFile::copy(at("001.jpg"), at("picture")));
    writeFile(at("letter.txt"), "Dear head,\nturn to the left.\n");
    for (const char *folder : {"bare", "folder"})
        QVERIFY(QDir(m_folder->path()).mkdir(QLatin1String(folder)));
    writeFile(at("folder/inside.xml"), shootingXml(3, 1, 24));
    writeFile(at("folder/other.xml"), "<svg/>");
    writeFile(at("folder/notes.txt"), "nothing");
    QVERIFY(QFile::copy(at("001.jpg"), at("folder/001.jpg")));

    QStringList paths;
    for (const QString &name : dropped)
        paths += m_folder->filePath(name);
    m_driver->drop(paths);

    const auto *notice = m_window->findChild<QFrame *>(QStringLiteral("notice"));
    QCOMPARE(notice->isVisible(), !says.isEmpty());
    if (!says.isEmpty()) {
        const QString text = notice->findChild<QLabel *>()->text();
        QVERIFY2(text.contains(says), qPrintable(text));
    }
    QStringList offered;
    for (const char *head : {"Clauss", "Gigapan", "Papywizard", "VRDrive2"}) {
        if (m_driver->button(QLatin1String(head))->isEnabled())
            offered += QLatin1String(head);
    }
    QCOMPARE(offered, heads);

    // A clean slate again.
    if (click("forget"))
        QVERIFY(!notice->isVisible());
    QVERIFY(click("Clauss"));
    QCOMPARE(images(), QStringList());
}

void tst_MainWindow::opensTheOnlyHead()
{
    const QStringList pictures = makePictures(6);
    writeFile(at("SCRIPT.TXT"), claussScript(6));
    QVERIFY(m_driver->drop(pictures + QStringList(at("SCRIPT.TXT"))));
    QVERIFY(m_driver->page());
    QCOMPARE(configFile(), at("SCRIPT.TXT"));
    QVERIFY(m_driver->waitForPictures());
    // What leads on is in sight on the smallest screen, and the link above the page not in focus.
    m_window->resize(640, 480);
    QTRY_VERIFY(!button("import")->visibleRegion().isEmpty());
    QVERIFY(!qobject_cast<QLabel *>(m_window->focusWidget()));
}

void tst_MainWindow::namesUnreadablePictures()
{
    const QStringList paths = makeShooting(6);
    const QByteArray whole = fileContent(paths[2]);
    writeFile(paths[2], whole.left(whole.size() / 2));
    writeFile(paths[4], {});
    QVERIFY(QFile::remove(paths[5]));

    QVERIFY(click("Papywizard"));
    QVERIFY(m_driver->drop(paths + QStringList(at("shooting.xml"))));
    const auto *list = m_window->findChild<QListWidget *>(QStringLiteral("unreadable"));
    QTRY_COMPARE(list->count(), 3);
    const QStringList names{
        QStringLiteral("003.jpg: "), QStringLiteral("005.jpg: "), QStringLiteral("006.jpg: ")};
    for (int i = 0; i < 3; ++i) {
        QVERIFY2(list->item(i)->text().startsWith(names[i]), qPrintable(list->item(i)->text()));
        QVERIFY(list->item(i)->text().size() > names[i].size());
    }
    QTRY_VERIFY2(says("cannot be read: 3"), qPrintable(advice()));
    QVERIFY(!button("import")->isEnabled());

    writeFile(paths[2], whole);
    QVERIFY(click("retry"));
    QTRY_COMPARE(list->count(), 2);
    QVERIFY(!m_driver->page()->isComplete());
    writeFile(paths[4], whole);
    writeFile(paths[5], whole);
    QTRY_VERIFY(click("retry"));
    QVERIFY(m_driver->waitForPictures());
    QTRY_VERIFY(!list->isVisible());
    import(at("x.pto"));
    QCOMPARE(m_imported.size(), 1);
}

void tst_MainWindow::choosesTooMuch()
{
    QStringList paths = makeShooting(6);
    writeFile(at("notes.jpg"), "no picture");
    writeFile(at("zz.xml"), "<papywizard><preset/></papywizard>");
    paths += {at("notes.jpg"), at("shooting.xml"), at("zz.xml")};
    QVERIFY(click("Papywizard"));
    const QString chosen = QLatin1Char('"') + paths.join(QLatin1String("\" \"")) + QLatin1Char('"');
    WindowDriver::withDialogs([this] { QVERIFY(click("m_pbSelectImages")); },
        [&chosen](QWidget *dialog, int) { choose(dialog, chosen); });
    QTRY_COMPARE(configFile(), at("shooting.xml"));
    QTRY_VERIFY2(says("Leave them out"), qPrintable(advice()));
    QVERIFY(click("leaveOut"));
    QVERIFY(m_driver->waitForPictures());
    QCOMPARE(images(), paths.mid(0, 6));
    QTRY_VERIFY(!button("leaveOut"));
}

void tst_MainWindow::stopsReading()
{
    const QStringList paths = makeShooting(30);
    const Gate::Hold hold(m_gate);
    host().beforeReading = [this](const QString &) { m_gate.enter(); };

    QVERIFY(click("Papywizard"));
    QVERIFY(m_driver->drop({m_folder->path()}));
    QVERIFY(m_gate.awaitArrival());
    m_gate.pass(21);
    const auto *progress = m_window->findChild<QProgressBar *>(QStringLiteral("progress"));
    QTRY_VERIFY(progress->value() >= 20);
    QVERIFY(progress->value() <= 21);
    QCOMPARE(progress->maximum(), 30);
    QCOMPARE(progress->text(), QStringLiteral("%1 of 30 pictures").arg(progress->value()));
    QVERIFY(progress->isVisible());

    // Stopping waits for the picture under way.
    connect(button("stop"), &QAbstractButton::pressed, this, [this] { m_gate.open(); });
    QVERIFY(click("stop"));
    QTRY_VERIFY(!progress->isVisible());
    QCOMPARE(images(), QStringList());
    QCOMPARE(configFile(), at("shooting.xml"));
    QVERIFY2(says("The head took 30 pictures"), qPrintable(advice()));

    QVERIFY(m_driver->drop(paths));
    QVERIFY(m_driver->waitForPictures());
}

void tst_MainWindow::asksForMissingPictures()
{
    QStringList paths = makePictures(7);
    writeFile(at("shooting.xml"), shootingXml(6, 1, 24));
    QVERIFY(click("VRDrive2"));
    QVERIFY2(says("Drop the head's file"), qPrintable(advice()));
    QVERIFY(m_driver->drop({at("shooting.xml")}));
    QTRY_VERIFY2(says("The head took 6 pictures."), qPrintable(advice()));
    QVERIFY(m_driver->drop(paths));
    QTRY_VERIFY2(says("6 pictures, but 7 are chosen. Too many: 1."), qPrintable(advice()));
    QVERIFY(m_driver->drop(paths.mid(0, 2) + paths.mid(3, 2)));
    QTRY_VERIFY2(says("6 pictures, but 4 are chosen. Missing: 2. The numbers skip 003.jpg."),
        qPrintable(advice()));
    QVERIFY(m_driver->drop(paths.mid(0, 6)));
    QVERIFY(m_driver->waitForPictures());
    QTRY_VERIFY2(says("All 6 pictures are read."), qPrintable(advice()));

    // A wrong file is told as such, a script is none of this head's business.
    writeFile(at("presets.xml"), "<papywizard><preset/></papywizard>");
    QVERIFY(m_driver->drop({at("presets.xml")}));
    QTRY_VERIFY2(says("list of presets"), qPrintable(advice()));
    writeFile(at("script.txt"), claussScript(6));
    QVERIFY(m_driver->drop({at("script.txt")}, m_driver->page()));
    QTRY_VERIFY2(says("“script.txt” is no file of this head"), qPrintable(advice()));
    writeFile(at("manual.pdf"), "%PDF-1.4\n");
    QVERIFY(m_driver->drop({at("manual.pdf")}));
    QTRY_VERIFY2(says("“manual.pdf” is neither a picture nor"), qPrintable(advice()));
    QCOMPARE(images().size(), 6);
    QVERIFY(m_driver->drop({at("shooting.xml"), at("manual.pdf")}));
    QTRY_VERIFY2(says("All 6 pictures are read."), qPrintable(advice()));
}

void tst_MainWindow::keepsInputs()
{
    const QStringList paths = makeShooting(6);
    QVERIFY(QFile::link(paths[0], at("link.pto")));
    begin("Papywizard");
    const QByteArray picture = fileContent(paths[0]);
    const QByteArray file = fileContent(at("shooting.xml"));

    const QStringList places{paths[0], at("shooting.xml"), at("link.pto"), at("good.pto")};
    int asked = 0;
    QStringList complaints;
    pressImport([&](QWidget *dialog, int) {
        if (auto *files = qobject_cast<QFileDialog *>(dialog)) {
            if (asked == 0)
                QCOMPARE(files->selectedFiles(), QStringList(at("shooting.pto")));
            choose(files, places.value(asked++));
        } else if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
            complaints += box->text();
        }
    });
    QCOMPARE(asked, 4);
    QCOMPARE(complaints.size(), 3);
    QVERIFY2(complaints[0].contains(QLatin1String("001.jpg")), qPrintable(complaints[0]));
    QCOMPARE(fileContent(paths[0]), picture);
    QCOMPARE(fileContent(at("shooting.xml")), file);
    QVERIFY(fileContent(at("good.pto")).startsWith("# hugin project file"));
}

void tst_MainWindow::changesOfMindCostNothing()
{
    const QStringList paths = makeShooting(9, "24", 3);
    begin("VRDrive2");
    for (int i = 0; i < 2; ++i) {
        pressImport([](QWidget *dialog, int) { static_cast<QDialog *>(dialog)->reject(); });
        QVERIFY(m_driver->page());
    }
    import(at("window.pto"));
    // The page handed over three imports in one; the project is of one.
    QCOMPARE(m_imported.last().groups.size(), 9);
    commandLine(quoted("VRDrive2"), QStringList{quoted("--config"), at("shooting.xml")} + paths);
    QCOMPARE(fileContent(at("window.pto")), fileContent(at("cli.pto")));
}

void tst_MainWindow::doubtsFocalLengths()
{
    makeShooting(36, "0");
    begin("Papywizard");

    QString warning;
    int count = pressImport([&warning](QWidget *dialog, int) {
        if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
            warning = box->text();
            box->defaultButton()->click();
        }
    });
    QCOMPARE(count, 1);
    QVERIFY2(
        warning.contains(QLatin1String("No lens has a focal length of 1 mm")), qPrintable(warning));
    QVERIFY(!QFile::exists(at("shooting.pto")));

    auto *focal = m_driver->page()->findChild<QDoubleSpinBox *>(QStringLiteral("m_spFocal"));
    focal->setValue(2000);
    count = pressImport([&](QWidget *dialog, int number) {
        if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
            warning = box->text();
            for (QAbstractButton *button : box->buttons()) {
                if (box->buttonRole(button) == QMessageBox::AcceptRole)
                    button->click();
            }
        } else if (number == 1) {
            static_cast<QDialog *>(dialog)->accept();
        }
    });
    QCOMPARE(count, 2);
    QVERIFY2(warning.contains(QLatin1String("No location is linked")), qPrintable(warning));
    QVERIFY(QFile::exists(at("shooting.pto")));
}

void tst_MainWindow::asksForFocalLengths_data()
{
    QTest::addColumn<QString>("head");
    QTest::newRow("Clauss") << QStringLiteral("Clauss");
    QTest::newRow("Gigapan") << QStringLiteral("Gigapan");
}

void tst_MainWindow::asksForFocalLengths()
{
    QFETCH(QString, head);
    const QStringList paths = makePictures(12, "0");
    QStringList arguments = words("--focal 35");
    if (head == QLatin1String("Clauss")) {
        writeFile(at("script.txt"), claussScript(12));
        arguments += QStringList{QStringLiteral("--config"), at("script.txt")};
    }
    begin(qPrintable(head));

    int count = pressImport([](QWidget *dialog, int) { static_cast<QDialog *>(dialog)->reject(); });
    QCOMPARE(count, 1);
    QVERIFY(m_driver->page());

    count = pressImport([this](QWidget *dialog, int) {
        if (auto *question = qobject_cast<QInputDialog *>(dialog)) {
            question->setDoubleValue(35);
            question->accept();
        } else {
            choose(dialog, at("window.pto"));
        }
    });
    QCOMPARE(count, 2);
    const ProjectRecord told = commandLine(head, arguments + paths);
    QVERIFY(!told.links.isEmpty());
    QCOMPARE(fileContent(at("window.pto")), fileContent(at("cli.pto")));
    const auto *map = m_window->findChild<MapView *>()->map();
    int links = 0;
    for (const MapLinks &kind : map->layout().links)
        links += kind.count;
    QCOMPARE(links, told.links.size());
}

void tst_MainWindow::takesFullAngles()
{
    const QStringList paths = makePictures(12);
    writeFile(at("whole.txt"), claussScript(12));
    writeFile(at("script.txt"), claussScript(12, 0.755));
    const QStringList arguments = QStringList{quoted("--config"), at("script.txt")} + paths;
    // The second import begins with whole degrees again.
    for (const bool full : {true, false}) {
        QVERIFY(click("Clauss"));
        QTest::qWait(0); // The last import's is deleted.
        const auto *choice = m_window->findChild<QCheckBox *>(QStringLiteral("fullAngles"));
        QVERIFY(m_driver->drop({at("whole.txt")}));
        QTest::qWait(0);
        QVERIFY(!choice->isVisible());
        QVERIFY(m_driver->drop(paths + QStringList(at("script.txt"))));
        QVERIFY(m_driver->waitForPictures());
        QTRY_VERIFY(choice->isVisible());
        QVERIFY2(choice->toolTip().contains(QLatin1String("0.755")), qPrintable(choice->toolTip()));
        if (full)
            QVERIFY(click("fullAngles"));
        QCOMPARE(choice->isChecked(), full);
        QVERIFY(m_driver->waitForPictures());
        import(at("window.pto"));
        QCOMPARE(dump(m_imported.last()),
            dump(commandLine(quoted("Clauss"), arguments + words(full ? "--full-angles" : ""))));
        QVERIFY(click("another"));
    }
}

void tst_MainWindow::leavesImports()
{
    makeShooting(6);
    writeFile(at("notes.txt"), "nothing");
    const auto leave = [this](QMessageBox::StandardButton answer) {
        return WindowDriver::withDialogs(
            [this] { QTest::keyClick(m_driver->page(), Qt::Key_Escape); },
            [answer](QWidget *dialog, int) {
                if (auto *box = qobject_cast<QMessageBox *>(dialog))
                    box->button(answer)->click();
            });
    };
    QVERIFY(click("Papywizard"));
    QPointer<QWizardPage> page = m_driver->page();
    QCOMPARE(leave(QMessageBox::NoButton), 0);
    QVERIFY(button("Clauss"));

    QVERIFY(click("Papywizard"));
    QCOMPARE(m_driver->page(), page.data());
    // A folder may be dropped on the page itself too.
    QVERIFY(m_driver->drop({m_folder->path()}, page));
    QVERIFY(m_driver->waitForPictures());
    QCOMPARE(images().size(), 6);
    QCOMPARE(leave(QMessageBox::No), 1);
    QCOMPARE(m_driver->page(), page.data());
    QCOMPARE(leave(QMessageBox::Yes), 1);
    QTRY_VERIFY(page && !page->parent());
    QCOMPARE(page->property("images").toStringList(), QStringList());

    // The window may go with an import under way; the page is the plug-in's.
    QVERIFY(click("Papywizard"));
    QVERIFY(m_driver->drop({m_folder->path()}));
    m_driver.reset();
    m_window.reset();
    QVERIFY(page && !page->parent());
    m_module.reset();
    QVERIFY(!page);
}

void tst_MainWindow::worksByKeyboard()
{
    const QStringList paths = makeShooting(6);
    QVERIFY(m_driver->drop({m_folder->path()}));
    QWidget *focused = m_window->focusWidget();
    QCOMPARE(focused->objectName(), QStringLiteral("Papywizard"));
    QTest::keyClick(focused, Qt::Key_Return);
    QVERIFY(m_driver->waitForPictures());
    WindowDriver::withDialogs([this] { QTest::keyClick(m_driver->page(), Qt::Key_Return); },
        [](QWidget *dialog, int) { QTest::keyClick(dialog, Qt::Key_Return); });
    QVERIFY(QFile::exists(at("shooting.pto")));
    auto *another = button("another");
    QVERIFY(another);
    another->setFocus();
    QTest::keyClick(another, Qt::Key_Return);
    QCOMPARE(m_window->focusWidget()->objectName(), QStringLiteral("Papywizard"));
}

void tst_MainWindow::opensWhatItWrote()
{
    makeShooting(6);
    begin("Papywizard");
    import(at("a project.pto"));

    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "takeUrl");
    QVERIFY(click("folder"));
    QCOMPARE(m_urls, QList<QUrl>{QUrl::fromLocalFile(m_folder->path())});

    // Where there is a Hugin it is started, else whatever the desktop has for projects.
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", m_folder->path().toUtf8());
    QVERIFY(click("open"));
    QCOMPARE(m_urls.last(), QUrl::fromLocalFile(at("a project.pto")));
    writeFile(at("hugin"),
        "#!/bin/sh\necho \"$@\" >\"${0%/*}/opened.part\"; /bin/mv \"${0%/*}/opened.part\" "
        "\"${0%/*}/opened\"\n");
    QVERIFY(QFile::setPermissions(at("hugin"), QFile::ReadOwner | QFile::ExeOwner));
    QVERIFY(click("open"));
    QTRY_VERIFY(QFile::exists(at("opened")));
    QCOMPARE(fileContent(at("opened")), at("a project.pto").toUtf8() + '\n');
    QCOMPARE(m_urls.size(), 2);
    qputenv("PATH", path);
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
}

QByteArray tst_MainWindow::importRow()
{
    const Run made = run(MAKESHOOTING,
        words("--rows 1 --columns 3 --size 450x300 --focal 28 --head-error 1 --output")
            << at("shooting"));
    if (made.code != 0 || !m_driver->drop({at("shooting")}) || !click("Papywizard")
        || !m_driver->waitForPictures()) {
        qWarning("%s", made.failure().constData());
        return {};
    }
    import(at("shooting/x.pto"));
    return fileContent(at("shooting/x.pto"));
}

QString tst_MainWindow::reportWhenDone()
{
    const auto isDone = [this] {
        const QAbstractButton *align = button("align");
        return align && align->isEnabled();
    };
    return WindowDriver::waitFor(isDone)
        ? m_window->findChild<QLabel *>(QStringLiteral("report"))->text()
        : QStringLiteral("not done in time");
}

void tst_MainWindow::cancelsWhatItFinishes()
{
    // Before it has begun: nothing is written, and nothing else is to be had meanwhile.
    const QByteArray imported = importRow();
    QVERIFY(click("align"));
    QVERIFY(!button("another")->isEnabled());
    QVERIFY(!button("panorama")->isEnabled());
    QVERIFY(!m_driver->drop({at("shooting")}));
    QVERIFY(click("cancelTask"));
    QString report = reportWhenDone();
    QVERIFY2(report.startsWith(QLatin1String("Cancelled")), qPrintable(report));
    QCOMPARE(fileContent(at("shooting/x.pto")), imported);

    const QStringList untouched = QDir(at("shooting")).entryList();
    WindowDriver::withDialogs([this] { QVERIFY(click("panorama")); },
        [this](QWidget *dialog, int) { choose(dialog, at("shooting/pano.jpg")); });
    QVERIFY(click("cancelTask"));
    report = reportWhenDone();
    QVERIFY2(report.startsWith(QLatin1String("Cancelled")), qPrintable(report));
    QCOMPARE(QDir(at("shooting")).entryList(), untouched);
}

void tst_MainWindow::alignsWhatItImported()
{
    const QByteArray imported = importRow();
    QVERIFY(click("align"));
    QString report = reportWhenDone();
    QVERIFY2(report.startsWith(QLatin1String("3 pictures, 3 joined")), qPrintable(report));
    const QByteArray aligned = fileContent(at("shooting/x.pto"));
    QVERIFY(!imported.contains("\nc n0") && aligned.contains("\nc n0"));

    // A look at what would come of it leaves nothing behind.
    const QStringList files = QDir(at("shooting")).entryList(QDir::Files);
    QVERIFY(click("preview"));
    report = reportWhenDone();
    auto *shown = m_window->findChild<QWidget *>(QStringLiteral("panoramaPicture"));
    QVERIFY2(shown->isVisible(), qPrintable(report));
    const QImage plain = shown->grab().toImage();
    for (const char *lines : {"outlines", "seams"}) {
        QVERIFY(click(lines));
        QVERIFY(shown->grab().toImage() != plain);
        QVERIFY(click(lines));
        QCOMPARE(shown->grab().toImage(), plain);
    }
    QCOMPARE(QDir(at("shooting")).entryList(QDir::Files), files);
    QCOMPARE(fileContent(at("shooting/x.pto")), aligned);
}

void tst_MainWindow::makesPanoramas()
{
    const QByteArray imported = importRow();
    // Never over a picture of the shooting.
    const QStringList places{at("shooting/IMG_0001.jpg"), at("shooting/pano.jpg")};
    const QByteArray picture = fileContent(places[0]);
    int asked = 0;
    int complaints = 0;
    WindowDriver::withDialogs([this] { QVERIFY(click("panorama")); },
        [&](QWidget *dialog, int) {
            const auto *files = qobject_cast<QFileDialog *>(dialog);
            if (!files) {
                ++complaints;
                return;
            }
            // Offered is a place where it is no picture of a later import.
            QCOMPARE(files->selectedFiles(), QStringList(at("shooting.jpg")));
            choose(dialog, places.value(asked++));
        });
    QCOMPARE(asked, 2);
    QCOMPARE(complaints, 1);
    const QString report = reportWhenDone();
    const QImage panorama(at("shooting/pano.jpg"));
    QVERIFY2(panorama.width() > 600, qPrintable(report));
    QVERIFY2(report.contains(QStringLiteral("pano.jpg: %1 × %2 pixels")
                                 .arg(QLocale().toString(panorama.width()),
                                     QLocale().toString(panorama.height()))),
        qPrintable(report));
    QVERIFY(m_window->findChild<QWidget *>(QStringLiteral("panoramaPicture"))->isVisible());
    // It was aligned for the panorama alone.
    QCOMPARE(fileContent(at("shooting/x.pto")), imported);
    QCOMPARE(fileContent(places[0]), picture);
    QVERIFY(click("another"));
}

void tst_MainWindow::keepsProjectsThatWereChanged()
{
    makeShooting(3);
    QVERIFY(m_driver->drop({m_folder->path()}));
    QVERIFY(click("Papywizard"));
    QVERIFY(m_driver->waitForPictures());
    import(at("x.pto"));
    writeFile(at("x.pto"), "gone on with");
    QString question;
    QCOMPARE(WindowDriver::withDialogs([this] { click("align"); },
                 [&question](QWidget *dialog, int) {
                     question = static_cast<QMessageBox *>(dialog)->text();
                     static_cast<QMessageBox *>(dialog)->defaultButton()->click();
                 }),
        1);
    QVERIFY2(question.contains(QStringLiteral("“x.pto” has been changed")), qPrintable(question));
    QVERIFY(button("align")->isEnabled());
    QCOMPARE(fileContent(at("x.pto")), QByteArray("gone on with"));

    // Closing the window ends what is under way.
    QVERIFY(QFile::remove(at("x.pto")));
    QVERIFY(click("align"));
    close();
    open();
}

void tst_MainWindow::remembers()
{
    QVERIFY(click("Gigapan"));
    m_window->resize(777, 701);
    close();
    open();
    QCOMPARE(m_window->size(), QSize(777, 701));
    QCOMPARE(m_window->focusWidget()->objectName(), QStringLiteral("Gigapan"));

    close();
    QSettings().setValue(QStringLiteral("Window/Geometry"), QByteArray("\1\2garbage"));
    QSettings().setValue(QStringLiteral("Window/LastImport"), QStringLiteral("no such head"));
    open();
    QVERIFY(m_window->width() > 400);
    QCOMPARE(m_window->focusWidget()->objectName(), QStringLiteral("Clauss"));
}

void tst_MainWindow::saysWhatModuleIsMissing_data()
{
    QTest::addColumn<QString>("module");
    QTest::addColumn<bool>("exists");
    QTest::newRow("gone") << QStringLiteral("gone.so") << false;
    QTest::newRow("no library") << QStringLiteral("text.so") << true;
}

void tst_MainWindow::saysWhatModuleIsMissing()
{
    QFETCH(QString, module);
    QFETCH(bool, exists);
    close();
    const QString path = m_folder->filePath(module);
    if (exists)
        writeFile(path, "no library");
    const HeadModule broken(path);
    QVERIFY(broken.imports().empty());
    QVERIFY2(broken.problem().contains(path), qPrintable(broken.problem()));
    // What the loader says stands behind the path.
    QVERIFY2(broken.problem().size() > broken.problem().lastIndexOf(module) + module.size() + 10,
        qPrintable(broken.problem()));
    MainWindow window(host(), broken);
    window.show();
    bool isShown = false;
    for (const QLabel *label : window.findChildren<QLabel *>())
        isShown = isShown || (label->isVisible() && label->text() == broken.problem());
    QVERIFY(isShown);
    WindowDriver(window).drop(makePictures(2));
}

int main(int argc, char **argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("ZPanoHead tests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_MainWindow"));
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    DrivenHost host(argc, argv);
    tst_MainWindow test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_MainWindow.moc"
