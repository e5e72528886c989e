// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the pages of all heads do alike, driven through their windows.

#include "clauss/UIWPClauss.h"
#include "gigapan/UIWPGigapan.h"
#include "papywizard/UIWPMerlin.h"
#include "tests/support/FakeHost.h"
#include "tests/support/Files.h"
#include "tests/support/PageDriver.h"
#include "tests/support/RecordDump.h"
#include "vrdrive2/UIWPVRDrive2.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSlider>
#include <QTemporaryDir>
#include <thread>

namespace {

struct Head {
    QWizardPage *(*make)();
    /// Empty: the head has no file.
    const char *fileName;
    /// Content of a file of \a shots shots.
    QByteArray (*file)(int shots);
    const char *dialogFilters;
    bool sortsPictures;
    const char *link;
};

template <class Page> QWizardPage *make()
{
    return new Page;
}

int pitch(int shot)
{
    return shot * 37 % 170 - 85;
}

QByteArray xmlFile(int shots)
{
    QByteArray picts;
    for (int i = 0; i < shots; ++i)
        picts += "<pict><position yaw='" + QByteArray::number(30 * (i % 12)) + "' pitch='"
            + QByteArray::number(pitch(i)) + "'/></pict>";
    return "<p><shoot>" + picts + "</shoot></p>";
}

QByteArray scriptFile(int shots)
{
    QByteArray script;
    for (int i = 0; i < shots; ++i)
        script += "op_h-angle=" + QByteArray::number(30 * (i % 12))
            + "\nop_v-angle=" + QByteArray::number(pitch(i)) + "\nop_shoot\n";
    return script;
}

constexpr auto kXmlFilters = "All Files (*.*);;XML files (*.xml)";
const Head kHeads[] = {
    {make<UIWPClauss>, "shooting.TXT", scriptFile, "All Files (*.*)", false,
        "https://www.dr-clauss.de/"},
    {make<UIWPGigapan>, "", nullptr, "", false, "https://www.gigapan.com/"},
    {make<UIWPMerlin>, "shooting.XML", xmlFile, kXmlFilters, true, "https://www.papywizard.org/"},
    {make<UIWPVRDrive2>, "shooting.XML", xmlFile, kXmlFilters, true, "https://www.roundshot.com/"},
};

FakeHost &host()
{
    return FakeHost::instance();
}

QString quoted(const QStringList &files)
{
    QString names;
    for (const QString &file : files)
        names += QStringLiteral("\"%1\"; ").arg(QFileInfo(file).fileName());
    return names;
}

/// Everything that the page's widgets and properties say.
QStringList stateOf(const PageDriver &driver)
{
    QStringList state;
    static const QRegularExpression kNames(QStringLiteral("^(m_|label)"));
    const auto widgets = driver.page().findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        for (const char *property : {"text", "value", "checked", "currentText", "enabled"}) {
            // What Qt adds to scroll areas and tabs is as their size has it.
            if (kNames.match(widget->objectName()).hasMatch()
                && widget->property(property).isValid())
                state += QStringLiteral("%1.%2: %3")
                             .arg(widget->objectName(), QLatin1String(property),
                                 widget->property(property).toString());
        }
    }
    for (const char *property : {"configFile", "imagesRead"})
        state += driver.page().property(property).toString();
    state += driver.page().property("images").toStringList();
    return state;
}

} // namespace

/// Run once for each head.
class tst_ImportPages : public QObject {
    Q_OBJECT
public:
    explicit tst_ImportPages(const Head &head)
        : m_head(head)
    {
    }

private slots:
    void initTestCase() { qInfo("%s", m_head.link); }

    void init()
    {
        host().reset();
        m_folder = std::make_unique<QTemporaryDir>();
    }

