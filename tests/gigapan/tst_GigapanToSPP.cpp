// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "gigapan/GigapanToSPP.h"
#include "tests/support/RecordDump.h"
#include "tests/support/Table.h"

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
    const bool byColumns = layout.mode == 0 || layout.mode == 3;
    for (int a = 0; a < (byColumns ? layout.columns : layout.rows); ++a) {
        for (int b = 0; b < (byColumns ? layout.rows : layout.columns); ++b, ++next) {
            if (layout.mode == 0)
                locations[b][a] = next;
            else if (layout.mode == 1)
                locations[a][b] = next;
            else if (layout.mode == 2)
                locations[layout.rows - 1 - a][b] = next;
            else if (layout.mode == 3)
                locations[b][layout.columns - 1 - a] = next;
            else
                locations[layout.rows - 1 - a][a % 2 == 0 ? b : layout.columns - 1 - b] = next;
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
    void choosesTheInitialGrid()
    {
        const auto chosen = [](int pictures) {
            GigapanToSPP converter;
            converter.Layout() = layoutOf(9, 8, 3, 7, 5);
            converter.ChooseInitialGrid(pictures);
            const GigapanLayout &layout = converter.Layout();
            return QVector<int>{
                layout.rows, layout.columns, layout.mode, layout.bracket, layout.ignore};
        };
        for (int n = 1; n <= 5000; ++n) {
            int r = static_cast<int>(std::sqrt(static_cast<float>(n))) + 1;
            int c = 0;
            do {
                --r;
                c = n / r + (n % r != 0 ? 1 : 0);
            } while (r * c != n);
            QCOMPARE(chosen(n), (QVector<int>{r, c, 3, 1, 0}));
        }
        QCOMPARE(chosen(kHuge), (QVector<int>{1, kHuge, 3, 1, 0})); // a prime
        QCOMPARE(chosen(46340 * 46340), (QVector<int>{46340, 46340, 3, 1, 0}));
        // None keep the grid.
        QCOMPARE(chosen(0), (QVector<int>{9, 8, 3, 1, 0}));
        QCOMPARE(chosen(-5), (QVector<int>{9, 8, 3, 1, 0}));
    }

    void derivesColumns_data()
    {
        const Table<int, int, int, int, int> row(
            "pictures", "rows", "bracket", "ignore", "columns");
        row("14 with all", 14, 2, 2, 2, 3);
        row("13 in 4 rows", 13, 4, 1, 0, 3);
        row("brackets are cut first", 11, 2, 3, 0, 1);
        row("more rows than pictures", 3, 4, 1, 0, 0);
        row("more ignored than pictures", 3, 2, 1, 10, -3);
        row("cut toward zero", 3, 2, 2, 10, -1);
        row("no pictures", 0, 4, 1, 0, 0);
        row("huge all", 10, kHuge, kHuge, kHuge, 0);
        row("negative ignore overflows", kHuge, 1, 1, -kHuge, kHuge);
        row("rows below 1", 12, 0, 1, 0, 77);
        row("bracket below 1", 12, 3, 0, 0, 77);
        row("smallest over -1", 0, -1, -1, kHuge, 77);
    }
    void derivesColumns()
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

    void convertsAsTheRulesSay()
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

    void groups_data()
    {
        const Table<int, int, int, QString> row("count", "bracket", "ignore", "expected");
        row("ignored and bracketed", 14, 2, 2, "2,3 4,5 6,7 8,9 10,11 12,13");
        row("nothing past the last picture", 5, 3, 0, "0,1,2 3,4");
        row("all ignored", 5, 1, 5, "");
        row("no pictures", 0, 1, 0, "");
        row("huge bracket", 3, kHuge, 1, "1,2");
        row("huge ignore", 3, 1, kHuge, "");
        row("negative ignore", 2, 1, -4, "0 1");
        row("no bracket", 3, 0, 0, "");
        row("negative bracket", 3, -2, 0, "");
    }
    void groups()
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

    void linksCells_data()
    {
        const Table<int, int, int, bool, QString> row(
            "rows", "columns", "mode", "fullTurn", "expected");
        row("square, full turn", 2, 2, 1, true,
            "1:0-2 2:0-1 4:2-1 3:0-3 1:1-3 2:1-0 4:3-0 3:1-2 2:2-3 2:3-2");
        row("one row, full turn", 1, 3, 0, true, "2:0-1 2:1-2 2:2-0");
        row("one column, full turn, links to itself", 2, 1, 0, true,
            "1:0-1 2:0-0 4:1-0 3:0-1 2:1-1");
        row("turning rows", 3, 2, 4, false,
            "1:4-3 2:4-5 4:3-5 3:4-2 1:5-2 1:3-0 2:3-2 4:0-2 3:3-1 1:2-1 2:0-1");
        row("no columns", 3, 0, 0, true, "");
        row("negative columns", 3, -3, 2, true, "");
        row("negative rows and columns", -3, -3, 3, true, "");
    }
    void linksCells()
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

    void survivesAbsurdLayouts_data()
    {
        const Table<int, int, int> row("rows", "columns", "links");
        // Rows set as high as their box goes while the columns are still those of a fresh page.
        row("highest rows", 100'000, 5, 1'699'987);
        row("box limits", 100'000, 100'000, 0);
        row("product overflows", kHuge, kHuge, 0);
        row("rows overflow", kHuge, 5, 0);
        row("columns overflow", 5, kHuge, 0);
        row("product overflows to 0", 65536, 65536, 0);
    }
    void survivesAbsurdLayouts()
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

    void appendsToTheRecord()
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
};

QTEST_GUILESS_MAIN(tst_GigapanToSPP)
#include "tst_GigapanToSPP.moc"
