// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/OutputFile.h"
#include "tests/support/Files.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <unistd.h>

class tst_OutputFile : public QObject {
    Q_OBJECT

private slots:
    void objections_data()
    {
        const Table<QString, QString> row("path", "objection");
        const QString input = QStringLiteral("is one of the files that the import reads");
        writeFile(at("input"), "input");
        writeFile(at("other"), "other");
        QFile::link(at("input"), at("to input"));
        QFile::link(at("other"), at("to other"));
        QFile::link(at("nowhere"), at("dangling"));
        QVERIFY(::link(QFile::encodeName(at("input")).constData(),
                    QFile::encodeName(at("hard")).constData())
            == 0);
        QDir(m_folder.path()).mkdir(QStringLiteral("folder"));

        row("new", at("new"), "");
        row("the input", at("input"), input);
        row("by another way", at("folder/../input"), input);
        row("by a link", at("to input"), input);
        row("by a hard link", at("hard"), input);
        row("another file", at("other"), "");
        row("a link to another", at("to other"), "");
        row("a link to nowhere", at("dangling"), "");
        const QString precious
            = QStringLiteral("is a picture or a head's file, which is never written over");
        for (const char *name : {"a.jpg", "a.NEF", "head.xml", "script.TXT"})
            writeFile(at(name), "x");
        row("a picture", at("a.jpg"), precious);
        row("a raw picture", at("a.NEF"), precious);
        row("a shooting file", at("head.xml"), precious);
        row("a script", at("script.TXT"), precious);
        QVERIFY(QImage(2, 2, QImage::Format_RGB32).save(at("picture without suffix"), "PNG"));
        row("a picture by content", at("picture without suffix"), precious);
        const QString folder = QStringLiteral("is a folder");
        row("a folder", at("folder"), folder);
        const QString noFolder = QStringLiteral("there is no folder %1").arg(at("absent"));
        row("in no folder", at("absent/new"), noFolder);
        const QString device = QStringLiteral("is no regular file");
        row("a device", "/dev/null", device);
    }
    void objections()
    {
        QFETCH(QString, path);
        const QStringList inputs{at("input"), at("never there")};
        QTEST(OutputGuard(inputs).objection(path), "objection");
    }

    void sameFile_data()
    {
        const Table<QString, QString, bool> row("a", "b", "same");
        QDir(m_folder.path()).mkpath(QStringLiteral("real"));
        QFile::link(at("real"), at("linked"));
        writeFile(at("real/there"), "x");
        QFile::link(at("real/there"), at("other name"));
        row("one name", at("new"), at("new"), true);
        row("two names", at("new"), at("newer"), false);
        row("a linked folder", at("real/new"), at("linked/new"), true);
        row("a linked file", at("real/there"), at("other name"), true);
        row("one exists", at("real/there"), at("real/new"), false);
        row("folders apart", at("real/new"), at("new"), false);
    }
    void sameFile()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QTEST(isSameFile(a, b), "same");
    }

    void wholeOrNothing()
    {
        writeFile(at("a"), "old");
        QCOMPARE(writeWhole({{at("a"), "new"}, {at("b"), QByteArray(100'000, 'x')}}), QString());
        QCOMPARE(fileContent(at("a")), QByteArray("new"));
        QCOMPARE(fileContent(at("b")).size(), 100'000);

        const QStringList before = QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden);
        const QString error
            = writeWhole({{at("a"), "newer"}, {at("c"), "c"}, {at("absent/d"), "d"}});
        QVERIFY2(error.startsWith(at("absent/d: ")), qUtf8Printable(error));
        QCOMPARE(fileContent(at("a")), QByteArray("new"));
        QCOMPARE(QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden), before);
    }

    void moves_data()
    {
        const Table<QString, QString, QString> row("from", "to", "problem");
        QDir(m_folder.path()).mkpath(QStringLiteral("full/inside"));
        row("a file", "from", "to", "");
        row("over another", "from", "other", "");
        row("a folder", "folder from", "new folder", "");
        row("over a folder", "from", "full", "Is a directory");
        row("a folder over a full one", "folder from", "full", "Directory not empty");
        row("nothing", "missing", "to", "No such file or directory");
        row("into nothing", "from", "missing/to", "No such file or directory");
    }
    void moves()
    {
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(QString, problem);
        writeFile(at("from"), "moved");
        writeFile(at("other"), "other");
        QDir(m_folder.path()).mkpath(QStringLiteral("folder from"));
        const QString target = m_folder.filePath(to);
        const bool isLeft = QFileInfo::exists(m_folder.filePath(from));
        QCOMPARE(moveFile(m_folder.filePath(from), target),
            problem.isEmpty() ? QString()
                              : QStringLiteral("%1: cannot be written: %2").arg(target, problem));
        QCOMPARE(QFileInfo::exists(m_folder.filePath(from)), isLeft && !problem.isEmpty());
        if (problem.isEmpty() && from == QLatin1String("from"))
            QCOMPARE(fileContent(target), QByteArray("moved"));
    }

    void makesFolders_data()
    {
        const Table<QString, QString> row("path", "problem");
        writeFile(at("file"), "x");
        row("several", "deep/down/there", "");
        row("there already", "deep/down", "");
        row("a file", "file/down", "Not a directory");
    }
    void makesFolders()
    {
        QFETCH(QString, path);
        QFETCH(QString, problem);
        const QString folder = m_folder.filePath(path);
        QCOMPARE(makeFolder(folder),
            problem.isEmpty() ? QString()
                              : QStringLiteral("%1: cannot be written: %2").arg(folder, problem));
        QCOMPARE(QFileInfo(folder).isDir(), problem.isEmpty());
    }

private:
    QString at(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_OutputFile)
#include "tst_OutputFile.moc"
