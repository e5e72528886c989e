// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/PreviewDrawing.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QTest>
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
    void laysOutPositions_data();
    void laysOutPositions();
    void fitsSize_data();
    void fitsSize();
    void turnsThumbnails_data();
    void turnsThumbnails();
    void drawsWhatIsThere();
    void survivesAbsurdPositions_data();
    void survivesAbsurdPositions();
};

void tst_PreviewScene::laysOutPositions_data()
{
    QTest::addColumn<Positions>("positions");
    QTest::addColumn<double>("smallestStep");
    QTest::addColumn<QSizeF>("size");
    // Centre of the second shot.
    QTest::addColumn<QPointF>("second");

    QTest::newRow("one shot") << Positions{{10, -5}} << 8.0 << QSizeF(100, 100) << QPointF();
    // 96 pixels to 30 degrees: 3.2 to one.
    QTest::newRow("to the right") << Positions{{0, 0}, {30, 0}} << 8.0 << QSizeF(196, 100)
                                  << QPointF(146, 50);
    QTest::newRow("higher is higher")
        << Positions{{0, -15}, {0, 15}} << 8.0 << QSizeF(100, 196) << QPointF(50, 50);
    QTest::newRow("the smaller of both steps counts")
        << Positions{{0, 0}, {40, 20}} << 8.0 << QSizeF(292, 196) << QPointF(242, 50);
    QTest::newRow("steps of nothing do not count")
        << Positions{{0, 0}, {0, 0}, {48, 0}} << 8.0 << QSizeF(196, 100) << QPointF(50, 50);
    QTest::newRow("only consecutive shots count") << Positions{{0, 0}, {100, 0},
        {12, 0}} << 8.0 << QSizeF(209, 100) << QPointF(50 + 96 / 88.0 * 100, 50);
    QTest::newRow("no wider below the smallest step")
        << Positions{{0, 0}, {1, 0}} << 8.0 << QSizeF(112, 100) << QPointF(62, 50);
    QTest::newRow("any step without a smallest")
        << Positions{{0, 0}, {1, 0}} << 0.0 << QSizeF(196, 100) << QPointF(146, 50);
    QTest::newRow("never wider than a turn")
        << Positions{{0, 0}, {720, 0}} << 0.0 << QSizeF(292, 100) << QPointF(242, 50);
    QTest::newRow("sizes are cut")
        << Positions{{0, 0}, {7, 0}, {17, 0}} << 8.0 << QSizeF(304, 100) << QPointF(134, 50);
}

void tst_PreviewScene::laysOutPositions()
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

void tst_PreviewScene::fitsSize_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("height");
    QTest::addColumn<int>("zoom");
    QTest::addColumn<QSize>("size");
    QTest::newRow("half") << 1924.0 << 484.0 << 50 << QSize(962, 242);
    QTest::newRow("cut, not rounded") << 1999.0 << 199.0 << 33 << QSize(659, 65);
    QTest::newRow("at least a pixel") << 100.0 << 20.0 << 1 << QSize(1, 1);
    QTest::newRow("just fits a side") << 16384.0 << 100.0 << 100 << QSize(16384, 100);
    QTest::newRow("too wide") << 32768.0 << 100.0 << 100 << QSize(16384, 50);
    QTest::newRow("too high") << 100.0 << 65536.0 << 100 << QSize(25, 16384);
    QTest::newRow("too wide, zoomed out") << 32768.0 << 100.0 << 50 << QSize(16384, 50);
    // 16661 x (16384 / 16661) is a little below 16384 in floating point.
    QTest::newRow("no pixel lost") << 16661.0 << 100.0 << 100 << QSize(16384, 98);
    QTest::newRow("just fits the pixels") << 8000.0 << 4000.0 << 100 << QSize(8000, 4000);
    QTest::newRow("too many pixels") << 16000.0 << 8000.0 << 100 << QSize(8000, 4000);
    QTest::newRow("thin") << 1e30 << 100.0 << 100 << QSize(16384, 1);
    QTest::newRow("huge") << 1e30 << 1e30 << 100 << QSize(5656, 5656);
    QTest::newRow("infinite") << kInf << kInf << 100 << QSize(1, 1);
    QTest::newRow("no number") << kNaN << 484.0 << 50 << QSize(1, 242);
}

void tst_PreviewScene::fitsSize()
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

void tst_PreviewScene::turnsThumbnails_data()
{
    QTest::addColumn<float>("roll");
    QTest::addColumn<QString>("topLeft");
    QTest::addColumn<QString>("topRight");
    const QString red = QStringLiteral("#ff0000");
    const QString green = QStringLiteral("#00ff00");
    const QString blue = QStringLiteral("#0000ff");
    const QString yellow = QStringLiteral("#ffff00");
    QTest::newRow("upright") << 0.0F << red << green;
    QTest::newRow("clockwise") << 90.0F << blue << red;
    QTest::newRow("upside down") << 180.0F << yellow << blue;
    QTest::newRow("counter-clockwise") << -90.0F << green << yellow;
    QTest::newRow("many turns") << 90.0F + 360 * 1000 << blue << red;
}

void tst_PreviewScene::turnsThumbnails()
{
    QFETCH(float, roll);
    QVector<HeadShot> shots = shotsAt({{0, 0}});
    shots[0].roll = roll;
    const QPixmap thumbnail = quarters();
    const QImage image
        = draw(sceneOf(shots, 8), {100, 100}, [&](int) -> const QPixmap * { return &thumbnail; });
    QTEST(colourName(image, 26, 26), "topLeft");
    QTEST(colourName(image, 74, 26), "topRight");
}

// Pictures come in one by one: each cell shows its own, the others the ground within their frames.
void tst_PreviewScene::drawsWhatIsThere()
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

void tst_PreviewScene::survivesAbsurdPositions_data()
{
    QTest::addColumn<Positions>("positions");
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float inf = std::numeric_limits<float>::infinity();
    QTest::newRow("huge") << Positions{{-kHuge, kHuge}, {kHuge, -kHuge}};
    QTest::newRow("largest") << Positions{{-kMax, kMax}, {kMax, -kMax}, {0, 0}};
    QTest::newRow("tiny step") << Positions{{0, 0}, {1e-40F, 0}, {360, 90}};
    QTest::newRow("no numbers") << Positions{{nan, nan}, {0, nan}};
    QTest::newRow("infinite") << Positions{{inf, 0}, {-inf, 0}, {0, 0}};
}

void tst_PreviewScene::survivesAbsurdPositions()
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

QTEST_MAIN(tst_PreviewScene)
#include "tst_PreviewScene.moc"
