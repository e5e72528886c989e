// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/map/MapFile.h"
#include "apps/panohost/map/RecordMap.h"
#include "tests/support/Table.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(ProjectRecord)

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kPi = 3.14159265358979323846;

float radians(double degrees)
{
    return static_cast<float>(degrees * kPi / 180);
}

/// A location a direction, given as {yaw, pitch} in degrees.
ProjectRecord recordOf(const QVector<QPair<double, double>> &directions)
{
    ProjectRecord record;
    for (const auto &[yaw, pitch] : directions) {
        record.groups.append({QStringLiteral("/gone/%1.jpg").arg(record.groups.size())});
        record.yaws.append(radians(yaw));
        record.pitches.append(radians(pitch));
    }
    record.focal = 24;
    return record;
}

/// Columns all round, joined in the row and from row to row.
ProjectRecord sphere(int rows, int columns)
{
    QVector<QPair<double, double>> directions;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            directions.append({column * 360.0 / columns, (row - (rows - 1) / 2.0) * 120.0 / rows});
    ProjectRecord record = recordOf(directions);
    for (int i = 0; i < directions.size(); ++i) {
        const int right = i % columns == columns - 1 ? i + 1 - columns : i + 1;
        record.links.append({2, {i, right}});
        if (i + columns < directions.size())
            record.links.append({1, {i, i + columns}});
    }
    return record;
}

ProjectRecord grid(int rows, int columns, int mode, bool fullTurn)
{
    ProjectRecord record;
    for (int i = 0; i < rows * columns; ++i)
        record.groups.append({QStringLiteral("/gone/%1.jpg").arg(i)});
    record.layoutRows = rows;
    record.layoutMode = mode;
    record.layoutBracket = 1;
    record.fullTurn = fullTurn;
    record.overlap = 40;
    return record;
}

QString placesText(const MapLayout &layout)
{
    QStringList text;
    for (const MapPlace &place : layout.places)
        text += place.isKnown() ? QStringLiteral("%1/%2")
                                      .arg(qRound(place.at.x() * 10) / 10.0)
                                      .arg(qRound(place.at.y() * 10) / 10.0)
                                : QStringLiteral("-");
    return text.join(QLatin1Char(' '));
}

MapColours whitePaper()
{
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    return MapColours::of(palette);
}

struct Drawn {
    QImage image;
    MapWindow window;

    bool has(QRgb colour, const QPointF &at, int reach = 2) const
    {
        for (int y = -reach; y <= reach; ++y) {
            for (int x = -reach; x <= reach; ++x) {
                const QPoint pixel = at.toPoint() + QPoint(x, y);
                if (image.valid(pixel) && image.pixel(pixel) == colour)
                    return true;
            }
        }
        return false;
    }
};

Drawn draw(const RecordMap &map, const ThumbnailSource &thumbnails = {})
{
    Drawn drawn{QImage(800, 500, QImage::Format_RGB32), {}};
    drawn.image.fill(Qt::white);
    QPainter painter(&drawn.image);
    drawn.window = MapWindow::fitting(
        map.layout().extent, RecordMap::frameIn(drawn.image.rect(), QFontMetricsF(painter.font())));
    map.paint(painter, drawn.window, whitePaper(), thumbnails);
    return drawn;
}

} // namespace

