// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/ImportAdvice.h"
#include "apps/panohost/window/RecordFigures.h"

#include <QTest>
#include <cmath>

Q_DECLARE_METATYPE(ImportState)
Q_DECLARE_METATYPE(ProjectRecord)
Q_DECLARE_METATYPE(PictureTable)
Q_DECLARE_METATYPE(HeadFile)

namespace {

ImportState stateOf(int shots, int pictures, int read, int unreadable, bool isComplete)
{
    ImportState state;
    state.wantsFile = true;
    state.file.path = QStringLiteral("/x/s.xml");
    state.file.shots = shots;
    state.pictures = pictures;
    state.read = read;
    state.unreadable = unreadable;
    state.isComplete = isComplete;
    return state;
}

/// A row of \a count locations all round, each linked with the next \a reach.
ProjectRecord ring(int count, int reach, float focal, double degrees = 360)
{
    ProjectRecord record;
    for (int i = 0; i < count; ++i) {
        record.groups.append({QStringLiteral("/%1.jpg").arg(i)});
        record.yaws.append(float(i * degrees / count * M_PI / 180));
        record.pitches.append(0);
    }
    for (int i = 0; i < count; ++i)
        for (int k = 1; k <= reach && i + k < count; ++k)
            record.links.append({2, {i, i + k}});
    record.focal = focal;
    return record;
}

PictureTable tableOf(const ProjectRecord &record, float focal, int lensType = 0)
{
    PictureTable table;
    for (const QStringList &stack : record.groups) {
        for (const QString &path : stack) {
            PictureFacts facts;
            facts.readable = true;
            facts.size = {3600, 2400};
            facts.focal = focal;
            facts.lensType = lensType;
            table.insert(path, facts);
        }
    }
    return table;
}

QString linesOf(const QVector<RecordFigure> &figures)
{
    QStringList lines;
    for (const RecordFigure &figure : figures)
        lines += figure.label + QStringLiteral("=") + figure.value;
    return lines.join(QLatin1Char('\n'));
}

} // namespace

/// The sentences that the window tells a photographer.
class tst_ImportWords : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void advises_data();
    void advises();
    void namesSkipped_data();
    void namesSkipped();
    void tellsTimeLeft();
    void doubts_data();
    void doubts();
    void tellsFigures_data();
    void tellsFigures();
};

void tst_ImportWords::advises_data()
{
    using Kind = ImportAdvice::Kind;
    QTest::addColumn<ImportState>("state");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("says");
    const auto row = [](const char *name, const ImportState &state, Kind kind, const char *says) {
        QTest::newRow(name) << state << int(kind) << QString::fromUtf8(says);
    };

    ImportState noFile = stateOf(0, 0, 0, 0, false);
    noFile.file = {};
    row("nothing", noFile, Kind::NextStep, "the head's file and the pictures");
    noFile.pictures = noFile.read = 3;
    row("pictures first", noFile, Kind::NextStep, "Now drop the head's file");
    noFile.read = 1;
    row("pictures first, reading", noFile, Kind::Busy, "being read");
    row("file first", stateOf(12, 0, 0, 0, false), Kind::NextStep, "took 12 pictures. Drop them");
    row("one missing", stateOf(12, 11, 0, 0, false), Kind::Problem, "Missing: 1.");
    ImportState skipping = stateOf(12, 11, 0, 0, false);
    skipping.skipped = QStringList{QStringLiteral("5.jpg"), QStringLiteral("7.jpg")};
    row("one missing, named", skipping, Kind::Problem,
        "Missing: 1. The numbers skip 5.jpg, 7.jpg.");
    row("too many", stateOf(12, 15, 15, 0, false), Kind::Problem, "Too many: 3.");
    row("reading", stateOf(12, 12, 5, 1, false), Kind::Busy, "being read");
    row("unreadable", stateOf(12, 12, 10, 2, false), Kind::Problem, "cannot be read: 2");
    row("whole without", stateOf(12, 13, 12, 1, false), Kind::Problem, "Leave them out");
    row("all unreadable", stateOf(2, 2, 0, 2, false), Kind::Problem, "cannot be read: 2");
    row("ready", stateOf(12, 12, 12, 0, true), Kind::Ready, "All 12 pictures");
    row("the page wants more", stateOf(12, 12, 12, 0, false), Kind::NextStep, "settings");

    ImportState bad = stateOf(0, 12, 12, 0, false);
    bad.file.problem = QStringLiteral("No shots.");
    row("bad file", bad, Kind::Problem, "No shots.");
    ImportState refused = stateOf(12, 12, 12, 0, true);
    refused.refusal = QStringLiteral("Not that.");
    row("something refused", refused, Kind::Problem, "Not that.");

    ImportState grid = stateOf(0, 0, 0, 0, false);
    grid.wantsFile = false;
    grid.file = {};
    row("grid", grid, Kind::NextStep, "Drop the pictures here");
    grid.pictures = 24;
    grid.read = 23;
    grid.unreadable = 1;
    row("grid, one unreadable", grid, Kind::Problem, "Put them right and try again, or choose");
    grid.unreadable = 0;
    grid.pictures = grid.read = 24;
    grid.isComplete = true;
    row("grid, ready", grid, Kind::Ready, "All 24 pictures");
}

