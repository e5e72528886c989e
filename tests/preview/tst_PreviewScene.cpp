// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/PreviewDrawing.h"
#include "tests/support/Table.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <cmath>
#include <limits>

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr float kHuge = 1e30F;
constexpr float kMax = std::numeric_limits<float>::max();

using Positions = QVector<QPair<float, float>>;

QVector<HeadShot> shotsAt(const Positions &positions)
{
    QVector<HeadShot> shots;
    for (const auto &[yaw, pitch] : positions) {
        HeadShot shot;
        shot.yaw = yaw;
        shot.pitch = pitch;
        shots.append(shot);
    }
    return shots;
}

PreviewScene sceneOf(const QVector<HeadShot> &shots, double smallestStep)
{
    return positionsScene(shots, rangesOf(shots), {smallestStep, Qt::white});
}

/// A picture of four quarters: red, green / blue, yellow.
QPixmap quarters()
{
    QPixmap picture(64, 64);
    QPainter painter(&picture);
    painter.fillRect(0, 0, 32, 32, Qt::red);
    painter.fillRect(32, 0, 32, 32, Qt::green);
    painter.fillRect(0, 32, 32, 32, Qt::blue);
    painter.fillRect(32, 32, 32, 32, Qt::yellow);
    return picture;
}

QImage draw(const PreviewScene &scene, QSize size, const ThumbnailSource &thumbnails)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    paintPreview(painter, scene, {size, 1}, thumbnails, QPalette(Qt::gray, Qt::gray));
    return image;
}

QString colourName(const QImage &image, int x, int y)
{
    return image.pixelColor(x, y).name();
}

} // namespace

Q_DECLARE_METATYPE(Positions)

class tst_PreviewScene : public QObject {
    Q_OBJECT

private slots:
    void laysOutPositions_data()
    {
        const Table<Positions, double, QSizeF, QPointF> row(
            "positions", "smallestStep", "size", "second");
        // Centre of the second shot.

        row("one shot", {{10, -5}}, 8.0, {100, 100}, {});
        // 96 pixels to 30 degrees: 3.2 to one.
        row("to the right", {{0, 0}, {30, 0}}, 8.0, {196, 100}, {146, 50});
        row("higher is higher", {{0, -15}, {0, 15}}, 8.0, {100, 196}, {50, 50});
        row("the smaller of both steps counts", {{0, 0}, {40, 20}}, 8.0, {292, 196}, {242, 50});
        row("steps of nothing do not count", {{0, 0}, {0, 0}, {48, 0}}, 8.0, {196, 100}, {50, 50});
        row("only consecutive shots count", {{0, 0}, {100, 0}, {12, 0}}, 8.0, {209, 100},
            {50 + 96 / 88.0 * 100, 50});
        row("no wider below the smallest step", {{0, 0}, {1, 0}}, 8.0, {112, 100}, {62, 50});
        row("any step without a smallest", {{0, 0}, {1, 0}}, 0.0, {196, 100}, {146, 50});
        row("never wider than a turn", {{0, 0}, {720, 0}}, 0.0, {292, 100}, {242, 50});
        row("sizes are cut", {{0, 0}, {7, 0}, {17, 0}}, 8.0, {304, 100}, {134, 50});
    }
    void laysOutPositions()
    {
        QFETCH(Positions, positions);
        QFETCH(double, smallestStep);
        QFETCH(QSizeF, size);
        QFETCH(QPointF, second);
        const PreviewScene scene = sceneOf(shotsAt(positions), smallestStep);
        QCOMPARE(QSizeF(scene.width, scene.height), size);
        QCOMPARE(scene.cells.size(), positions.size());
        for (int k = 0; k < scene.cells.size(); ++k) {
            QCOMPARE(scene.cells[k].picture, k);
            QCOMPARE(scene.cells[k].rect.size(), QSizeF(96, 96));
        }
        if (positions.size() > 1)
            QCOMPARE(scene.cells[1].rect.center(), second);
    }

