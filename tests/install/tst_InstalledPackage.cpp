// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/RecordJson.h"
#include "apps/panohost/Module.h"
#include "tests/support/Files.h"
#include "tests/support/Program.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTranslator>

/// What somebody has who got the installed files and nothing else of the tree.
class tst_InstalledPackage : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        const QString staged = at("staged");
        QCOMPARE(run(CMAKE, {"--install", BUILD, "--prefix", staged}).failure(), QByteArray());
        // Packages are built in one place and used in another.
        QVERIFY(QDir().rename(staged, m_prefix));

        const Texts configure{"-S", installed("/" DOCDIR "/examples/minimal-host"), "-B",
            at("example"), "-G", GENERATOR, QStringLiteral("-DCMAKE_PREFIX_PATH=") + m_prefix,
            "-DCMAKE_CXX_COMPILER=" CXX_COMPILER, "-DCMAKE_CXX_FLAGS=" CXX_FLAGS};
        QCOMPARE(run(CMAKE, configure).failure(), QByteArray());
        QCOMPARE(run(CMAKE, {"--build", at("example")}).failure(), QByteArray());

        makeShooting(at("row"), "--rows 1 --columns 3");
        writeFile(at("row/noise.jpg"), "\xff\xd8 noise");
        writeFile(at("row/broken.xml"), "<papywizard>");
        QByteArray stacks = fileContent(at("row/shooting.xml"));
        stacks.replace("nbPicts=\"1\"", "nbPicts=\"2\"");
        writeFile(at("row/stacks.xml"), stacks);
    }

    void holdsWhatBelongsThere()
    {
        QString found;
        const QStringList places = modulePlaces(installed("/" BINDIR));
        for (const QString &place : places) {
            if (found.isEmpty() && QFile::exists(place))
                found = place;
        }
        QCOMPARE(found, module());
        for (const char *language : {"de", "fr"}) {
            QTranslator translator;
            QVERIFY(translator.load(QStringLiteral("ZPanoHead_%1").arg(QLatin1String(language)),
                QFileInfo(found).absolutePath()));
            QVERIFY(!translator.isEmpty());
        }

        const QStringList headers{QStringLiteral("*.h")};
        QCOMPARE(QDir(installed("/" INCLUDEDIR "/zpanohead")).entryList(headers),
            QDir(QStringLiteral(SOURCES "/host")).entryList(headers));
        for (const char *document : {"LICENSE", "hosting.md"})
            QVERIFY(!fileContent(installed("/" DOCDIR "/") + QLatin1String(document)).isEmpty());
        const QByteArray entry = fileContent(installed("/share/applications/panohost.desktop"));
        QVERIFY2(entry.contains("\nExec=panohost %F\nIcon=panohost\n"), entry.constData());
        QVERIFY(
            !fileContent(installed("/share/icons/hicolor/scalable/apps/panohost.svg")).isEmpty());
        // For users there is one program; the tools of developers are for the asking.
        QCOMPARE(QDir(installed("/" BINDIR)).entryList(QDir::Files), {QStringLiteral("panohost")});
    }

    void exampleImports_data()
    {
        const Table<QString, int> row("shooting", "locations");
        row("one row", "--rows 1 --columns 3", 3);
        row("full turn", "--rows 2 --columns 6 --full-turn --focal 14", 12);
        row("stacks", "--rows 2 --columns 3 --brackets 3", 6);
    }
    void exampleImports()
    {
        QFETCH(QString, shooting);
        QFETCH(int, locations);
        const QTemporaryDir folder(at(QStringLiteral("shooting of %1 XXXXXX").arg(locations)));
        makeShooting(folder.path(), shooting);
        const QStringList pictures
            = QDir(folder.path()).entryList({QStringLiteral("*.jpg")}, QDir::Files);

        const QStringList import
            = words("import papywizard --config shooting.xml --output a.pto --record a.json")
            + pictures;
        QCOMPARE(run(installed("/" BINDIR "/panohost"), import, {folder.path()}).failure(),
            QByteArray());
        QString error;
        const auto record
            = recordFromJson(fileContent(folder.filePath(QStringLiteral("a.json"))), &error);
        QVERIFY2(record, qPrintable(error));
        QVERIFY(!record->links.isEmpty());

        const Run example = runExample(
            QStringList{module(), QStringLiteral("shooting.xml")} + pictures, folder.path());
        QCOMPARE(QString::fromUtf8(example.out),
            QStringLiteral("locations %1\nlinks %2\n").arg(locations).arg(record->links.size()));
        QCOMPARE(example.code, 0);
    }

    void exampleRefuses_data()
    {
        const Table<QString, QByteArray> row("arguments", "reason");
        row("nothing to do", "", "usage: ");
        row("no module", "none.so shooting.xml IMG_0001.jpg", "none.so: no such module");
        row("no file", "MODULE none.xml IMG_0001.jpg IMG_0002.jpg IMG_0003.jpg", "none.xml: ");
        row("broken file", "MODULE broken.xml IMG_0001.jpg IMG_0002.jpg IMG_0003.jpg",
            "broken.xml: ");
        row("picture for a file", "MODULE IMG_0001.jpg IMG_0002.jpg IMG_0003.jpg",
            "IMG_0001.jpg: ");
        row("folders alone", "MODULE . ..", ".: ");
        row("too few pictures", "MODULE shooting.xml IMG_0001.jpg IMG_0002.jpg", "shooting.xml: ");
        row("one picture twice", "MODULE shooting.xml IMG_0001.jpg IMG_0002.jpg IMG_0002.jpg",
            "shooting.xml: ");
        row("last picture unreadable", "MODULE shooting.xml IMG_0001.jpg IMG_0002.jpg noise.jpg",
            "row/noise.jpg: ");
        row("all pictures unreadable", "MODULE shooting.xml noise.jpg none.jpg", "row/none.jpg: ");
        row("no whole stacks", "MODULE stacks.xml IMG_0001.jpg IMG_0002.jpg IMG_0003.jpg",
            "bracket");
    }
    void exampleRefuses()
    {
        QFETCH(QString, arguments);
        QFETCH(QByteArray, reason);
        QStringList given = words(arguments);
        given.replaceInStrings(QStringLiteral("MODULE"), module());
        const Run example = runExample(given, at("row"));
        QCOMPARE(example.code, 1);
        QCOMPARE(example.out, QByteArray());
        QVERIFY2(example.err.contains("minimal-host: "), example.err);
        QVERIFY2(example.err.contains(reason), example.err);
    }

private:
    QString at(const Text &path) const { return m_folder.filePath(path); }
    QString installed(const char *path) const { return m_prefix + QLatin1String(path); }
    QString module() const { return installed("/" LIBDIR "/zpanohead/libZPanoHead.so"); }
    static void makeShooting(const QString &folder, const Text &arguments)
    {
        const QStringList all = words("--size 96x64 --output") << folder << words(arguments);
        QCOMPARE(run(MAKESHOOTING, all).failure(), QByteArray());
    }

    Run runExample(const QStringList &arguments, const QString &folder) const
    {
        return run(at("example/minimal-host"), arguments, {folder});
    }

    QTemporaryDir m_folder;
    QString m_prefix = m_folder.filePath(QStringLiteral("moved away"));
};

QTEST_GUILESS_MAIN(tst_InstalledPackage)
#include "tst_InstalledPackage.moc"
