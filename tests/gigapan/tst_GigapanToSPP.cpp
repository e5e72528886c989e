// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "gigapan/GigapanToSPP.h"
#include "tests/support/RecordDump.h"

#include <QTest>
#include <cmath>
#include <limits>

namespace {

constexpr int kHuge = std::numeric_limits<int>::max();

QStringList pictures(int count)
{
    QStringList paths;
    for (int i = 0; i < count; ++i)
        paths << QStringLiteral("/p/%1.jpg").arg(i);
    return paths;
}

GigapanLayout layoutOf(int rows, int columns, int mode, int bracket = 1, int ignore = 0)
{
    GigapanLayout layout;
    layout.rows = rows;
    layout.columns = columns;
    layout.mode = mode;
    layout.bracket = bracket;
    layout.ignore = ignore;
    return layout;
}

ProjectRecord convert(const GigapanLayout &layout, int count, bool fullTurn)
{
    GigapanToSPP converter;
    converter.Layout() = layout;
    converter.Convert(pictures(count), fullTurn);
    return converter.Record();
}

/// Location numbers as they lie in the grid, found by walking as the head does:
/// locations[row][column].
QVector<QVector<int>> walk(const GigapanLayout &layout)
{
    QVector<QVector<int>> locations(layout.rows, QVector<int>(layout.columns, -1));
    int next = 0;
    switch (layout.mode) {
    case 0:
        for (int c = 0; c < layout.columns; ++c)
            for (int r = 0; r < layout.rows; ++r)
                locations[r][c] = next++;
        break;
    case 1:
        for (int r = 0; r < layout.rows; ++r)
            for (int c = 0; c < layout.columns; ++c)
                locations[r][c] = next++;
        break;
    case 2:
        for (int r = layout.rows - 1; r >= 0; --r)
            for (int c = 0; c < layout.columns; ++c)
                locations[r][c] = next++;
        break;
    case 3:
        for (int c = layout.columns - 1; c >= 0; --c)
            for (int r = 0; r < layout.rows; ++r)
                locations[r][c] = next++;
        break;
    case 4: {
        bool toRight = true;
        for (int r = layout.rows - 1; r >= 0; --r, toRight = !toRight) {
            for (int n = 0; n < layout.columns; ++n)
                locations[r][toRight ? n : layout.columns - 1 - n] = next++;
        }
        break;
    }
    }
    return locations;
}

/// The rules, clause by clause.
ProjectRecord literalConvert(const GigapanLayout &layout, const QStringList &images, bool fullTurn)
{
    ProjectRecord record;
    const int rows = layout.rows;
    const int columns = layout.columns;
    int p = layout.ignore;
    for (int g = 0; g < rows * columns; ++g) {
        if (p >= images.size())
            continue;
        QStringList group;
        for (int k = 0; k < layout.bracket && p + k < images.size(); ++k)
            group << images[p + k];
        record.groups << group;
        p += layout.bracket;
    }
    const QVector<QVector<int>> at = walk(layout);
    const auto link = [&record](int kind, int first, int second) {
        record.links.append(ProjectLink{kind, QVector<int>{first, second}});
    };
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < columns; ++c) {
            if (r < rows - 1)
                link(1, at[r][c], at[r + 1][c]);
            if (c < columns - 1)
                link(2, at[r][c], at[r][c + 1]);
            else if (fullTurn)
                link(2, at[r][c], at[r][0]);
            if (r < rows - 1) {
                if (c < columns - 1) {
                    link(4, at[r + 1][c], at[r][c + 1]);
                    link(3, at[r][c], at[r + 1][c + 1]);
                } else if (fullTurn) {
                    link(4, at[r + 1][c], at[r][0]);
                    link(3, at[r][c], at[r + 1][0]);
                }
            }
        }
    }
    record.layoutMode = layout.mode;
    record.layoutRows = rows;
    record.layoutBracket = layout.bracket;
    record.fullTurn = fullTurn;
    return record;
}

} // namespace

