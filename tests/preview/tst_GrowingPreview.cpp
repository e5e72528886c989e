// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "gigapan/GigapanPreview.h"
#include "preview/PreviewPane.h"

#include <QApplication>
#include <QPainter>
#include <QRandomGenerator>
#include <QScrollArea>
#include <QTest>
#include <algorithm>
#include <limits>

namespace {

/// Pictures of an own colour and shape each, one pixmap for all as hosts may have it.
class Thumbnails {
public:
    const QPixmap *operator()(int picture)
    {
        ++asked;
        const QSize size = picture % 3 == 0 ? QSize(80, 120) : QSize(120, 80);
        m_pixmap = QPixmap(size);
        m_pixmap.fill(QColor::fromHsv(picture * 47 % 360, 200, 255 - picture % 5 * 30));
        QPainter painter(&m_pixmap);
        painter.drawEllipse(10, 10, 30 + picture % 40, 50);
        return picture % 11 == 7 ? &m_none : &m_pixmap;
    }

    int asked = 0;

private:
    QPixmap m_pixmap;
    /// What a host gives whose picture has no thumbnail.
    QPixmap m_none;
};

PreviewScene positions(int count, double step, float roll, double smallestStep)
{
    QRandomGenerator random(count);
    QVector<HeadShot> shots;
    for (int k = 0; k < count; ++k) {
        HeadShot shot;
        // Up and down the columns, now and then somewhere else.
        const int column = k / 6;
        const int row = column % 2 ? 5 - k % 6 : k % 6;
        shot.yaw = float(k % 23 == 5 ? random.bounded(360) : column * step);
        shot.pitch = float(k % 23 == 5 ? random.bounded(90) : row * step);
        shot.roll = roll * float(k % 4);
        shots.append(shot);
    }
    return positionsScene(shots, rangesOf(shots), {smallestStep, QColor(250, 240, 230)});
}

PreviewScene grid(int rows, int mode, int pictures)
{
    GigapanLayout layout;
    layout.rows = rows;
    layout.columns = (pictures + rows - 1) / rows + 1;
    layout.mode = mode;
    layout.ignore = 3;
    return gridScene(layout, pictures, Qt::lightGray);
}

QPalette colours()
{
    return {QColor(60, 70, 80), QColor(200, 210, 220)};
}

QImage wholeDrawing(const PreviewScene &scene, const PreviewCanvas &canvas, int read)
{
    Thumbnails thumbnails;
    QPixmap image(canvas.size);
    QPainter painter(&image);
    paintPreview(
        painter, scene, canvas,
        [&](int picture) { return picture < read ? thumbnails(picture) : nullptr; }, colours());
    painter.end();
    return image.toImage();
}

/// Says where two drawings differ; empty when they do not.
QString difference(const QImage &found, const QImage &expected)
{
    if (found.size() != expected.size())
        return QStringLiteral("another size");
    if (found == expected)
        return {};
    for (int y = 0; y < found.height(); ++y) {
        for (int x = 0; x < found.width(); ++x) {
            if (found.pixel(x, y) != expected.pixel(x, y))
                return QStringLiteral("at %1, %2").arg(x).arg(y);
        }
    }
    return {};
}

} // namespace

Q_DECLARE_METATYPE(PreviewScene)