class tst_RecordMap : public QObject {
    Q_OBJECT

private slots:
    void placesLocations_data()
    {
        QTest::addColumn<ProjectRecord>("record");
        QTest::addColumn<QString>("places");
        QTest::addColumn<bool>("hasProblem");

        const auto row = [](const char *name, const ProjectRecord &record, const char *places,
                             bool hasProblem = false) {
            QTest::newRow(name) << record << QString::fromLatin1(places) << hasProblem;
        };
        row("empty", {}, "", true);
        row("one", recordOf({{0, 0}}), "0/0");
        row("higher pitch is higher", recordOf({{0, 10}, {20, -30}}), "0/-10 20/30");
        row("yaws of more than a turn", recordOf({{350, 0}, {370, 0}, {-340, 0}}),
            "-10/0 10/0 20/0");
        row("half a turn behind lies in one piece", recordOf({{150, 0}, {180, 0}, {210, 0}}),
            "150/0 180/0 210/0");
        row("a full turn is cut behind", recordOf({{0, 0}, {90, 0}, {180, 0}, {270, 0}}),
            "0/0 90/0 180/0 -90/0");
        row("a column at the seam stays one",
            recordOf({{0, 0}, {90, 0}, {180.00001, 0}, {179.9999, 20}, {270, 0}, {-0.00001, 20}}),
            "0/0 90/0 180/0 180/-20 -90/0 0/-20");
        row("NaN and infinite angles",
            recordOf({{0, 0}, {kNan, 0}, {10, kNan}, {INFINITY, 1}, {20, -INFINITY}, {30, 0}}),
            "0/0 - - - - 30/0", true);
        row("absurd angles", recordOf({{0, 0}, {0, 1e30}, {30, 0}}), "0/0 - 30/0", true);
        row("nothing but NaN", recordOf({{kNan, kNan}, {kNan, 0}}), "- -", true);

        ProjectRecord stacks = recordOf({{0, 0}, {1, 1}, {30, 0}, {31, 1}});
        stacks.groups = {{QStringLiteral("a"), QStringLiteral("b")}, {QStringLiteral("c")}};
        row("two angles a location", stacks, "0/0 30/0");
        ProjectRecord few = recordOf({{0, 0}, {30, 0}, {60, 0}});
        few.pitches.resize(2);
        row("fewer angles than locations", few, "0/0 30/0 -", true);

        row("grid in columns", grid(2, 2, 0, false), "0/0 0/10 15/0 15/10");
        row("serpentine grid", grid(2, 2, 4, true), "0/10 15/10 15/0 0/0");
        ProjectRecord ragged = grid(2, 2, 1, false);
        ragged.groups.removeLast();
        row("grid with an empty cell", ragged, "0/0 15/0 0/10");
        ProjectRecord broken = grid(2, 3, 0, false);
        broken.layoutRows = 0;
        row("grid without rows", broken, "- - - - - -", true);
        broken.layoutRows = std::numeric_limits<int>::max();
        row("grid of absurd height", broken, "- - - - - -", true);
    }
    void placesLocations()
    {
        QFETCH(ProjectRecord, record);
        QFETCH(QString, places);
        QFETCH(bool, hasProblem);

        const RecordMap map(record);
        QCOMPARE(placesText(map.layout()), places);
        QCOMPARE(!map.layout().problem.isEmpty(), hasProblem);
        for (const MapPlace &place : map.layout().places)
            QVERIFY(!place.isKnown() || map.layout().extent.contains(place.at));
        QVERIFY(!map.layout().spacing.isEmpty());
        QVERIFY(map.layout().extent.width() > 0 && map.layout().extent.height() > 0);
        // Whatever the record, there is a picture of it.
        QVERIFY(!draw(map).image.isNull());
        for (int location = 0; location < record.groups.size(); ++location)
            QVERIFY(!map.describe(location).isEmpty());
    }

    void countsLinksByKind()
    {
        ProjectRecord record = recordOf({{0, 0}, {30, 0}, {60, kNan}, {90, 0}});
        record.links = {{2, {0, 1}}, {1, {0, 2}}, {9, {0, 1, 3}}, {2, {1, 99}}, {2, {-1, 0}},
            {2, {}}, {-3, {3, 3}}};
        const RecordMap map(record);
        QString text;
        for (const MapLinks &links : map.layout().links) {
            text += QStringLiteral("%1: %2").arg(links.kind).arg(links.count);
            for (const auto &[from, to] : links.lines)
                text += QStringLiteral(" %1-%2").arg(from).arg(to);
            text += QLatin1Char('\n');
        }
        QCOMPARE(text, QStringLiteral("-3: 1 3-3\n1: 1\n2: 4 0-1\n9: 1 0-1 1-3\n"));
    }

    void leadsLinksRoundTheBack()
    {
        ProjectRecord record
            = recordOf({{0, 40}, {60, -40}, {120, 40}, {180, 0}, {-120, 0}, {-60, 40}});
        record.links = {{2, {3, 4}}};
        ProjectRecord closed = grid(1, 5, 0, true);
        closed.links = {{2, {4, 0}}};
        for (const ProjectRecord &turn : {record, closed}) {
            const RecordMap map(turn);
            const Drawn drawn = draw(map);
            const QRgb colour = whitePaper().link(2).rgb();
            const MapLayout &layout = map.layout();
            const auto at = [&](double x) { return drawn.window.toFrame({x, 0}); };
            QVERIFY(drawn.has(colour, at(layout.extent.left() + 2)));
            QVERIFY(drawn.has(colour, at(layout.extent.right() - 2)));
            for (int i = 1; i < 4; ++i)
                QVERIFY(
                    !drawn.has(colour, at(layout.extent.left() + i * layout.extent.width() / 4)));
        }
    }

