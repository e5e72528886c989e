// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/CubeTiles.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class tst_CubeTiles : public QObject {
    Q_OBJECT

private slots:
    void writes_data()
    {
        const Table<int, int, QString> row("width", "jobs", "levels");
        row("one tile a face", 64, 2, "6 of 16x16");
        row("no jobs", 64, 0, "6 of 16x16");
        row("narrower than a cube", 4, 1, "6 of 8x8");
        row("several tiles a face", 1648, 3,
            "6 of 260x260, 6 of 512x512|6 of 512x8|6 of 8x512|6 of 8x8");
    }
    /// Every tile is there, in its size, and progress ends with all of them.
    void writes()
    {
        QFETCH(int, width);
        QFETCH(int, jobs);
        const QTemporaryDir folder;
        QImage picture(width, width / 2, QImage::Format_RGB32);
        picture.fill(Qt::gray);
        int told = 0;
        int whole = 0;
        bool isCancelled = false;
        const auto progress = [&](const QString &, int done, int count) {
            told = std::max(told, done);
            whole = count;
            return true;
        };
        const CubeTiles tiles(width);
        QCOMPARE(tiles.write(folder.path(), picture, 0, jobs, progress, &isCancelled), QString());
        QVERIFY(!isCancelled);
        QStringList levels;
        int files = 0;
        for (int level = 1; level <= tiles.levels(); ++level) {
            QMap<QString, int> sizes;
            QDirIterator each(QDir(folder.path()).filePath(QString::number(level)), QDir::Files);
            while (each.hasNext()) {
                const QImage tile(each.next());
                ++sizes[QStringLiteral("%1x%2").arg(tile.width()).arg(tile.height())];
                ++files;
            }
            QStringList described;
            for (auto size = sizes.cbegin(); size != sizes.cend(); ++size)
                described.append(QStringLiteral("%1 of %2").arg(size.value()).arg(size.key()));
            levels.append(described.join(QLatin1Char('|')));
        }
        QTEST(levels.join(QStringLiteral(", ")), "levels");
        QCOMPARE(told, files);
        QCOMPARE(whole, files);
    }

    void failures_data()
    {
        const Table<QString, QString> row("inTheWay", "problem");
        row("a folder for a tile", "1/d0_0.jpg/x", "1/d0_0.jpg: cannot be written: ");
        row("a file for the folder", "1", "/1: cannot be written: ");
    }
    void failures()
    {
        QFETCH(QString, inTheWay);
        QFETCH(QString, problem);
        const QTemporaryDir folder;
        const QString path = folder.filePath(inTheWay);
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        bool isCancelled = false;
        const QString told = CubeTiles(64).write(
            folder.path(), QImage(64, 32, QImage::Format_RGB32), 0, 2, {}, &isCancelled);
        QVERIFY2(told.contains(problem) && !told.endsWith(problem), qUtf8Printable(told));
        QVERIFY(!isCancelled);
    }

    void cancels()
    {
        const QTemporaryDir folder;
        bool isCancelled = false;
        const auto progress = [](const QString &, int, int) { return false; };
        QCOMPARE(CubeTiles(3300).write(folder.path(), QImage(3300, 1650, QImage::Format_RGB32), 0,
                     2, progress, &isCancelled),
            QString());
        QVERIFY(isCancelled);
        QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("1"))));
    }
};

QTEST_GUILESS_MAIN(tst_CubeTiles)
#include "tst_CubeTiles.moc"
