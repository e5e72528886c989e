// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "geometry/Angle.h"
#include "papywizard/MerlinToSPP.h"
#include "tests/support/Files.h"
#include "tests/support/RecordDump.h"
#include "tests/support/Table.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <limits>

namespace {

constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kMin = std::numeric_limits<int>::min();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

QStringList pictures(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names += QStringLiteral("/p/%1.jpg").arg(i);
    return names;
}

/// A row of shots 10 degrees apart, each location \a brackets times.
QVector<PapywizardShot> row(int count, int brackets = 1)
{
    QVector<PapywizardShot> shots(count);
    for (int i = 0; i < count; ++i) {
        const int location = i / brackets;
        shots[i].yaw = 10 * static_cast<float>(location);
    }
    return shots;
}

} // namespace

class tst_MerlinToSPP : public QObject {
    Q_OBJECT

private slots:
    void checksBracketing_data()
    {
        const Table<int, int, bool, int> row("brackets", "pictures", "fits", "bracketsAfter");
        row("not given", -1, 5, true, 1);
        row("without number", 0, 5, true, 1);
        row("single", 1, 5, true, 1);
        row("least of all", kMin, 5, true, 1);
        row("fits", 3, 12, true, 3);
        row("one too many", 3, 13, false, 3);
        row("no pictures", 3, 0, true, 3);
        row("absurd", kMax, 12, false, kMax);
    }
    void checksBracketing()
    {
        QFETCH(int, brackets);
        QFETCH(int, pictures);
        QFETCH(bool, fits);
        QFETCH(int, bracketsAfter);

        MerlinToSPP converter;
        converter.Shooting().bracketCount = brackets;
        QCOMPARE(converter.CheckBracketing(pictures), fits);
        QCOMPARE(converter.Shooting().bracketCount, bracketsAfter);
    }

    // Convert() looks after itself: whatever the counts, nothing is read past an end.
    void stacks_data()
    {
        const Table<int, int, int, QString, QString> row(
            "brackets", "shots", "pictures", "groups", "links");
        row("single", 1, 3, 3, "0|1|2", "2:0-1 2:1-2");
        row("not given", -1, 3, 3, "0|1|2", "2:0-1 2:1-2");
        row("without number", 0, 3, 3, "0|1|2", "2:0-1 2:1-2");
        row("least of all", kMin, 2, 2, "0|1", "2:0-1");
        row("three brackets", 3, 9, 9, "0 1 2|3 4 5|6 7 8", "2:0-1 2:1-2");
        row("pictures over", 2, 5, 5, "0 1|2 3", "2:0-1");
        row("more brackets than pictures", 4, 3, 3, "", "");
        row("absurd", kMax, 3, 3, "", "");
        row("fewer shots than pictures", 2, 3, 6, "0 1|2 3|4 5", "2:0-1");
        row("location starts at the first shot missing", 2, 2, 4, "0 1|2 3", "");
        row("no shots", 1, 0, 2, "0|1", "");
        row("more shots than pictures", 1, 9, 2, "0|1", "2:0-1");
        row("no pictures", 3, 3, 0, "", "");
    }
    void stacks()
    {
        QFETCH(int, brackets);
        QFETCH(int, shots);
        QFETCH(int, pictures);
        QFETCH(QString, groups);
        QFETCH(QString, links);

        MerlinToSPP converter;
        converter.Shooting().bracketCount = brackets;
        converter.Shooting().shots = row(shots, qBound(1, brackets, 3));
        // Half the diagonal angle reaches 10 degrees, not 20.
        converter.Convert(::pictures(pictures), 130, 0);
        QCOMPARE(stacksOf(converter.Record()), groups);
        QCOMPARE(linksOf(converter.Record()), links);
        QCOMPARE(converter.Record().yaws.size(), shots);
        QCOMPARE(converter.Record().pitches.size(), shots);
        QCOMPARE(converter.Record().rolls.size(), shots);
    }

    void lens_data()
    {
        const Table<double, int, double, bool, QString> row(
            "focal", "lensType", "fileFocal", "fileFisheye", "expected");
        row("as asked", 130, 0, 20, true, "130 0 2:0-1");
        row("the file's", -1, -1, 130, false, "130 0 2:0-1");
        row("any negative focal is the file's", -1e300, 0, 130, false, "130 0 2:0-1");
        row("fisheyes are not linked", 8, 1, 130, false, "8 1 ");
        row("nor the file's", 8, -1, 130, true, "8 1 ");
        row("0 is kept", 0, 0, 130, false, "0 0 2:0-1");
        row("neither knows", -1, -1, -1, false, "-1 0 ");
        row("not a number", kNaN, 0, 130, false, "nan 0 ");
        row("infinite", std::numeric_limits<double>::infinity(), 0, 130, false, "inf 0 ");
        row("the file's beyond 32 bits", -1, 0, 1e60, false, "inf 0 ");
        row("a lens type of no list", 130, 7, 20, true, "130 7 2:0-1");
    }
    void lens()
    {
        QFETCH(double, focal);
        QFETCH(int, lensType);
        QFETCH(double, fileFocal);
        QFETCH(bool, fileFisheye);
        QFETCH(QString, expected);

        MerlinToSPP converter;
        converter.Shooting().shots = row(2);
        converter.Shooting().focal = fileFocal;
        converter.Shooting().fisheye = fileFisheye;
        converter.Convert(pictures(2), focal, lensType);
        const ProjectRecord &record = converter.Record();
        QCOMPARE(QStringLiteral("%1 %2 %3")
                     .arg(double(record.focal))
                     .arg(record.lensType)
                     .arg(linksOf(record)),
            expected);
    }

