// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/WebFolder.h"
#include "tests/stitch/Browser.h"
#include "tests/support/Files.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cmath>

namespace {

/// Whether the build fetched what web folders need.
constexpr bool kHasViewer = HAS_VIEWER;

constexpr double kDegree = 3.14159265358979323846 / 180;

/// The scene: no two directions have the same colour.
QRgb colourOf(const Direction &d)
{
    const double length = std::hypot(d[0], d[1], d[2]);
    const auto part = [length](double x) { return int(std::lround(128 + 100 * x / length)); };
    return qRgb(part(d[0]), part(d[1]), part(d[2]));
}

bool isLike(QRgb a, QRgb b)
{
    constexpr int kTolerance = 6;
    return std::abs(qRed(a) - qRed(b)) <= kTolerance
        && std::abs(qGreen(a) - qGreen(b)) <= kTolerance
        && std::abs(qBlue(a) - qBlue(b)) <= kTolerance;
}

/// The scene as a picture.
QImage pictureOf(const Frame &frame)
{
    QImage picture(frame.crop.size(), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            line[x] = colourOf(*frame.unproject(frame.crop.topLeft() + QPointF(x + 0.5, y + 0.5)));
    }
    return picture;
}

/// What is wrong with \a screen as a view of the scene; empty when nothing. Angles in degrees.
QString misfit(const QImage &screen, double yaw, double pitch, double hfov)
{
    if (screen.isNull())
        return QStringLiteral("no picture");
    const double scale = std::tan(hfov / 2 * kDegree) / (screen.width() / 2.0);
    // The viewer's own buttons are in the upper left corner.
    for (int y = screen.height() / 8; y < screen.height(); y += screen.height() / 8) {
        for (int x = screen.width() / 4; x < screen.width(); x += screen.width() / 8) {
            const double u = (x + 0.5 - screen.width() / 2.0) * scale;
            const double v = (screen.height() / 2.0 - y - 0.5) * scale;
            const double up = v * std::cos(pitch * kDegree) + std::sin(pitch * kDegree);
            const double on = std::cos(pitch * kDegree) - v * std::sin(pitch * kDegree);
            const Direction d{u * std::cos(yaw * kDegree) + on * std::sin(yaw * kDegree), up,
                on * std::cos(yaw * kDegree) - u * std::sin(yaw * kDegree)};
            const QRgb seen = screen.pixel(x, y);
            if (!isLike(seen, colourOf(d)))
                return QStringLiteral("%1, %2 is #%3, not #%4")
                    .arg(x)
                    .arg(y)
                    .arg(seen, 0, 16)
                    .arg(colourOf(d), 0, 16);
        }
    }
    return {};
}

Frame fullSphere(int width)
{
    Frame frame;
    frame.canvas = QSize(width, width / 2);
    frame.crop = QRect(QPoint(), frame.canvas);
    return frame;
}

/// 300 degrees about yaw 30, from 50 degrees below to 20 above the horizon.
Frame part(int width)
{
    Frame frame;
    frame.angle = 300;
    frame.yaw = 30;
    frame.canvas = QSize(width, width * 100 / 300);
    frame.crop = QRect(0, width * 30 / 300, width, width * 70 / 300);
    return frame;
}

} // namespace

class tst_WebFolder : public QObject {
    Q_OBJECT

private:
    QString write(const WebFolder &folder, const Frame &frame, const Progress &progress = {}) const
    {
        const QString picture = m_folder.filePath(QStringLiteral("picture.jpg"));
        if (!pictureOf(frame).save(picture, "JPEG", 95))
            return QStringLiteral("the picture cannot be written");
        bool isCancelled = false;
        const Problem problem = writeWebFolder(
            folder, picture, frame, QStringLiteral("A <b> & c"), progress, &isCancelled);
        return isCancelled ? QStringLiteral("cancelled") : problem.text;
    }
    QString at(const Text &name) const { return m_folder.filePath(name); }

private slots:
    void initTestCase()
    {
        if (!kHasViewer)
            QSKIP("configured without the viewer");
    }

    void writesOverNothingElse()
    {
        const QString path = at("shop");
        const WebFolder folder{path, false, 1};
        const WebFolder forced{path, true, 1};
        QCOMPARE(write(folder, fullSphere(64)), QString());
        QVERIFY(QFile::exists(path + QStringLiteral("/viewer/COPYING")));
        QVERIFY(fileContent(path + QStringLiteral("/index.html"))
                    .contains("<title>A &lt;b&gt; &amp; c</title>"));
        QVERIFY(write(folder, fullSphere(64)).contains(QStringLiteral("exists already")));
        QCOMPARE(write(forced, fullSphere(64)), QString());

        QVERIFY(QFile::remove(path + QStringLiteral("/scene.js")));
        QVERIFY(write(forced, fullSphere(64)).contains(QStringLiteral("holds other things")));
        QVERIFY(QFile::exists(path + QStringLiteral("/picture.js")));
        QVERIFY(write({at("picture.jpg"), true, 1}, fullSphere(64))
                    .contains(QStringLiteral(": is no folder")));
        QVERIFY(QFile::link(at("nowhere"), at("lost")));
        QVERIFY(write({at("lost/"), true, 1}, fullSphere(64))
                    .contains(QStringLiteral(": is no folder")));
        QVERIFY(write({at("no/web"), true, 1}, fullSphere(64))
                    .contains(QStringLiteral("there is no folder")));
        // There is room for the name, but not for that of the folder it is made in.
        QVERIFY(write({at(QString(250, QLatin1Char('x'))), false, 1}, fullSphere(64))
                    .endsWith(QStringLiteral(": cannot be written: File name too long")));
    }