    void findsLocations()
    {
        const RecordMap map(sphere(3, 12));
        const MapLayout &layout = map.layout();
        for (int location = 0; location < layout.places.size(); ++location) {
            const QPointF at = layout.places[location].at;
            QCOMPARE(layout.locationAt(
                         at + QPointF(layout.spacing.width() / 4, -layout.spacing.height() / 6)),
                location);
        }
        QCOMPARE(layout.locationAt({15, 0}), -1);
        QCOMPARE(layout.locationAt({kNan, 0}), -1);
        QVERIFY(map.describe(7).contains(QLatin1String("7.jpg")));
    }

    void drawsPicturesWhereTheyAreAtHand()
    {
        const RecordMap map(sphere(1, 12));
        QVector<int> asked;
        const auto source = [&asked](int location, int) {
            asked += location;
            QImage picture(30, 20, QImage::Format_RGB32);
            picture.fill(Qt::red);
            return location == 4 ? picture : QImage();
        };
        const Drawn drawn = draw(map, source);
        const auto at
            = [&](int location) { return drawn.window.toFrame(map.layout().places[location].at); };
        QVERIFY(drawn.has(qRgb(255, 0, 0), at(4), 0));
        QVERIFY(!drawn.has(qRgb(255, 0, 0), at(5)));
        QCOMPARE(asked.size(), 12);

        // Where cells are too small for pictures nobody reads them.
        asked.clear();
        draw(RecordMap(sphere(50, 200)), source);
        QVERIFY(asked.isEmpty());
    }

    void writesFiles_data()
    {
        const Table<ProjectRecord, int, bool> row("record", "width", "hasLinks");
        row("sphere", sphere(3, 12), 1200, true);
        row("narrow", sphere(3, 12), 100, true);
        row("empty", ProjectRecord(), 640, false);
        row("one row of a thousand", sphere(1, 1000), 640, true);
        row("10,000 locations", sphere(50, 200), 1200, true);
    }
    void writesFiles()
    {
        QFETCH(ProjectRecord, record);
        QFETCH(int, width);
        QFETCH(bool, hasLinks);

        QTemporaryDir folder;
        QImage red(300, 200, QImage::Format_RGB32);
        red.fill(Qt::red);
        const QString picture = folder.filePath(QStringLiteral("red.jpg"));
        QVERIFY(red.save(picture, "JPG", 100));

        const QImage without = QImage::fromData(mapFile(record, MapFormat::Png, width), "PNG");
        QCOMPARE(without.width(), width);
        QVERIFY(without.height() > 20 && without.height() <= 3 * width);

        QXmlStreamReader svg(mapFile(record, MapFormat::Svg, width));
        QString texts;
        bool hasLinkColour = false;
        while (!svg.atEnd()) {
            if (svg.readNext() == QXmlStreamReader::Characters)
                texts += svg.text();
            hasLinkColour = hasLinkColour
                || svg.attributes().value(QLatin1String("stroke")) == whitePaper().link(2).name();
        }
        QVERIFY2(!svg.hasError(), qPrintable(svg.errorString()));
        QCOMPARE(hasLinkColour, hasLinks);
        QCOMPARE(texts.contains(RecordMap::linkName(2)), hasLinks);

        if (record.groups.size() != 36 || width < 1200)
            return;
        record.groups[5] = QStringList{picture};
        const QImage with = QImage::fromData(mapFile(record, MapFormat::Png, width), "PNG");
        QCOMPARE(with.size(), without.size());
        int reds = 0;
        for (int y = 0; y < with.height(); ++y) {
            for (int x = 0; x < with.width(); ++x) {
                const QColor now(with.pixel(x, y));
                if (now.red() > 240 && now.green() < 20 && now.blue() < 20)
                    ++reds;
            }
        }
        QVERIFY2(reds > 200, qPrintable(QString::number(reds)));
    }
};

QTEST_MAIN(tst_RecordMap)
#include "tst_RecordMap.moc"