void tst_ImportWords::advises()
{
    QFETCH(ImportState, state);
    QFETCH(int, kind);
    QFETCH(QString, says);
    const ImportAdvice advice = adviceFor(state);
    QVERIFY2(advice.text.contains(says), qPrintable(advice.text));
    QCOMPARE(int(advice.kind), kind);
    QVERIFY(!advice.text.contains(QLatin1Char('%')));
}

void tst_ImportWords::namesSkipped_data()
{
    QTest::addColumn<QString>("names");
    QTest::addColumn<QString>("skipped");
    const auto row = [](const char *names, const char *skipped) {
        QTest::newRow(names) << QString::fromLatin1(names) << QString::fromLatin1(skipped);
    };
    row("/p/IMG_0001.jpg /p/IMG_0002.jpg /p/IMG_0004.jpg", "IMG_0003.jpg");
    row("/b/a9.x2.jpg /b/a9.x5.jpg", "a9.x3.jpg a9.x4.jpg");
    row("/p/9.jpg /p/11.jpg /p/8.jpg", "10.jpg");
    row("/p/I1.CR2 /p/I3.CR2", "I2.CR2");
    row("/p/1.jpg /p/2.jpg", "");
    row("/p/1.jpg /p/5.jpg", "");
    row("/p/1.jpg /p/3.png", "");
    row("/p/a1.jpg /p/b3.jpg", "");
    row("/p/one.jpg /p/two.jpg", "");
    row("/p/IMG_1.jpg /p/IMG_99999999999999.jpg", "");
    row("", "");
}

void tst_ImportWords::namesSkipped()
{
    QFETCH(QString, names);
    const QStringList pictures = names.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QTEST(skippedNames(pictures, 2).join(QLatin1Char(' ')), "skipped");
}

