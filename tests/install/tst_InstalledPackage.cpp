// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/RecordJson.h"
#include "apps/panohost/Module.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTranslator>

namespace {

struct Run {
    int exitCode = -1;
    QString out;
    QString err;
};

Run run(const QString &program, const Texts &arguments, const QString &folder)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(program, arguments);
    if (!process.waitForFinished(240'000)) {
        process.kill();
        process.waitForFinished();
        return {};
    }
    if (process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
        QString::fromUtf8(process.readAllStandardError())};
}

QStringList words(const Text &text)
{
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace

/// What somebody has who got the installed files and nothing else of the tree.
class tst_InstalledPackage : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        const QString staged = at("staged");
        const QString cmake = QStringLiteral(CMAKE);
        Run step = run(cmake, {"--install", BUILD, "--prefix", staged}, m_folder.path());
        QVERIFY2(step.exitCode == 0, qPrintable(step.err));
        // Packages are built in one place and used in another.
        QVERIFY(QDir().rename(staged, m_prefix));

        step = run(cmake,
            {"-S", installed("/" DOCDIR "/examples/minimal-host"), "-B", at("example"), "-G",
                GENERATOR, QStringLiteral("-DCMAKE_PREFIX_PATH=") + m_prefix,
                "-DCMAKE_CXX_COMPILER=" CXX_COMPILER, "-DCMAKE_CXX_FLAGS=" CXX_FLAGS},
            m_folder.path());
        QVERIFY2(step.exitCode == 0, qPrintable(step.err));
        step = run(cmake, {"--build", at("example")}, m_folder.path());
        QVERIFY2(step.exitCode == 0, qPrintable(step.out));

        step = makeShooting(at("row"), "--rows 1 --columns 3");
        QVERIFY2(step.exitCode == 0, qPrintable(step.err));
        const QDir row(at("row"));
        QVERIFY(
            write(row.filePath(QStringLiteral("noise.jpg")), QByteArrayLiteral("\xff\xd8 noise")));
        QVERIFY(
            write(row.filePath(QStringLiteral("broken.xml")), QByteArrayLiteral("<papywizard>")));
        QByteArray stacks = contentOf(row.filePath(QStringLiteral("shooting.xml")));
        stacks.replace("nbPicts=\"1\"", "nbPicts=\"2\"");
        QVERIFY(write(row.filePath(QStringLiteral("stacks.xml")), stacks));
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
            QVERIFY(!contentOf(installed("/" DOCDIR "/") + QLatin1String(document)).isEmpty());
        const QByteArray entry = contentOf(installed("/share/applications/panohost.desktop"));
        QVERIFY2(entry.contains("\nExec=panohost %F\nIcon=panohost\n"), entry.constData());
        QVERIFY(!contentOf(installed("/share/icons/hicolor/scalable/apps/panohost.svg")).isEmpty());
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
        const Run made = makeShooting(folder.path(), shooting);
        QVERIFY2(made.exitCode == 0, qPrintable(made.err));
        const QStringList pictures
            = QDir(folder.path()).entryList({QStringLiteral("*.jpg")}, QDir::Files);

        const Run panohost = run(installed("/" BINDIR "/panohost"),
            words("import papywizard --config shooting.xml --output a.pto --record a.json")
                + pictures,
            folder.path());
        QVERIFY2(panohost.exitCode == 0, qPrintable(panohost.err));
        QString error;
        const auto record
            = recordFromJson(contentOf(folder.filePath(QStringLiteral("a.json"))), &error);
        QVERIFY2(record, qPrintable(error));
        QVERIFY(!record->links.isEmpty());

        const Run example = runExample(
            QStringList{module(), QStringLiteral("shooting.xml")} + pictures, folder.path());
        QCOMPARE(example.out,
            QStringLiteral("locations %1\nlinks %2\n").arg(locations).arg(record->links.size()));
        QCOMPARE(example.exitCode, 0);
    }

    void exampleRefuses_data()
    {
        const Table<QString, QString> row("arguments", "reason");
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
        QFETCH(QString, reason);
        QStringList given = words(arguments);
        given.replaceInStrings(QStringLiteral("MODULE"), module());
        const Run example = runExample(given, at("row"));
        QCOMPARE(example.exitCode, 1);
        QCOMPARE(example.out, QString());
        QVERIFY2(example.err.contains(QLatin1String("minimal-host: ")), qPrintable(example.err));
        QVERIFY2(example.err.contains(reason), qPrintable(example.err));
    }

private:
    QString at(const Text &path) const { return m_folder.filePath(path); }
    QString installed(const char *path) const { return m_prefix + QLatin1String(path); }
    QString module() const { return installed("/" LIBDIR "/zpanohead/libZPanoHead.so"); }
    Run makeShooting(const QString &folder, const Text &arguments) const
    {
        return run(QStringLiteral(MAKESHOOTING),
            words("--size 96x64 --output") << folder << words(arguments), m_folder.path());
    }

    Run runExample(const QStringList &arguments, const QString &folder) const
    {
        return run(at("example/minimal-host"), arguments, folder);
    }

    QTemporaryDir m_folder;
    QString m_prefix = m_folder.filePath(QStringLiteral("moved away"));
};

QTEST_GUILESS_MAIN(tst_InstalledPackage)
#include "tst_InstalledPackage.moc"