    void freshPage()
    {
        PageDriver driver(m_head.make());
        QCOMPARE(driver.page().property("configFile"), QVariant(QString()));
        QCOMPARE(driver.page().property("images"), QVariant(QStringList()));
        QCOMPARE(driver.page().property("imagesRead"), QVariant(0));
        QVERIFY(!driver.isComplete());
        QVERIFY(!driver.page().pixmap(QWizard::LogoPixmap).isNull());
        QCOMPARE(driver.text("m_leImage"), QString());
        const auto widgets = driver.page().findChildren<QWidget *>();
        for (const QWidget *widget : widgets)
            QVERIFY2(!widget->acceptDrops(), qPrintable(widget->objectName()));
    }

    void choosesPictures()
    {
        host().imagesDirectory = m_folder->path();
        const QStringList files = makePictures(m_folder->path(), 3);
        const QStringList chosen{files[2], files[0], files[1]};
        const QStringList kept = m_head.sortsPictures ? files : chosen;

        PageDriver driver(m_head.make());
        const auto seen = driver.choose("m_pbSelectImages", chosen);
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen[0].title, QStringLiteral("Select images"));
        QCOMPARE(seen[0].folder, m_folder->path());
        QCOMPARE(seen[0].filters, QStringList(QStringLiteral("All Files (*.*)")));
        QCOMPARE(seen[0].selectedFilter, QStringLiteral("All Files (*.*)"));
        QVERIFY(seen[0].severalFiles);

        QCOMPARE(driver.page().property("images").toStringList(), kept);
        QCOMPARE(driver.text("m_leImage"), quoted(kept));
        QCOMPARE(host().chosenPaths, QStringList(kept[0]));
        QVERIFY(driver.awaitRead(3));
        QCOMPARE(host().asked(), kept);

