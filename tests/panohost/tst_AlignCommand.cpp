// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/RecordJson.h"
#include "tests/support/Files.h"
#include "tests/support/Program.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <csignal>

class tst_AlignCommand : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;

    QString path(const Text &name) const { return m_folder.filePath(name); }

    /// Runs "panohost align" in the folder.
    Run align(const Text &arguments) const
    {
        return run(PANOHOST, words(QStringLiteral("align ") + arguments), {m_folder.path()});
    }

    void shoot(const Text &arguments) const
    {
        QCOMPARE(run(MAKESHOOTING, words(arguments), {m_folder.path()}).failure(), QByteArray());
    }

private slots:
    void initTestCase()
    {
        shoot("--output shooting --rows 2 --columns 3 --focal 24 --size 360x240 --head-error 0.3");
    }

    void report()
    {
        const QString arguments = QStringLiteral(
            "papywizard --config shooting/shooting.xml --output a.pto --record a.json shooting");
        const Run text = align(arguments);
        QCOMPARE(text.failure(), QByteArray());
        QVERIFY2(text.out.startsWith("6 pictures, 6 joined\n"), text.out);
        QVERIFY(text.out.contains("focal length "));
        const QByteArray project = fileContent(path("a.pto"));
        QVERIFY(project.contains("\nc n0 N1 "));
        QVERIFY(project.contains(" n\"shooting/IMG_0001.jpg\""));
        QVERIFY(!QFile::exists(path("a.pto.matches")));

        // Nothing is written over unasked.
        QCOMPARE(align(arguments).code, 1);
        const Run json = align(arguments + QLatin1String(" --force --json --keep"));
        QCOMPARE(json.failure(), QByteArray());
        const QJsonObject report = QJsonDocument::fromJson(json.out).object();
        QCOMPARE(report.keys().join(QLatin1Char(' ')),
            QStringLiteral("distortion focal head_error_deg held joined parts pictures residual_px "
                           "seconds suspect"));
        QCOMPARE(report.value(QLatin1String("joined")).toInt(), 6);
        QCOMPARE(report.value(QLatin1String("held")).toArray().size(), 0);
        const QJsonObject residual = report.value(QLatin1String("residual_px")).toObject();
        QCOMPARE(residual.value(QLatin1String("pair")).toArray().size(), 2);
        QVERIFY(residual.value(QLatin1String("rms")).toDouble() > 0);
        const QJsonObject head = report.value(QLatin1String("head_error_deg")).toObject();
        QVERIFY(head.value(QLatin1String("worst")).toDouble() > 0.1);
        QVERIFY(head.value(QLatin1String("worst")).toDouble() < 2);
        QVERIFY(report.value(QLatin1String("seconds")).toObject().size() >= 2);
        QVERIFY(QFile::exists(path("a.pto.matches")));
        QCOMPARE(fileContent(path("a.pto")), project);

        QCOMPARE(align("--record-in a.json --output b.pto").failure(), QByteArray());
        QCOMPARE(fileContent(path("b.pto")), project);
        const Run longer = align("--record-in a.json --focal 25 --output b.pto --force --json");
        const QJsonObject found = QJsonDocument::fromJson(longer.out).object();
        QVERIFY2(qAbs(found.value(QLatin1String("focal")).toDouble() - 24) < 0.05, longer.out);
    }

    void fisheyeRecordsWithoutFocal()
    {
        // Such a record leaves the lens to the pictures, and so it is with a focal length given.
        shoot("--output fisheye --lens fisheye --format clauss --rows 1 --columns 4 --full-turn "
              "--focal 12 --size 360x240");
        const Run first = align("clauss --config fisheye/script.txt --output f.pto "
                                "--record f.json fisheye");
        QCOMPARE(first.failure(), QByteArray());
        const Run second = align("--record-in f.json --focal 12.2 --output g.pto");
        QVERIFY2(second.out.startsWith("4 pictures, 4 joined\n"), second.out);
        QVERIFY(fileContent(path("g.pto")).contains(" f3 "));
    }

    void interrupted()
    {
        // Told to end at once, it leaves nothing that looks done, and the next run goes on. So many
        // pictures so far from their places take seconds, and a signal comes sooner.
        shoot("--output sphere --sphere --focal 60 --overlap 40 --size 120x80 --head-error 3");
        const QString import
            = QStringLiteral("papywizard --config sphere/shooting.xml sphere --output ");
        RunningProgram program(
            PANOHOST, words(QStringLiteral("align %1c.pto").arg(import)), {m_folder.path()});
        const auto isMatching = [&program] { return program.complaints().contains("matching, "); };
        QVERIFY2(program.await(isMatching), program.complaints());
        program.signal(SIGINT);
        const Run ended = program.wait();
        QCOMPARE(ended.code, 1);
        QVERIFY2(ended.err.contains("interrupted; what was found so far is kept in "), ended.err);
        QVERIFY(!QFile::exists(path("c.pto")));
        QVERIFY(QFile::exists(path("c.pto.matches")));

        QCOMPARE(align(import + QLatin1String("c.pto")).failure(), QByteArray());
        QVERIFY(!QFile::exists(path("c.pto.matches")));
        QCOMPARE(align(import + QLatin1String("whole.pto")).failure(), QByteArray());
        QCOMPARE(fileContent(path("c.pto")), fileContent(path("whole.pto")));
    }

    void wrongUsage_data()
    {
        const Table<QString, int, QByteArray> row("arguments", "exitCode", "complaint");
        row("no output", "papywizard --config shooting/shooting.xml shooting", 2,
            "--output FILE.pto is missing");
        row("over a picture",
            "papywizard --config shooting/shooting.xml --force "
            "--output shooting/IMG_0001.jpg shooting",
            1, "IMG_0001.jpg");
        row("no such record", "--record-in nowhere.json --output d.pto", 1,
            "nowhere.json: cannot be opened");
        row("no such head", "camera --output d.pto shooting", 2, "camera");
    }
    void wrongUsage()
    {
        QFETCH(QString, arguments);
        QFETCH(QByteArray, complaint);
        const Run run = align(arguments);
        QTEST(run.code, "exitCode");
        QVERIFY2(run.err.contains(complaint), run.err);
        QVERIFY(!QFile::exists(path("d.pto")));
    }
};

QTEST_GUILESS_MAIN(tst_AlignCommand)
#include "tst_AlignCommand.moc"
