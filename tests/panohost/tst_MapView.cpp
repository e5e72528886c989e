// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/MapView.h"
#include "tests/support/Table.h"

#include <QApplication>
#include <QSet>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace {

ProjectRecord grid(int rows, int columns)
{
    ProjectRecord record;
    for (int i = 0; i < rows * columns; ++i)
        record.groups.append({QStringLiteral("/%1.jpg").arg(i)});
    for (int i = 1; i < rows * columns; ++i)
        record.links.append({1, {i - 1, i}});
    record.layoutRows = rows;
    return record;
}

void wheel(QWidget &widget, const QPointF &at, int delta)
{
    QWheelEvent event(at, widget.mapToGlobal(at.toPoint()), {}, {0, delta}, Qt::NoButton,
        Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

class tst_MapView : public QObject {
    Q_OBJECT

private slots:
    void zoomsAndMoves()
    {
        MapView view;
        view.resize(600, 400);
        view.setRecord(grid(4, 6), std::nullopt, {});
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        const MapWindow all = view.shownPart();
        const auto isAll = [&] {
            return view.shownPart().scale == all.scale && view.shownPart().centre == all.centre;
        };

        QTest::keyClick(&view, Qt::Key_Right);
        QTest::keyClick(&view, Qt::Key_Minus);
        QVERIFY(isAll());

        // What lies under the mouse stays there.
        const QPointF at = view.shownPart().frame.topLeft() + QPointF(120, 130);
        const QPointF before = view.shownPart().toMap(at);
        for (int i = 0; i < 5; ++i)
            wheel(view, at, 120);
        QVERIFY(view.shownPart().scale > 2 * all.scale);
        const QPointF after = view.shownPart().toMap(at);
        QVERIFY((after - before).manhattanLength() < 0.5);

        const QPointF centre = view.shownPart().centre;
        QTest::keyClick(&view, Qt::Key_Right);
        QTest::keyClick(&view, Qt::Key_Down);
        QVERIFY(view.shownPart().centre.x() > centre.x());
        QVERIFY(view.shownPart().centre.y() > centre.y());
        QTest::mousePress(&view, Qt::LeftButton, {}, {300, 200});
        QTest::mouseMove(&view, {250, 180});
        QTest::mouseRelease(&view, Qt::LeftButton, {}, {250, 180});
        QVERIFY(view.shownPart().centre.x() > centre.x());

        for (int i = 0; i < 300; ++i) {
            QTest::keyClick(&view, Qt::Key_Plus);
            QTest::keyClick(&view, Qt::Key_Left);
        }
        QVERIFY(view.map()->layout().extent.contains(view.shownPart().centre));
        QVERIFY(view.shownPart().scale < 1e4);
        QTest::keyClick(&view, Qt::Key_0);
        QVERIFY(isAll());
        for (int i = 0; i < 20; ++i)
            wheel(view, at, -1200);
        QVERIFY(isAll());
    }

    void namesLocations()
    {
        MapView view;
        view.resize(600, 400);
        view.setRecord(grid(2, 3), std::nullopt, {});
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QCOMPARE(view.marked(), -1);
        for (const int location : {4, 0}) {
            const QPointF at = view.shownPart().toFrame(view.map()->layout().places[location].at);
            QTest::mouseMove(&view, at.toPoint());
            QTRY_COMPARE(view.marked(), location);
        }
        QTest::keyClick(&view, Qt::Key_PageUp);
        QCOMPARE(view.marked(), 5);
        QTest::keyClick(&view, Qt::Key_PageDown);
        QTest::keyClick(&view, Qt::Key_PageDown);
        QCOMPARE(view.marked(), 1);
        // A record set anew has nothing marked.
        view.setRecord(grid(1, 1), std::nullopt, {});
        QCOMPARE(view.marked(), -1);
    }

    void loadsPicturesInView()
    {
        QStringList asked;
        const auto source = [&asked](const QString &path) {
            asked += path;
            QImage picture(30, 20, QImage::Format_RGB32);
            picture.fill(Qt::red);
            return picture;
        };
        MapView view;
        view.resize(600, 400);
        view.setRecord(grid(4, 6), std::nullopt, source);
        view.show();
        QTRY_COMPARE(asked.size(), 24);
        QCOMPARE(QSet<QString>(asked.begin(), asked.end()).size(), 24);
        QTRY_COMPARE(view.grab().toImage().pixelColor(
                         view.shownPart().toFrame(view.map()->layout().places[7].at).toPoint()),
            QColor(Qt::red));
        // They are kept.
        view.repaint();
        QCOMPARE(asked.size(), 24);

        // Too small to be seen they are not asked for; close by all those in view are, and hardly
        // any others.
        asked.clear();
        view.setRecord(grid(100, 100), std::nullopt, source);
        view.grab();
        QVERIFY(asked.isEmpty());
        view.zoom(30, view.shownPart().frame.center());
        QTRY_VERIFY(!asked.isEmpty() && !view.isLoading());
        const MapWindow &part = view.shownPart();
        const auto places = view.map()->layout().places;
        const QSizeF cell = view.map()->layout().spacing * part.scale;
        const auto within = [&](const QRectF &area) {
            return std::count_if(places.begin(), places.end(),
                [&](const MapPlace &place) { return area.contains(part.toFrame(place.at)); });
        };
        const QRectF around
            = part.frame.adjusted(-cell.width(), -cell.height(), cell.width(), cell.height());
        QVERIFY2(asked.size() >= within(part.frame) && asked.size() <= within(around),
            qPrintable(QString::number(asked.size())));
        QCOMPARE(QSet<QString>(asked.begin(), asked.end()).size(), asked.size());
    }

    void survivesAnyRecord_data()
    {
        const Table<int> row("kind");
        row("none set", 0);
        row("empty", 1);
        row("no angles", 2);
        row("NaN", 3);
    }
    void survivesAnyRecord()
    {
        QFETCH(int, kind);
        MapView view;
        view.resize(300, 200);
        ProjectRecord record;
        if (kind >= 2)
            record.groups = {{QStringLiteral("/a.jpg")}, {}};
        if (kind == 3) {
            record.yaws = {NAN, 0};
            record.pitches = {0, NAN};
            record.links = {{2, {0, 1}}};
        }
        if (kind > 0)
            view.setRecord(record, std::nullopt, {});
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Plus,
                 Qt::Key_Left, Qt::Key_0, Qt::Key_Minus})
            QTest::keyClick(&view, key);
        wheel(view, {150, 100}, 120);
        QTest::mouseMove(&view, {150, 100});
        view.resize(1, 1);
        QVERIFY(!view.grab().isNull());
    }
};

QTEST_MAIN(tst_MapView)
#include "tst_MapView.moc"