    void fitsSize_data()
    {
        const Table<double, double, int, QSize> row("width", "height", "zoom", "size");
        row("half", 1924.0, 484.0, 50, {962, 242});
        row("cut, not rounded", 1999.0, 199.0, 33, {659, 65});
        row("at least a pixel", 100.0, 20.0, 1, {1, 1});
        row("just fits a side", 16384.0, 100.0, 100, {16384, 100});
        row("too wide", 32768.0, 100.0, 100, {16384, 50});
        row("too high", 100.0, 65536.0, 100, {25, 16384});
        row("too wide, zoomed out", 32768.0, 100.0, 50, {16384, 50});
        // 16661 x (16384 / 16661) is a little below 16384 in floating point.
        row("no pixel lost", 16661.0, 100.0, 100, {16384, 98});
        row("just fits the pixels", 8000.0, 4000.0, 100, {8000, 4000});
        row("too many pixels", 16000.0, 8000.0, 100, {8000, 4000});
        row("thin", 1e30, 100.0, 100, {16384, 1});
        row("huge", 1e30, 1e30, 100, {5656, 5656});
        row("infinite", kInf, kInf, 100, {1, 1});
        row("no number", kNaN, 484.0, 50, {1, 242});
    }
    void fitsSize()
    {
        QFETCH(double, width);
        QFETCH(double, height);
        QFETCH(int, zoom);
        PreviewScene scene;
        scene.width = width;
        scene.height = height;
        QVERIFY(previewSize(scene, zoom).isEmpty());
        scene.cells.append(PreviewCell());
        QTEST(previewSize(scene, zoom), "size");
    }

    void turnsThumbnails_data()
    {
        const Table<float, QString, QString> row("roll", "topLeft", "topRight");
        const QString red = QStringLiteral("#ff0000");
        const QString green = QStringLiteral("#00ff00");
        const QString blue = QStringLiteral("#0000ff");
        const QString yellow = QStringLiteral("#ffff00");
        row("upright", 0.0F, red, green);
        row("clockwise", 90.0F, blue, red);
        row("upside down", 180.0F, yellow, blue);
        row("counter-clockwise", -90.0F, green, yellow);
        row("many turns", 90.0F + 360 * 1000, blue, red);
    }
    void turnsThumbnails()
    {
        QFETCH(float, roll);
        QVector<HeadShot> shots = shotsAt({{0, 0}});
        shots[0].roll = roll;
        const QPixmap thumbnail = quarters();
        const QImage image = draw(
            sceneOf(shots, 8), {100, 100}, [&](int) -> const QPixmap * { return &thumbnail; });
        QTEST(colourName(image, 26, 26), "topLeft");
        QTEST(colourName(image, 74, 26), "topRight");
    }

    // Pictures come in one by one: each cell shows its own, the others the ground within their
    // frames.
    void drawsWhatIsThere()
    {
        const QPixmap thumbnail = quarters();
        QVector<int> asked;
        const auto onlySecond = [&](int picture) {
            asked.append(picture);
            return picture == 1 ? &thumbnail : nullptr;
        };
        const PreviewScene scene = sceneOf(shotsAt({{0, 0}, {40, 0}, {80, 0}}), 8);
        // Half the size, as on a page.
        const QImage image = draw(scene, previewSize(scene, 50), onlySecond);
        QCOMPARE(asked, (QVector<int>{0, 1, 2}));
        QCOMPARE(colourName(image, 13, 13), QStringLiteral("#ffffff"));
        QCOMPARE(colourName(image, 13 + 48, 13), QStringLiteral("#ff0000"));
        QCOMPARE(colourName(image, 13 + 96, 13), QStringLiteral("#ffffff"));
        QVERIFY(colourName(image, 1, 25) != QLatin1String("#ffffff"));
        QCOMPARE(scene.cells[1].caption, QStringLiteral("1 (40,0)"));

        QCOMPARE(colourName(draw(sceneOf({}, 8), {9, 9}, {}), 4, 4), QStringLiteral("#ffffff"));
    }

    void survivesAbsurdPositions_data()
    {
        const Table<Positions> row("positions");
        const float nan = std::numeric_limits<float>::quiet_NaN();
        const float inf = std::numeric_limits<float>::infinity();
        row("huge", {{-kHuge, kHuge}, {kHuge, -kHuge}});
        row("largest", {{-kMax, kMax}, {kMax, -kMax}, {0, 0}});
        row("tiny step", {{0, 0}, {1e-40F, 0}, {360, 90}});
        row("no numbers", {{nan, nan}, {0, nan}});
        row("infinite", {{inf, 0}, {-inf, 0}, {0, 0}});
    }
    void survivesAbsurdPositions()
    {
        QFETCH(Positions, positions);
        const QPixmap thumbnail = quarters();
        for (const double smallestStep : {0.0, 8.0}) {
            const PreviewScene scene = sceneOf(shotsAt(positions), smallestStep);
            const QSize size = previewSize(scene, 50);
            QVERIFY(!size.isEmpty());
            QVERIFY(qint64(size.width()) * size.height() <= 32'000'000);
            const QSize small = size.boundedTo({400, 400});
            draw(scene, small, [&](int) -> const QPixmap * { return &thumbnail; });
        }
    }
};

QTEST_MAIN(tst_PreviewScene)
#include "tst_PreviewScene.moc"