void tst_ImportWords::tellsTimeLeft()
{
    const auto textFor = [](qint64 elapsed, int done, int left) {
        ReadingPace pace;
        pace.start(1000);
        pace.update(1000 + elapsed, done);
        return timeLeftText(pace.timeFor(left));
    };
    QCOMPARE(textFor(0, 0, 100), QString());
    QCOMPARE(textFor(100, 50, 100), QString());
    QCOMPARE(textFor(60'000, 2, 100), QString());
    QCOMPARE(textFor(1000, 10, 1), QStringLiteral("a few seconds left"));
    QCOMPARE(textFor(2000, 10, 100), QStringLiteral("about 20 seconds left"));
    QCOMPARE(textFor(2000, 10, 290), QStringLiteral("about a minute left"));
    QCOMPARE(textFor(2000, 10, 900), QStringLiteral("about 3 minutes left"));
    QCOMPARE(textFor(2000, 10, 69'990), QStringLiteral("about 3.9 hours left"));
    QVERIFY(!textFor(std::numeric_limits<int>::max(), 3, 70'000).isEmpty());

    // A pause without pictures does not make the rest look longer before the next picture comes.
    ReadingPace pace;
    pace.start(0);
    pace.update(1000, 10);
    pace.update(50'000, 10);
    QCOMPARE(pace.timeFor(10), 1000);
    pace.start(60'000);
    QCOMPARE(pace.timeFor(10), -1);
}

void tst_ImportWords::doubts_data()
{
    QTest::addColumn<ProjectRecord>("record");
    QTest::addColumn<PictureTable>("pictures");
    QTest::addColumn<QString>("says");
    const auto row = [](const char *name, const ProjectRecord &record, const char *says,
                         const PictureTable &pictures = {}) {
        QTest::newRow(name) << record << pictures << QString::fromUtf8(says);
    };
    row("as it should be", ring(12, 1, 24), "");
    row("each picture's own focal", ring(12, 1, 0), "");
    row("no focal", ring(12, 11, 1), "No lens has a focal length of 1 mm.|Every location");
    row("a telescope too long", ring(12, 1, 10'000), "No lens has a focal length of 10000 mm.");
    row("nothing linked", ring(12, 0, 800), "No location is linked");
    row("all linked", ring(12, 11, 10), "Every location is linked");
    row("one less than all", ring(12, 10, 10), "");
    row("all linked in a narrow view", ring(6, 5, 24, 60), "");
    row("one location", ring(1, 0, 24), "");
    row("two locations", ring(2, 1, 24, 60), "");

    ProjectRecord fisheye = ring(4, 0, 8);
    fisheye.lensType = 1;
    row("fisheye", fisheye, "");
    ProjectRecord odd = ring(12, 11, 10);
    odd.links[3].indices.clear();
    odd.links.append(odd.links[4]);
    odd.yaws[2] = NAN;
    row("all linked but one, one twice", odd, "");
    odd.yaws.clear();
    row("no angles", odd, "");

    ProjectRecord mean = ring(12, 1, 22);
    PictureTable told = tableOf(mean, 24);
    told[mean.groups[3].first()].focal = 0;
    row("a mean with zeros", mean, "1 of 12 pictures do not tell their focal length", told);
    mean.focal = 24;
    row("the zeros left out", mean, "", told);

    // 73.7 by 53.1 degrees a picture.
    const auto grid = [&row](const char *name, int rows, int columns, double overlap, bool fullTurn,
                          const char *says, int orientation = 1) {
        ProjectRecord record = ring(rows * columns, 1, 24);
        record.yaws.clear();
        record.pitches.clear();
        record.layoutRows = rows;
        record.overlap = overlap;
        record.fullTurn = fullTurn;
        PictureTable pictures = tableOf(record, 24);
        for (PictureFacts &facts : pictures)
            facts.orientation = orientation;
        row(name, record, says, pictures);
    };
    grid("a grid", 4, 4, 0, false, "");
    grid("too many rows", 5, 4, 0, false, "of 5 rows it would be 213°");
    grid("too many rows upright", 4, 4, 0, false, "of 4 rows it would be 221°", 6);
    grid("as many rows with overlap", 5, 4, 20, false, "");
    grid("too many columns", 1, 5, 0, false, "5 columns would take 369°");
    grid("as many columns upright", 1, 5, 0, false, "", 6);
    grid("a closed turn of as many", 1, 5, 0, true, "");
    grid("gaps in a turn", 2, 4, 0, true, "4 columns see 295° together");
    grid("nothing but overlap", 2, 3, 100, false, "With an overlap of 100 % all");
    grid("the rows of a turn too", 2, 6, 100, true, "With an overlap of 100 % all");
    grid("but one row is a turn", 1, 6, 100, true, "");
    grid("no grid", 3, 3, NAN, false, "");
}

void tst_ImportWords::doubts()
{
    QFETCH(ProjectRecord, record);
    QFETCH(QString, says);
    QFETCH(PictureTable, pictures);
    const QStringList told = doubtsAbout(record, pictures);
    const QStringList expected = says.split(QLatin1Char('|'), Qt::SkipEmptyParts);
    QVERIFY2(told.size() == expected.size(), qPrintable(told.join(QLatin1Char('|'))));
    for (int i = 0; i < told.size(); ++i)
        QVERIFY2(told[i].contains(expected[i]), qPrintable(told[i]));
}

void tst_ImportWords::tellsFigures_data()
{
    QTest::addColumn<ProjectRecord>("record");
    QTest::addColumn<PictureTable>("pictures");
    QTest::addColumn<HeadFile>("file");
    QTest::addColumn<QString>("figures");
    const auto row = [](const char *name, const ProjectRecord &record, const PictureTable &pictures,
                         const HeadFile &file, const char *figures) {
        QTest::newRow(name) << record << pictures << file << QString::fromUtf8(figures);
    };
    HeadFile file;
    file.focal = 35;

    ProjectRecord record = ring(8, 1, 24);
    row("from the pictures", record, tableOf(record, 24), file,
        "Locations=8\nPictures=8\nLinks=7 side by side\nFocal length=24 mm, from the pictures\n"
        "Lens=standard, from the pictures\n"
        "Field of view=73.7° × 53.1° a picture, together 360° × 53°");
    record.focal = 35;
    record.links.append({1, {0, 1}});
    row("from the file", record, tableOf(record, 24), file,
        "Locations=8\nPictures=8\nLinks=1 one above the other, 7 side by side\n"
        "Focal length=35 mm, from the head's file\nLens=standard, from the head's file\n"
        "Field of view=54.4° × 37.8° a picture, together 360° × 38°");
    record = ring(1, 0, 18);
    row("by hand", record, tableOf(record, 24), file,
        "Locations=1\nPictures=1\nLinks=none\nFocal length=18 mm, set by hand\nLens=standard\n"
        "Field of view=90° × 67.4° a picture, together 90° × 67°");
    record = ring(4, 0, 8);
    record.lensType = 1;
    row("lens by hand", record, tableOf(record, 8), file,
        "Locations=4\nPictures=4\nLinks=none\nFocal length=8 mm, from the pictures\n"
        "Lens=fisheye, set by hand\nField of view=257.8° × 171.9° a picture, together 360° × 172°");

    ProjectRecord stacks = ring(2, 1, 0, 40);
    stacks.groups[0].append({QStringLiteral("/b.jpg"), QStringLiteral("/c.jpg")});
    PictureTable mixed = tableOf(stacks, 24);
    mixed[QStringLiteral("/c.jpg")].focal = 50;
    row("uneven stacks, own focals", stacks, mixed, {},
        "Locations=2\nPictures=4, in stacks of 1 to 3\nLinks=1 side by side\n"
        "Focal length=24 mm to 50 mm, from the pictures\nLens=standard, from the pictures\n"
        "Field of view=73.7° × 53.1° a picture, together 94° × 53°");

    row("nothing", {}, {}, {}, "");
    ProjectRecord hollow;
    hollow.groups = {{}, {}};
    row("empty stacks", hollow, {}, {}, "");
    record = ring(2, 1, 24);
    record.yaws[1] = NAN;
    row("NaN", record, {}, {},
        "Locations=2\nPictures=2\nLinks=1 side by side\nFocal length=24 mm, set by hand\n"
        "Lens=standard");
}

void tst_ImportWords::tellsFigures()
{
    QFETCH(ProjectRecord, record);
    QFETCH(PictureTable, pictures);
    QFETCH(HeadFile, file);
    QTEST(linesOf(figuresOf(record, pictures, file)), "figures");
}

QTEST_GUILESS_MAIN(tst_ImportWords)
#include "tst_ImportWords.moc"