    void convertsWholeRecord()
    {
        MerlinToSPP converter;
        PapywizardShooting &shooting = converter.Shooting();
        shooting.bracketCount = 2;
        shooting.shots = row(4, 2);
        // A head that does not return to the very place: the location's is its first shot's.
        shooting.shots[1].yaw = 180;
        shooting.shots[3].pitch = 90;
        invertPitches(shooting.shots);
        turnRolls(shooting.shots, 90);
        turnRolls(shooting.shots, -180);
        QVERIFY(converter.CheckBracketing(4));
        converter.Convert(pictures(4), 130, 0);

        ProjectRecord expected;
        expected.groups = {{QStringLiteral("/p/0.jpg"), QStringLiteral("/p/1.jpg")},
            {QStringLiteral("/p/2.jpg"), QStringLiteral("/p/3.jpg")}};
        expected.links = {{2, {0, 1}}};
        expected.yaws = {0, 3.14159274F, 0.174532920F, 0.174532920F};
        expected.pitches = {-0.0F, -0.0F, -0.0F, -1.57079637F};
        expected.rolls = {-1.57079637F, -1.57079637F, -1.57079637F, -1.57079637F};
        expected.focal = 130;
        QCOMPARE(dump(converter.Record()), dump(expected));
    }

    void appends()
    {
        MerlinToSPP converter;
        converter.Shooting().shots = row(2);
        converter.Convert(pictures(2), 130, 0);
        converter.Convert(pictures(2), 130, 0);
        QCOMPARE(stacksOf(converter.Record()), QStringLiteral("0|1|0|1"));
        QCOMPARE(linksOf(converter.Record()), QStringLiteral("2:0-1 2:0-1"));
        QCOMPARE(converter.Record().yaws.size(), 4);

        converter.ClearRecord();
        QCOMPARE(dump(converter.Record()), dump(ProjectRecord()));
        QCOMPARE(converter.Shooting().shots.size(), 2);
    }

    void readsFiles()
    {
        const QTemporaryDir folder;
        const QString path = writeFile(folder.filePath(QStringLiteral("caf\u00e9 %2.xml")),
            "<r><shoot><pict id='4'/></shoot></r>\r\n");

        MerlinToSPP converter;
        QVERIFY(converter.ReadXML(path));
        QCOMPARE(converter.Shooting().shots.size(), 1);
        QCOMPARE(converter.Shooting().shots.first().id, 4);

        // A file that is gone leaves nothing of the one before.
        QVERIFY(QFile::remove(path));
        QVERIFY(!converter.ReadXML(path));
        QVERIFY(converter.Shooting().shots.isEmpty());
    }

    void cannotRead_data()
    {
        const Table<QString, int> row("path", "cause");
        row("missing", "/no/such/file.xml", int(Finding::Cause::CannotOpen));
        row("folder", "/", int(Finding::Cause::CannotOpen));
        row("name with a zero", QStringLiteral("/tmp/a\0b.xml"), int(Finding::Cause::CannotOpen));
        row("device without bytes", "/dev/null", int(Finding::Cause::CannotOpen));
        row("device without end", "/dev/zero", int(Finding::Cause::CannotOpen));
        row("file whose reading fails", "/proc/self/mem", int(Finding::Cause::Malformed));
    }
    void cannotRead()
    {
        QFETCH(QString, path);
        QFETCH(int, cause);

        MerlinToSPP converter;
        converter.Shooting().title = QStringLiteral("left over");
        QVector<Finding> findings;
        QVERIFY(
            !converter.ReadXML(path, [&](const Finding &finding) { findings.append(finding); }));
        QCOMPARE(findings.size(), 1);
        QCOMPARE(int(findings.first().cause), cause);
        QVERIFY(!findings.first().value.isEmpty());
        QVERIFY(converter.Shooting().title.isEmpty());
        QVERIFY(!converter.ReadXML(path));
    }

    void refusesHugeFiles()
    {
        // Takes no place on the disk.
        QTemporaryFile file;
        QVERIFY(file.open() && file.resize((qint64(512) << 20) + 1));
        QVector<Finding> findings;
        MerlinToSPP converter;
        QVERIFY(!converter.ReadXML(
            file.fileName(), [&](const Finding &finding) { findings.append(finding); }));
        QCOMPARE(findings.size(), 1);
        QCOMPARE(int(findings.first().cause), int(Finding::Cause::CannotOpen));
    }
};

QTEST_GUILESS_MAIN(tst_MerlinToSPP)
#include "tst_MerlinToSPP.moc"