class tst_GigapanToSPP : public QObject {
    Q_OBJECT
private slots:
    void choosesTheInitialGrid();
    void choosesTheGridOf_data();
    void choosesTheGridOf();
    void derivesColumns_data();
    void derivesColumns();
    void convertsAsTheRulesSay();
    void groups_data();
    void groups();
    void linksCells_data();
    void linksCells();
    void survivesAbsurdLayouts_data();
    void survivesAbsurdLayouts();
    void appendsToTheRecord();
};

void tst_GigapanToSPP::choosesTheInitialGrid()
{
    for (int n = 1; n <= 5000; ++n) {
        int r = static_cast<int>(std::sqrt(static_cast<float>(n))) + 1;
        int c = 0;
        do {
            --r;
            c = n / r + (n % r != 0 ? 1 : 0);
        } while (r * c != n);

        GigapanToSPP converter;
        converter.Layout() = layoutOf(9, 9, 3, 7, 5);
        converter.ChooseInitialGrid(n);
        QCOMPARE(converter.Layout().rows, r);
        QCOMPARE(converter.Layout().columns, c);
        QCOMPARE(converter.Layout().bracket, 1);
        QCOMPARE(converter.Layout().ignore, 0);
        QCOMPARE(converter.Layout().mode, 3);
    }
}

void tst_GigapanToSPP::choosesTheGridOf_data()
{
    QTest::addColumn<int>("pictures");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");

    QTest::newRow("12") << 12 << 3 << 4;
    QTest::newRow("24") << 24 << 4 << 6;
    QTest::newRow("25") << 25 << 5 << 5;
    QTest::newRow("prime") << 7 << 1 << 7;
    QTest::newRow("one") << 1 << 1 << 1;
    QTest::newRow("largest, a prime") << kHuge << 1 << kHuge;
    QTest::newRow("largest square") << 46340 * 46340 << 46340 << 46340;
    QTest::newRow("none keeps the grid") << 0 << 9 << 8;
    QTest::newRow("below none") << -5 << 9 << 8;
}

void tst_GigapanToSPP::choosesTheGridOf()
{
    QFETCH(const int, pictures);
    QFETCH(const int, rows);
    QFETCH(const int, columns);

    GigapanToSPP converter;
    converter.Layout() = layoutOf(9, 8, 0, 3, 2);
    converter.ChooseInitialGrid(pictures);
    QCOMPARE(converter.Layout().rows, rows);
    QCOMPARE(converter.Layout().columns, columns);
    QCOMPARE(converter.Layout().bracket, 1);
    QCOMPARE(converter.Layout().ignore, 0);
}

void tst_GigapanToSPP::derivesColumns_data()
{
    QTest::addColumn<int>("pictures");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("bracket");
    QTest::addColumn<int>("ignore");
    QTest::addColumn<int>("columns");

    QTest::newRow("12 in 3 rows") << 12 << 3 << 1 << 0 << 4;
    QTest::newRow("14 with all") << 14 << 2 << 2 << 2 << 3;
    QTest::newRow("13 in 4 rows") << 13 << 4 << 1 << 0 << 3;
    QTest::newRow("24 in threes") << 24 << 4 << 3 << 0 << 2;
    QTest::newRow("brackets are cut first") << 11 << 2 << 3 << 0 << 1;
    QTest::newRow("more rows than pictures") << 3 << 4 << 1 << 0 << 0;
    QTest::newRow("more ignored than pictures") << 3 << 2 << 1 << 10 << -3;
    QTest::newRow("cut toward zero") << 3 << 2 << 2 << 10 << -1;
    QTest::newRow("no pictures") << 0 << 4 << 1 << 0 << 0;
    QTest::newRow("huge all") << 10 << kHuge << kHuge << kHuge << 0;
    QTest::newRow("negative ignore overflows") << kHuge << 1 << 1 << -kHuge << kHuge;
    QTest::newRow("rows below 1") << 12 << 0 << 1 << 0 << 77;
    QTest::newRow("bracket below 1") << 12 << 3 << 0 << 0 << 77;
    QTest::newRow("smallest over -1") << 0 << -1 << -1 << kHuge << 77;
}

