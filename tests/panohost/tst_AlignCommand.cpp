// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/RecordJson.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <csignal>

namespace {

struct Output {
    int exitCode = -1;
    QByteArray text;
    QByteArray complaints;
};

QStringList words(const QString &text)
{
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_AlignCommand : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;

    QString path(const Text &name) const { return m_folder.filePath(name); }

    /// Runs "panohost align" in the folder.
    Output align(const Text &arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(m_folder.path());
        process.start(
            QStringLiteral(PANOHOST), QStringList(QStringLiteral("align")) + words(arguments));
        process.waitForFinished(60'000);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
    }

    bool make(const Text &name, const Text &arguments) const
    {
        return QProcess::execute(QStringLiteral(MAKESHOOTING),
                   words(arguments) + QStringList{QStringLiteral("--output"), path(name)})
            == 0;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(
            make("shooting", "--rows 2 --columns 3 --focal 24 --size 360x240 --head-error 0.3"));
    }

    void report()
    {
        const QString arguments = QStringLiteral(
            "papywizard --config shooting/shooting.xml --output a.pto --record a.json shooting");
        const Output text = align(arguments);
        QVERIFY2(text.exitCode == 0, text.complaints.constData());
        QVERIFY2(text.text.startsWith("6 pictures, 6 joined\n"), text.text.constData());
        QVERIFY(text.text.contains("focal length "));
        const QByteArray project = contentOf(path("a.pto"));
        QVERIFY(project.contains("\nc n0 N1 "));
        QVERIFY(project.contains(" n\"shooting/IMG_0001.jpg\""));
        QVERIFY(!QFile::exists(path("a.pto.matches")));

        // Nothing is written over unasked.
        QCOMPARE(align(arguments).exitCode, 1);
        const Output json = align(arguments + QLatin1String(" --force --json --keep"));
        QCOMPARE(json.exitCode, 0);
        const QJsonObject report = QJsonDocument::fromJson(json.text).object();
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
        QCOMPARE(contentOf(path("a.pto")), project);

        const Output again = align("--record-in a.json --output b.pto");
        QCOMPARE(again.exitCode, 0);
        QCOMPARE(contentOf(path("b.pto")), project);
        const Output longer = align("--record-in a.json --focal 25 --output b.pto --force --json");
        const double found = QJsonDocument::fromJson(longer.text)
                                 .object()
                                 .value(QLatin1String("focal"))
                                 .toDouble();
        QVERIFY2(qAbs(found - 24) < 0.05, longer.text.constData());
    }

    void fisheyeRecordsWithoutFocal()
    {
        // Such a record leaves the lens to the pictures, and so it is with a focal length given.
        QVERIFY(make("fisheye",
            "--lens fisheye --format clauss --rows 1 --columns 4 --full-turn "
            "--focal 12 --size 360x240"));
        const Output first = align("clauss --config fisheye/script.txt --output f.pto "
                                   "--record f.json fisheye");
        QVERIFY2(first.exitCode == 0, first.complaints.constData());
        const Output second = align("--record-in f.json --focal 12.2 --output g.pto");
        QVERIFY2(second.text.startsWith("4 pictures, 4 joined\n"), second.text.constData());
        QVERIFY(contentOf(path("g.pto")).contains(" f3 "));
    }

    void interrupted()
    {
        // Told to end at once, it leaves nothing that looks done, and the next run goes on.
        QProcess process;
        process.setWorkingDirectory(m_folder.path());
        process.start(QStringLiteral(PANOHOST),
            words(QStringLiteral(
                "align papywizard --config shooting/shooting.xml --output c.pto shooting")));
        QVERIFY(process.waitForStarted());
        const QString cache = path("c.pto.matches");
        while (!QFile::exists(cache) && process.state() == QProcess::Running)
            process.waitForFinished(1);
        // A process that has ended has no number, and 0 would mean all who run this test.
        if (process.processId() > 0)
            ::kill(static_cast<pid_t>(process.processId()), SIGINT);
        QVERIFY(process.state() == QProcess::NotRunning || process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode() == 0, QFile::exists(path("c.pto")));
        if (process.exitCode() != 0)
            QVERIFY(process.readAllStandardError().contains(
                "interrupted; what was found so far is kept in "));
        QCOMPARE(align("papywizard --config shooting/shooting.xml --output c.pto --force shooting")
                     .exitCode,
            0);
        QVERIFY(!QFile::exists(cache));
        QCOMPARE(contentOf(path("c.pto")), contentOf(path("a.pto")));
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
        const Output output = align(arguments);
        QTEST(output.exitCode, "exitCode");
        QVERIFY2(output.complaints.contains(complaint), output.complaints.constData());
        QVERIFY(!QFile::exists(path("d.pto")));
    }
};

QTEST_GUILESS_MAIN(tst_AlignCommand)
#include "tst_AlignCommand.moc"