class tst_GrowingPreview : public QObject {
    Q_OBJECT

private slots:
    void growsToTheWholeDrawing_data()
    {
        QTest::addColumn<PreviewScene>("scene");
        QTest::addColumn<int>("zoom");
        QTest::addColumn<double>("density");
        const auto row
            = [](const char *name, const PreviewScene &scene, int zoom, double density = 1) {
                  QTest::newRow(name) << scene << zoom << density;
              };
        row("side by side", positions(60, 20, 0, 8), 50);
        row("overlapping", positions(150, 2, 0, 8), 50);
        row("overlapping, turned", positions(150, 2, 90, 8), 60);
        row("overlapping, turned askew", positions(40, 3, 33, 8), 50);
        row("full size", positions(60, 3, 0, 8), 100);
        row("tiny", positions(300, 4, 0, 8), 3);
        row("dense screen", positions(60, 3, 90, 8), 50, 2);
        row("one place", positions(30, 0, 0, 8), 50);
        row("no numbers", positions(30, std::numeric_limits<double>::quiet_NaN(), 0, 8), 50);
        row("grid by columns", grid(5, 0, 60), 50);
        row("grid by rows", grid(5, 1, 60), 50);
        row("grid in turning direction", grid(6, 4, 90), 30);
        row("grid, tiny", grid(9, 3, 400), 2);
        PreviewScene nothing;
        nothing.background = Qt::white;
        row("nothing", nothing, 50);
    }
    void growsToTheWholeDrawing()
    {
        QFETCH(const PreviewScene, scene);
        QFETCH(const int, zoom);
        QFETCH(const double, density);
        const QSize size = previewSize(scene, zoom) * density;
        const PreviewCanvas canvas{size.isEmpty() ? QSize(9, 9) : size, density};
        const int pictures = std::count_if(scene.cells.begin(), scene.cells.end(),
            [](const PreviewCell &cell) { return cell.picture >= 0; });
        const int first = scene.cells.value(0).picture;

        GrowingPreview preview(scene, canvas, colours());
        Thumbnails thumbnails;
        QPixmap shown = preview.start(0, 0, {});
        QCOMPARE(difference(shown.toImage(), wholeDrawing(scene, canvas, 0)), QString());

        QRandomGenerator random(zoom);
        int read = 0;
        while (read < first + pictures) {
            read = qMin(read + 1 + random.bounded(12), first + pictures);
            const int atATime = 1 + random.bounded(9);
            while (preview.isBehind(read))
                preview.grow(shown, read, atATime, std::ref(thumbnails));
            QCOMPARE(difference(shown.toImage(), wholeDrawing(scene, canvas, read)), QString());
        }
        QVERIFY(thumbnails.asked <= pictures);
        // More have been read than there are places for.
        QVERIFY(!preview.isBehind(read + 5));
    }

    // The window's other events come in between, and every stage is a drawing of the first
    // pictures.
    void paneDrawsManyBitByBit()
    {
        const PreviewScene scene = positions(900, 1, 0, 8);
        QScrollArea area;
        area.setPalette(colours());
        QSlider zoom;
        zoom.setValue(50);
        Thumbnails thumbnails;
        PreviewPane pane(&area, &zoom, std::ref(thumbnails));
        const auto drawing = [&] { return pane.label()->pixmap(Qt::ReturnByValue).toImage(); };
        const auto expected = [&](int read) {
            return wholeDrawing(scene, {previewSize(scene, 50), 1}, read);
        };

        pane.show(scene, 0);
        QVERIFY(!pane.isBusy());
        QCOMPARE(difference(drawing(), expected(0)), QString());
        pane.addPictures(10);
        QVERIFY(!pane.isBusy());
        QCOMPARE(difference(drawing(), expected(10)), QString());

        pane.addPictures(900);
        QVERIFY(pane.isBusy());
        const int afterFirstStep = thumbnails.asked;
        QVERIFY(afterFirstStep < 200);
        QCOMPARE(difference(drawing(), expected(afterFirstStep)), QString());
        QCoreApplication::processEvents();
        QVERIFY(thumbnails.asked > afterFirstStep && thumbnails.asked < 400);
        QTRY_VERIFY(!pane.isBusy());
        QCOMPARE(thumbnails.asked, 900);
        QCOMPARE(difference(drawing(), expected(900)), QString());
    }

    // A change in mid-drawing costs one drawing and leaves nothing of the one before.
    void paneStartsOver()
    {
        QScrollArea area;
        area.setPalette(colours());
        QSlider zoom;
        zoom.setValue(50);
        Thumbnails thumbnails;
        PreviewPane pane(&area, &zoom, std::ref(thumbnails));
        pane.show(positions(900, 1, 0, 8), 1500);
        QVERIFY(pane.isBusy());

        const PreviewScene turned = positions(800, 1, 90, 8);
        zoom.setValue(30);
        thumbnails.asked = 0;
        pane.show(turned, 700);
        QTRY_VERIFY(!pane.isBusy());
        QCOMPARE(thumbnails.asked, 700);
        QCOMPARE(difference(pane.label()->pixmap(Qt::ReturnByValue).toImage(),
                     wholeDrawing(turned, {previewSize(turned, 30), 1}, 700)),
            QString());

        pane.show(turned, 800);
        QVERIFY(pane.isBusy());
        pane.show({}, 0);
        QVERIFY(!pane.isBusy());
        QVERIFY(pane.label()->pixmap(Qt::ReturnByValue).isNull());
        pane.addPictures(5);
        QVERIFY(pane.label()->pixmap(Qt::ReturnByValue).isNull());
    }
};

QTEST_MAIN(tst_GrowingPreview)
#include "tst_GrowingPreview.moc"