void tst_GigapanToSPP::derivesColumns()
{
    QFETCH(const int, pictures);
    QFETCH(const int, rows);
    QFETCH(const int, bracket);
    QFETCH(const int, ignore);
    QFETCH(const int, columns);

    GigapanToSPP converter;
    converter.Layout() = layoutOf(rows, 77, 0, bracket, ignore);
    converter.DeriveColumns(pictures);
    QCOMPARE(converter.Layout().columns, columns);
}

void tst_GigapanToSPP::convertsAsTheRulesSay()
{
    for (int mode = 0; mode <= 4; ++mode) {
        for (int rows = 0; rows <= 6; ++rows) {
            for (int columns = 0; columns <= 6; ++columns) {
                for (int variant = 0; variant < 8; ++variant) {
                    const bool fullTurn = variant % 2 != 0;
                    const int bracket = variant % 4 < 2 ? 1 : 3;
                    const int ignore = variant < 4 ? 0 : 2;
                    const GigapanLayout layout = layoutOf(rows, columns, mode, bracket, ignore);
                    // Left-over pictures, and sometimes too few.
                    const int count = (rows * columns - variant % 3) * bracket + variant;
                    const QString expected
                        = dump(literalConvert(layout, pictures(count), fullTurn));
                    QCOMPARE(dump(convert(layout, count, fullTurn)), expected);
                }
            }
        }
    }
}

void tst_GigapanToSPP::groups_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("bracket");
    QTest::addColumn<int>("ignore");
    QTest::addColumn<QString>("expected");

    QTest::newRow("ignored and bracketed")
        << 14 << 2 << 2 << QStringLiteral("2,3 4,5 6,7 8,9 10,11 12,13");
    QTest::newRow("left over") << 8 << 1 << 0 << QStringLiteral("0 1 2 3 4 5");
    QTest::newRow("too few") << 5 << 1 << 2 << QStringLiteral("2 3 4");
    QTest::newRow("nothing past the last picture") << 5 << 3 << 0 << QStringLiteral("0,1,2 3,4");
    QTest::newRow("all ignored") << 5 << 1 << 5 << QString();
    QTest::newRow("no pictures") << 0 << 1 << 0 << QString();
    QTest::newRow("huge bracket") << 3 << kHuge << 1 << QStringLiteral("1,2");
    QTest::newRow("huge ignore") << 3 << 1 << kHuge << QString();
    QTest::newRow("negative ignore") << 2 << 1 << -4 << QStringLiteral("0 1");
    QTest::newRow("no bracket") << 3 << 0 << 0 << QString();
    QTest::newRow("negative bracket") << 3 << -2 << 0 << QString();
}

void tst_GigapanToSPP::groups()
{
    QFETCH(const int, count);
    QFETCH(const int, bracket);
    QFETCH(const int, ignore);
    QFETCH(const QString, expected);

    QStringList groups;
    const ProjectRecord record = convert(layoutOf(2, 3, 0, bracket, ignore), count, false);
    for (const QStringList &group : record.groups) {
        QStringList numbers;
        for (const QString &path : group)
            numbers << path.mid(3).chopped(4);
        groups << numbers.join(QLatin1Char(','));
    }
    QCOMPARE(groups.join(QLatin1Char(' ')), expected);
}