    // What comes in an older folder's place takes nothing else with it.
    void takesAnOldOnesPlace_data()
    {
        const Table<QString, bool> row("name", "isCancelled");
        row("plain", "old", false);
        row("slash at the end", "old/", false);
        row("link", "link", false);
        row("link, slash at the end", "link/", false);
        row("cancelled", "old/", true);
        row("new, slash at the end", "new/", false);
        row("new, cancelled", "new", true);
    }
    void takesAnOldOnesPlace()
    {
        QFETCH(QString, name);
        QFETCH(bool, isCancelled);
        const QTemporaryDir folder;
        const QDir disk(folder.path());
        const QString old = disk.filePath(QStringLiteral("old"));
        QCOMPARE(write({old, false, 1}, fullSphere(64)), QString());
        QVERIFY(disk.mkdir(QStringLiteral("old/mark")) && disk.mkdir(QStringLiteral("usual")));
        QVERIFY(QFile::link(old, disk.filePath(QStringLiteral("link"))));
        // Others' folders, whatever they are called.
        for (const char *other : {"part", "old", "123456"}) {
            for (const char *beside : {"old", "new", "link"})
                QVERIFY(disk.mkpath(
                    QStringLiteral("%1.%2/kept").arg(QLatin1String(beside), QLatin1String(other))));
        }
        QStringList expected = disk.entryList();

        const auto progress = [isCancelled](const QString &, int, int) { return !isCancelled; };
        QCOMPARE(write({disk.path() + QLatin1Char('/') + name, true, 2},
                     isCancelled ? part(8208) : fullSphere(64), progress),
            isCancelled ? QStringLiteral("cancelled") : QString());
        disk.refresh();
        const bool isNew = name.startsWith(QStringLiteral("new"));
        QCOMPARE(disk.exists(QStringLiteral("old/mark")), isCancelled || isNew);
        const QString made = isNew && !isCancelled ? QStringLiteral("new") : QStringLiteral("old");
        QVERIFY(disk.exists(made + QStringLiteral("/scene.js")));
        // Servers read it, too.
        QCOMPARE(QFile::permissions(disk.filePath(made)),
            QFile::permissions(disk.filePath(QStringLiteral("usual"))));
        QVERIFY(QFileInfo(disk.filePath(QStringLiteral("link"))).isSymLink());
        if (isNew && !isCancelled)
            expected.append(made);
        expected.sort();
        QStringList found = disk.entryList();
        found.sort();
        QCOMPARE(found, expected);
        for (const QString &other :
            disk.entryList({QStringLiteral("*.*")}, QDir::Dirs | QDir::NoDotAndDotDot))
            QVERIFY2(disk.exists(other + QStringLiteral("/kept")), qPrintable(other));
    }

    void views_data()
    {
        const Table<bool, int, bool> row("isPart", "width", "isServed");
        row("from disk", false, 1200, false);
        row("part, from disk", true, 1200, false);
        row("tiles, from a server", false, 8208, true);
        row("large, from disk", false, 8208, false);
        row("part, tiles, from a server", true, 8208, true);
    }
    /// Turned and zoomed by script.
    void views()
    {
        QFETCH(bool, isPart);
        QFETCH(int, width);
        QFETCH(bool, isServed);
        if (!Browser::isConfigured())
            QSKIP("configured without chromedriver");
        const Frame frame = isPart ? part(width) : fullSphere(width);
        const QString path = at(QStringLiteral("web-%1-%2").arg(isPart).arg(width));
        if (!QFile::exists(path))
            QCOMPARE(write({path, false, 2}, frame), QString());

        FolderServer server(path);
        Browser browser;
        QCOMPARE(browser.start(), QString());
        browser.open((isServed ? server.address() : QStringLiteral("file://%1/").arg(path))
            + QStringLiteral("index.html"));
        QTRY_VERIFY_WITH_TIMEOUT(
            browser.run(QStringLiteral("return Boolean(viewer && viewer.isLoaded());")).toBool(),
            20'000);
        const bool hasTiles
            = browser.run(QStringLiteral("return Boolean(viewer.getConfig().multiRes);")).toBool();
        QCOMPARE(hasTiles, isServed && width > 8192);

        struct Look {
            double yaw;
            double pitch;
            double hfov;
        };
        const QVector<Look> looks = isPart
            ? QVector<Look>{{0, -10, 60}, {40, -20, 55}}
            : QVector<Look>{{0, 0, 90}, {140, 35, 50}, {-90, -80, 70}, {20, 75, 60}};
        for (const Look &look : looks) {
            browser.run(QStringLiteral("viewer.lookAt(%1, %2, %3, false);")
                            .arg(look.pitch)
                            .arg(look.yaw)
                            .arg(look.hfov));
            // Tiles come when they are wanted.
            QString wrong;
            const auto looksRight = [&] {
                wrong = misfit(browser.screenshot(), look.yaw + frame.yaw, look.pitch, look.hfov);
                return wrong.isEmpty();
            };
            const bool isRight = QTest::qWaitFor(looksRight, 20'000);
            QVERIFY2(isRight,
                qUtf8Printable(QStringLiteral("looking at %1, %2: %3")
                                   .arg(look.yaw)
                                   .arg(look.pitch)
                                   .arg(wrong)));
        }
        QCOMPARE(server.missed(), 0);
    }

private:
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_WebFolder)
#include "tst_WebFolder.moc"