        // The user went elsewhere meanwhile, and changes his mind.
        QTemporaryDir elsewhere;
        host().imagesDirectory = elsewhere.path();
        const QStringList before = stateOf(driver);
        const auto again = driver.choose("m_pbSelectImages", {});
        QCOMPARE(again.size(), 1);
        QCOMPARE(again[0].folder, m_head.sortsPictures ? m_folder->path() : elsewhere.path());
        QCOMPARE(stateOf(driver), before);
        QCOMPARE(host().chosenPaths.size(), 1);
        QCOMPARE(host().asked().size(), 3);
    }

    void choosesFileAndPictures()
    {
        if (!hasFile())
            return;
        const QStringList files = makePictures(m_folder->path(), 2);
        const QString last = makeHeadFile(2);
        const QString first = writeFile(
            path(QStringLiteral("first.") + QFileInfo(last).suffix().toLower()), m_head.file(9));
        const QStringList kept = m_head.sortsPictures ? files : QStringList{files[1], files[0]};
        host().imagesDirectory = m_folder->path();

        PageDriver driver(m_head.make());
        const auto seen = driver.choose("m_pbSelectConfigFile", {files[1], first, files[0], last});
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen[0].title, QStringLiteral("Select the preset file and/or images"));
        QCOMPARE(seen[0].filters.join(QLatin1String(";;")), QLatin1String(m_head.dialogFilters));
        QCOMPARE(seen[0].selectedFilter, QStringLiteral("All Files (*.*)"));
        QVERIFY(seen[0].severalFiles);
        if (m_head.sortsPictures)
            QCOMPARE(seen[0].folder, m_folder->path());

        QCOMPARE(host().chosenPaths, QStringList(last));
        QCOMPARE(driver.text("m_leConfigFile"), last);
        QCOMPARE(driver.page().property("configFile").toString(), last);
        QCOMPARE(driver.page().property("images").toStringList(), kept);
        QCOMPARE(driver.text("m_lbPapyLog"), QStringLiteral("2"));
        QCOMPARE(driver.text("m_lbImageLog"), QStringLiteral("2"));
        QVERIFY(driver.awaitRead(2));
        QVERIFY(driver.isComplete());

        host().imagesDirectory.clear();
        const QStringList before = stateOf(driver);
        const auto again = driver.choose("m_pbSelectConfigFile", {});
        QCOMPARE(again.size(), 1);
        QCOMPARE(again[0].folder, m_folder->path());
        QCOMPARE(stateOf(driver), before);
        QCOMPARE(host().chosenPaths.size(), 1);
    }

    void completesPath()
    {
        if (!hasFile())
            return;
        const QString file = makeHeadFile(2);
        PageDriver driver(m_head.make());
        driver.complete("m_leConfigFile", path(QStringLiteral("shoo")));
        QCOMPARE(driver.text("m_leConfigFile"), file);
        QCOMPARE(driver.text("m_lbPapyLog"), QStringLiteral("2"));
        QCOMPARE(driver.page().property("configFile").toString(), file);
    }

    // Choosing the head's file afterwards completes the page.
    void picturesAloneInFirstDialog()
    {
        if (!hasFile())
            return;
        const QStringList files = makePictures(m_folder->path(), 2);
        PageDriver driver(m_head.make());
        QCOMPARE(driver.choose("m_pbSelectConfigFile", files).size(), 1);
        QCOMPARE(host().chosenPaths, QStringList());
        QCOMPARE(driver.text("m_lbPapyLog"), QStringLiteral("N/A"));
        QCOMPARE(driver.page().property("images").toStringList(), files);
        QVERIFY(driver.awaitRead(2));
        QVERIFY(!driver.isComplete());

        driver.choose("m_pbSelectConfigFile", {makeHeadFile(2)});
        QCOMPARE(driver.page().property("images").toStringList(), files);
        QVERIFY(driver.isComplete());
        driver.choose("m_pbSelectConfigFile", {makeHeadFile(3)});
        QVERIFY(!driver.isComplete());
    }

    void controlKeyOpensFolder_data()
    {
        QTest::addColumn<QString>("folder");
        for (const char *folder : {"plain", "a b", "No #1", "50%20?", "\303\251t\303\251"})
            QTest::newRow(folder) << QString::fromUtf8(folder);
    }
    void controlKeyOpensFolder()
    {
        QFETCH(QString, folder);
        QVERIFY(QDir(m_folder->path()).mkdir(folder));
        host().imagesDirectory = path(folder);
        PageDriver driver(m_head.make());
        UrlCatcher desktop;

        QCOMPARE(
            answering([&] { driver.click("m_pbSelectImages", Qt::ControlModifier); }).size(), 0);
        QCOMPARE(desktop.urls.size(), 1);
        // The literal three slashes before an absolute path's own.
        QCOMPARE(desktop.urls[0].toLocalFile(), QLatin1Char('/') + path(folder));
        QCOMPARE(desktop.urls[0].scheme(), QStringLiteral("file"));
        if (folder == QLatin1String("plain"))
            QCOMPARE(desktop.urls[0].toString(), QLatin1String("file:///") + path(folder));

        if (!hasFile())
            return;
        driver.drop({writeFile(
            path(folder + QLatin1Char('/') + QLatin1String(m_head.fileName)), m_head.file(1))});
        host().imagesDirectory.clear();
        QCOMPARE(
            answering([&] { driver.click("m_pbSelectConfigFile", Qt::ControlModifier); }).size(),
            0);
        QCOMPARE(desktop.urls.size(), 2);
        QCOMPARE(desktop.urls[1], desktop.urls[0]);
    }

    void takesDrops()
    {
        const QStringList pictures = makePictures(m_folder->path(), 3);
        const QStringList shuffled{pictures[1], pictures[2], pictures[0]};
        const QStringList kept = m_head.sortsPictures ? pictures : shuffled;
        PageDriver driver(m_head.make());
        QCOMPARE(driver.drop({m_folder->path()}), Qt::IgnoreAction);
        QCOMPARE(driver.drop({}), Qt::IgnoreAction);

        const QStringList headFile = hasFile() ? QStringList{makeHeadFile(3)} : QStringList();
        // Never a move, after which the source would remove the files.
        QCOMPARE(driver.drop(shuffled + headFile + QStringList(m_folder->path())), Qt::CopyAction);
        QCOMPARE(driver.page().property("images").toStringList(), kept);
        QCOMPARE(driver.page().property("configFile").toString(), headFile.value(0));
        QCOMPARE(host().chosenPaths, hasFile() ? headFile : QStringList(shuffled[0]));
        QVERIFY(driver.awaitRead(3));
        QVERIFY(driver.isComplete());
    }

    // The picture under way belongs to the first choice and must count for nothing.
    void choosesAgainInMidRun()
    {
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("old")));
        const QStringList old = makePictures(path(QStringLiteral("old")), 12);
        QStringList files = makePictures(m_folder->path(), 12);
        const QStringList pictures = files;
        if (hasFile())
            files.append(makeHeadFile(12));
        PageDriver driver(m_head.make());
        {
            const Gate::Hold hold(host().gate);
            QCOMPARE(driver.drop(old), Qt::CopyAction);
            QVERIFY(host().gate.awaitArrival());
            QCOMPARE(driver.drop(files), Qt::CopyAction);
            QVERIFY(!driver.isComplete());
        }

        QVERIFY(driver.awaitRead(12));
        QVERIFY(driver.isComplete());
        QStringList expected = pictures;
        if (m_head.sortsPictures)
            expected.sort();
        QCOMPARE(host().asked(), QStringList(old[0]) + expected);
        driver.clickWizard(QWizard::FinishButton);
        QCOMPARE(host().imported.size(), 1);
        ProjectRecord record;
        for (const QString &path : qAsConst(expected))
            record.groups.append({path});
        QCOMPARE(host().imported[0].groups, record.groups);
    }

    void unreadablePictures_data()
    {
        QTest::addColumn<int>("unreadable");
        QTest::addColumn<int>("read");
        // Without the last one nobody announces the four results after the tenth.
        QTest::newRow("the last") << 14 << 14;
        QTest::newRow("one within") << 4 << 14;
        QTest::newRow("all") << -1 << 0;
    }
    void unreadablePictures()
    {
        QFETCH(int, unreadable);
        QFETCH(int, read);
        QStringList files = makePictures(m_folder->path(), 15);
        if (m_head.sortsPictures)
            files.sort();
        for (int i = 0; i < files.size(); ++i) {
            if (unreadable < 0 || i == unreadable)
                host().setUnreadable(files[i]);
        }
        PageDriver driver(m_head.make());
        if (hasFile())
            files.append(makeHeadFile(15));
        {
            const Gate::Hold hold(host().gate);
            driver.drop(files);
            // The tenth result is announced and taken before the others come.
            host().gate.pass(10);
            if (unreadable >= 10)
                QVERIFY(driver.awaitRead(10));
        }
        QTRY_COMPARE(host().asked().size(), 15);
        QVERIFY(driver.awaitRead(read));
        QVERIFY(!driver.isComplete());
    }

    void diesWhileReading()
    {
        auto driver = std::make_unique<PageDriver>(m_head.make());
        const Gate::Hold hold(host().gate);
        driver->drop(picturePaths(QStringLiteral("/p"), 50));
        QVERIFY(host().gate.awaitArrival());
        std::thread opener([] { host().gate.open(); });
        driver.reset();
        opener.join();
        // Whatever the reader still had to say is delivered now.
        QCoreApplication::processEvents();
    }

    void startsAfresh_data()
    {
        QTest::addColumn<QString>("by");
        for (const char *by : {"nothing", "button", "slot", "back"})
            QTest::newRow(by) << QString::fromLatin1(by);
    }
    void startsAfresh()
    {
        QFETCH(QString, by);
        PageDriver driver(m_head.make());
        driver.widget<QSlider>("m_hSlider")->setValue(60);
        driver.click("m_noOptim");
        const QStringList before = stateOf(driver);

        complete(driver, 4);
        QVERIFY(driver.page().validatePage());
        const QString record = dump(host().imported.value(0));
        if (by == QLatin1String("button"))
            driver.click("m_pbReset");
        else if (by == QLatin1String("slot"))
            QVERIFY(driver.call("Reset"));
        else if (by == QLatin1String("back"))
            driver.clickWizard(QWizard::BackButton);
        if (by == QLatin1String("nothing")) {
            QVERIFY(driver.page().validatePage());
            QCOMPARE(host().imported[1].groups.size(), 2 * host().imported[0].groups.size());
            QCOMPARE(host().imported[1].links.size(), 2 * host().imported[0].links.size());
            return;
        }
        QVERIFY(!driver.isComplete());
        if (by == QLatin1String("back"))
            driver.clickWizard(QWizard::NextButton);
        QStringList different;
        const QStringList after = stateOf(driver);
        for (const QString &line : after) {
            // The focal length of the earlier pictures stays.
            if (!before.contains(line) && !line.startsWith(QLatin1String("m_spFocal.")))
                different.append(line);
        }
        QCOMPARE(different.join(QLatin1Char(',')), QString());

        complete(driver, 4);
        QVERIFY(driver.page().validatePage());
        QCOMPARE(dump(host().imported.value(1)), record);
    }

    void worksWithoutHost()
    {
        host().setAbsent(true);
        PageDriver driver(m_head.make());
        QStringList files = makePictures(m_folder->path(), 2);
        QCOMPARE(driver.choose("m_pbSelectImages", files).size(), 1);
        if (hasFile()) {
            files.append(makeHeadFile(2));
            QCOMPARE(driver.choose("m_pbSelectConfigFile", files).size(), 1);
        }
        QCOMPARE(driver.page().property("images").toStringList().size(), 2);
        QVERIFY(!driver.isComplete());
        QVERIFY(driver.page().validatePage());
        host().setAbsent(false);
        QCOMPARE(host().imported.size(), 0);
        QCOMPARE(host().chosenPaths, QStringList());
    }

    // A line edit cuts at 32,767 characters by itself.
    void namesOfManyPictures()
    {
        const QStringList files
            = picturePaths(QStringLiteral("/p/") + QString(100, QLatin1Char('n')), 5000);
        PageDriver driver(m_head.make());
        driver.drop(files);
        QStringList kept = files;
        if (m_head.sortsPictures)
            kept.sort();
        QCOMPARE(driver.text("m_leImage"), quoted(kept));
        QVERIFY(driver.awaitRead(5000));
    }

    void linkingChoicesExcludeEachOther()
    {
        PageDriver driver(m_head.make());
        if (!driver.page().findChild<QAbstractButton *>(QStringLiteral("m_rbLevelLinking1")))
            return;
        const auto choice = [&] {
            QString checked;
            for (const char *button : {"m_rbLevelLinking0", "m_rbLevelLinking1",
                     "m_rbStackLinking0", "m_rbStackLinking1"})
                checked += QString::number(driver.widget<QAbstractButton>(button)->isChecked());
            return checked;
        };
        QCOMPARE(choice(), QStringLiteral("1010"));
        driver.click("m_rbLevelLinking1");
        QCOMPARE(choice(), QStringLiteral("0101"));
        driver.click("m_rbStackLinking0");
        QCOMPARE(choice(), QStringLiteral("1010"));
        driver.click("m_rbStackLinking1");
        QCOMPARE(choice(), QStringLiteral("1001"));
        driver.click("m_rbLevelLinking1");
        driver.click("m_rbLevelLinking0");
        QCOMPARE(choice(), QStringLiteral("1001"));
    }

    void subtitleLinkOpens()
    {
        PageDriver driver(m_head.make());
        UrlCatcher desktop;
        const auto isSubTitle
            = [&](const QLabel *label) { return label->text() == driver.page().subTitle(); };
        const auto labels = driver.wizard().findChildren<QLabel *>();
        const auto label = std::find_if(labels.begin(), labels.end(), isSubTitle);
        QVERIFY(label != labels.end());
        QTRY_VERIFY((*label)->textInteractionFlags().testFlag(Qt::LinksAccessibleByMouse));
        // The link comes first in the label.
        QTest::mouseClick(*label, Qt::LeftButton, Qt::NoModifier,
            {(*label)->fontMetrics().averageCharWidth() * 2, (*label)->fontMetrics().height() / 2});
        QCOMPARE(desktop.urls, QList<QUrl>{QUrl(QLatin1String(m_head.link))});

        const QString other = QStringLiteral("https://example.org/");
        if (QMetaObject::invokeMethod(&driver.page(), "BrowserWeb", Q_ARG(QString, other)))
            QCOMPARE(desktop.urls.takeLast(), QUrl(other));

        // Coming back to the page must not open it twice.
        driver.clickWizard(QWizard::BackButton);
        driver.clickWizard(QWizard::NextButton);
        QCoreApplication::processEvents();
        emit(*label)->linkActivated(QLatin1String(m_head.link));
        QCOMPARE(desktop.urls.size(), 2);
    }

    // A wizard that is told hides and shows all of itself.
    void wizardIsSpared()
    {
        PageDriver driver(m_head.make());
        complete(driver, 4);
        QTest::qWait(0);
        struct : QObject { // clazy:exclude=missing-qobject-macro
            int hidden = 0;
            bool eventFilter(QObject * /*watched*/, QEvent *event) override
            {
                hidden += event->type() == QEvent::Hide;
                return false;
            }
        } counter;
        driver.page().installEventFilter(&counter);
        for (int i = 0; i < 3; ++i)
            emit driver.page().completeChanged();
        QCOMPARE(counter.hidden, 0);
        for (int i = 0; i < 2; ++i) {
            driver.call("Reset");
            QVERIFY(!driver.isComplete());
            complete(driver, 4);
        }
    }

    // Nearly everything would be linked with everything.
    void refusesTooManyLinks()
    {
        if (!hasFile())
            return;
        FakePicture picture;
        picture.focal = 1;
        host().setEveryPicture(picture);
        PageDriver driver(m_head.make());
        complete(driver, 8000);
        const QVector<SeenDialog> seen
            = answering([&] { driver.clickWizard(QWizard::FinishButton); });
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen[0].title, QStringLiteral("Warning"));
        // The number is an estimate.
        static const QRegularExpression kText(QStringLiteral(
            "^A focal length of 1 mm makes about 2\\d million links between the pictures, "
            "more than 20 million. Check the focal length.$"));
        QVERIFY2(kText.match(seen[0].text).hasMatch(), qPrintable(seen[0].text));
        QVERIFY(host().imported.isEmpty());
        QVERIFY(driver.wizard().isVisible());

        // Only the pages of the shooting file's heads let the user say better.
        auto *focal = driver.page().findChild<QDoubleSpinBox *>(QStringLiteral("m_spFocal"));
        if (!focal)
            return;
        focal->setValue(200);
        QVERIFY(answering([&] { driver.clickWizard(QWizard::FinishButton); }).isEmpty());
        QCOMPARE(host().imported.size(), 1);
        QVERIFY(!host().imported[0].links.isEmpty());
        QCOMPARE(host().imported[0].groups.size(), 8000);
    }

private:
    bool hasFile() const { return *m_head.fileName; }
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QString makeHeadFile(int shots) const;
    /// Chooses \a count pictures and whatever makes the page complete.
    void complete(const PageDriver &driver, int count) const;

    const Head m_head;
    std::unique_ptr<QTemporaryDir> m_folder;
};

QString tst_ImportPages::makeHeadFile(int shots) const
{
    return writeFile(path(QLatin1String(m_head.fileName)), m_head.file(shots));
}

void tst_ImportPages::complete(const PageDriver &driver, int count) const
{
    QStringList files = makePictures(m_folder->path(), count);
    if (hasFile())
        files.append(makeHeadFile(count));
    QCOMPARE(driver.drop(files), Qt::CopyAction);
    QVERIFY(driver.awaitRead(count));
    QVERIFY(driver.isComplete());
}

int main(int argc, char **argv)
{
    FakeApplication<QApplication> application(argc, argv);
    int failed = 0;
    for (const Head &head : kHeads) {
        tst_ImportPages test(head);
        failed += QTest::qExec(&test, argc, argv);
    }
    return failed;
}
#include "tst_ImportPages.moc"
