// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/RecordJson.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
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

    QString path(const QString &name) const { return m_folder.filePath(name); }

    /// Runs "panohost align" in the folder.
    Output align(const QString &arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(m_folder.path());
        process.start(
            QStringLiteral(PANOHOST), QStringList(QStringLiteral("align")) + words(arguments));
        process.waitForFinished(60'000);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
    }

    bool make(const QString &name, const QString &arguments) const
    {
        return QProcess::execute(QStringLiteral(MAKESHOOTING),
                   words(arguments) + QStringList{QStringLiteral("--output"), path(name)})
            == 0;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(make(QStringLiteral("shooting"),
            QStringLiteral("--rows 2 --columns 3 --focal 24 --size 360x240 --head-error 0.3")));
    }

    void report()
    {
        const QString arguments = QStringLiteral(
            "papywizard --config shooting/shooting.xml --output a.pto --record a.json shooting");
        const Output text = align(arguments);
        QVERIFY2(text.exitCode == 0, text.complaints.constData());
        QVERIFY2(text.text.startsWith("6 pictures, 6 joined\n"), text.text.constData());
        QVERIFY(text.text.contains("focal length "));
        const QByteArray project = contentOf(path(QStringLiteral("a.pto")));
        QVERIFY(project.contains("\nc n0 N1 "));
        QVERIFY(project.contains(" n\"shooting/IMG_0001.jpg\""));
        QVERIFY(!QFile::exists(path(QStringLiteral("a.pto.matches"))));

        // Nothing is written over unasked.
        QCOMPARE(align(arguments).exitCode, 1);
        const Output json = align(arguments + QStringLiteral(" --force --json --keep"));
        QCOMPARE(json.exitCode, 0);
        const QJsonObject report = QJsonDocument::fromJson(json.text).object();
        QCOMPARE(report.keys(),
            (QStringList{QStringLiteral("distortion"), QStringLiteral("focal"),
                QStringLiteral("head_error_deg"), QStringLiteral("held"), QStringLiteral("joined"),
                QStringLiteral("pictures"), QStringLiteral("residual_px"),
                QStringLiteral("seconds"), QStringLiteral("suspect")}));
        QCOMPARE(report.value(QLatin1String("joined")).toInt(), 6);
        QCOMPARE(report.value(QLatin1String("held")).toArray().size(), 0);
        const QJsonObject residual = report.value(QLatin1String("residual_px")).toObject();
        QCOMPARE(residual.value(QLatin1String("pair")).toArray().size(), 2);
        QVERIFY(residual.value(QLatin1String("rms")).toDouble() > 0);
        const QJsonObject head = report.value(QLatin1String("head_error_deg")).toObject();
        QVERIFY(head.value(QLatin1String("worst")).toDouble() > 0.1);
        QVERIFY(head.value(QLatin1String("worst")).toDouble() < 2);
        QVERIFY(report.value(QLatin1String("seconds")).toObject().size() >= 2);
        QVERIFY(QFile::exists(path(QStringLiteral("a.pto.matches"))));
        QCOMPARE(contentOf(path(QStringLiteral("a.pto"))), project);

        const Output again = align(QStringLiteral("--record-in a.json --output b.pto"));
        QCOMPARE(again.exitCode, 0);
        QCOMPARE(contentOf(path(QStringLiteral("b.pto"))), project);
        const Output longer
            = align(QStringLiteral("--record-in a.json --focal 25 --output b.pto --force --json"));
        const double found = QJsonDocument::fromJson(longer.text)
                                 .object()
                                 .value(QLatin1String("focal"))
                                 .toDouble();
        QVERIFY2(qAbs(found - 24) < 0.05, longer.text.constData());
    }

    void fisheyeRecordsWithoutFocal()
    {
        // Such a record leaves the lens to the pictures, and so it is with a focal length given.
        QVERIFY(make(QStringLiteral("fisheye"),
            QStringLiteral("--lens fisheye --format clauss --rows 1 --columns 4 --full-turn "
                           "--focal 12 --size 360x240")));
        const QString config = QDir(path(QStringLiteral("fisheye")))
                                   .entryList({QStringLiteral("*.txt"), QStringLiteral("*.rod*"),
                                       QStringLiteral("*script*")})
                                   .value(0);
        QVERIFY(!config.isEmpty());
        const Output first = align(QStringLiteral("clauss --config fisheye/%1 --output f.pto "
                                                  "--record f.json fisheye")
                                       .arg(config));
        QVERIFY2(first.exitCode == 0, first.complaints.constData());
        const Output second
            = align(QStringLiteral("--record-in f.json --focal 12.2 --output g.pto"));
        QVERIFY2(second.text.startsWith("4 pictures, 4 joined\n"), second.text.constData());
        QVERIFY(contentOf(path(QStringLiteral("g.pto"))).contains(" f3 "));
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
        const QString cache = path(QStringLiteral("c.pto.matches"));
        while (!QFile::exists(cache) && process.state() == QProcess::Running)
            process.waitForFinished(1);
        // A process that has ended has no number, and 0 would mean all who run this test.
        if (process.processId() > 0)
            ::kill(static_cast<pid_t>(process.processId()), SIGINT);
        QVERIFY(process.state() == QProcess::NotRunning || process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode() == 0, QFile::exists(path(QStringLiteral("c.pto"))));
        if (process.exitCode() != 0)
            QVERIFY(process.readAllStandardError().contains("interrupted"));
        QCOMPARE(align(QStringLiteral("papywizard --config shooting/shooting.xml --output c.pto "
                                      "--force shooting"))
                     .exitCode,
            0);
        QVERIFY(!QFile::exists(cache));
        QCOMPARE(
            contentOf(path(QStringLiteral("c.pto"))), contentOf(path(QStringLiteral("a.pto"))));
    }

    void wrongUsage_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QByteArray>("complaint");
        QTest::newRow("no output")
            << QStringLiteral("papywizard --config shooting/shooting.xml shooting") << 2
            << QByteArray("--output FILE.pto is missing");
        QTest::newRow("over a picture")
            << QStringLiteral("papywizard --config shooting/shooting.xml --force "
                              "--output shooting/IMG_0001.jpg shooting")
            << 1 << QByteArray("IMG_0001.jpg");
        QTest::newRow("no such record") << QStringLiteral("--record-in nowhere.json --output d.pto")
                                        << 1 << QByteArray("nowhere.json: cannot be opened");
        QTest::newRow("no such head")
            << QStringLiteral("camera --output d.pto shooting") << 2 << QByteArray("camera");
    }
    void wrongUsage()
    {
        QFETCH(QString, arguments);
        QFETCH(QByteArray, complaint);
        const Output output = align(arguments);
        QTEST(output.exitCode, "exitCode");
        QVERIFY2(output.complaints.contains(complaint), output.complaints.constData());
        QVERIFY(!QFile::exists(path(QStringLiteral("d.pto"))));
    }
};

QTEST_GUILESS_MAIN(tst_AlignCommand)
#include "tst_AlignCommand.moc"