void tst_GigapanToSPP::linksCells_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("fullTurn");
    QTest::addColumn<QString>("expected");

    QTest::newRow("square") << 2 << 2 << 1 << false
                            << QStringLiteral("1:0-2 2:0-1 4:2-1 3:0-3 1:1-3 2:2-3");
    QTest::newRow("square, full turn")
        << 2 << 2 << 1 << true
        << QStringLiteral("1:0-2 2:0-1 4:2-1 3:0-3 1:1-3 2:1-0 4:3-0 3:1-2 2:2-3 2:3-2");
    QTest::newRow("one row") << 1 << 3 << 0 << false << QStringLiteral("2:0-1 2:1-2");
    QTest::newRow("one row, full turn")
        << 1 << 3 << 0 << true << QStringLiteral("2:0-1 2:1-2 2:2-0");
    QTest::newRow("one column") << 3 << 1 << 0 << false << QStringLiteral("1:0-1 1:1-2");
    QTest::newRow("one column, full turn, links to itself")
        << 2 << 1 << 0 << true << QStringLiteral("1:0-1 2:0-0 4:1-0 3:0-1 2:1-1");
    QTest::newRow("turning rows")
        << 3 << 2 << 4 << false
        << QStringLiteral("1:4-3 2:4-5 4:3-5 3:4-2 1:5-2 1:3-0 2:3-2 4:0-2 3:3-1 1:2-1 2:0-1");
    QTest::newRow("no columns") << 3 << 0 << 0 << true << QString();
    QTest::newRow("negative columns") << 3 << -3 << 2 << true << QString();
    QTest::newRow("negative rows and columns") << -3 << -3 << 3 << true << QString();
}

void tst_GigapanToSPP::linksCells()
{
    QFETCH(const int, rows);
    QFETCH(const int, columns);
    QFETCH(const int, mode);
    QFETCH(const bool, fullTurn);
    QFETCH(const QString, expected);

    // Links are made for every cell, whether it has pictures or not.
    for (const int count : {0, 1, 100}) {
        const ProjectRecord record = convert(layoutOf(rows, columns, mode), count, fullTurn);
        QCOMPARE(linksOf(record), expected);
        QCOMPARE(record.groups.size(), qMax(0, qMin(count, columns < 1 ? 0 : rows * columns)));
    }
}

void tst_GigapanToSPP::survivesAbsurdLayouts_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("links");

    // Rows set as high as their box goes while the columns are still those of a fresh page.
    QTest::newRow("highest rows") << 100'000 << 5 << 1'699'987;
    QTest::newRow("box limits") << 100'000 << 100'000 << 0;
    QTest::newRow("product overflows") << kHuge << kHuge << 0;
    QTest::newRow("rows overflow") << kHuge << 5 << 0;
    QTest::newRow("columns overflow") << 5 << kHuge << 0;
    QTest::newRow("product overflows to 0") << 65536 << 65536 << 0;
}

void tst_GigapanToSPP::survivesAbsurdLayouts()
{
    QFETCH(const int, rows);
    QFETCH(const int, columns);
    QFETCH(const int, links);

    for (int mode = 0; mode <= 4; ++mode) {
        const ProjectRecord record = convert(layoutOf(rows, columns, mode), 3, false);
        QCOMPARE(record.groups.size(), 3);
        QCOMPARE(record.links.size(), links);
        QCOMPARE(record.layoutRows, rows);
    }
}

void tst_GigapanToSPP::appendsToTheRecord()
{
    GigapanToSPP converter;
    converter.Layout() = layoutOf(1, 2, 1);
    converter.Convert(pictures(2), false);
    converter.Layout() = layoutOf(2, 1, 3, 2);
    converter.Convert(pictures(4), true);

    const ProjectRecord first = literalConvert(layoutOf(1, 2, 1), pictures(2), false);
    ProjectRecord expected = literalConvert(layoutOf(2, 1, 3, 2), pictures(4), true);
    expected.groups = first.groups + expected.groups;
    expected.links = first.links + expected.links;
    QCOMPARE(dump(converter.Record()), dump(expected));

    converter.ClearRecord();
    QCOMPARE(dump(converter.Record()), dump(ProjectRecord()));
}

QTEST_GUILESS_MAIN(tst_GigapanToSPP)
#include "tst_GigapanToSPP.moc"
