// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/RecordJson.h"
#include "tests/support/Files.h"
#include "tests/support/Program.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

/// Runs the program in a folder with "record.json", "broken.json" and the record's one picture,
/// "one.png".
class tst_MapCommand : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        ProjectRecord record;
        for (int i = 0; i < 6; ++i) {
            record.groups.append({i == 0 ? at("one.png") : at("gone%1.jpg").arg(i)});
            record.yaws.append(float(i) / 2);
            record.pitches.append(0);
            if (i > 0)
                record.links.append({2, {i - 1, i}});
        }
        QImage picture(90, 60, QImage::Format_RGB32);
        picture.fill(QColor(0, 255, 0));
        QVERIFY(picture.save(at("one.png")));
        writeFile(at("record.json"), recordToJson(record));
        writeFile(at("broken.json"), "[1, 2");
        writeFile(at("old.png"), "old");
        QVERIFY(QDir().mkdir(at("folder.png")));
        // A file of the command's name must not stand in its way.
        writeFile(at("map"), "");
    }

    void runs_data()
    {
        const Table<QString, int, QByteArray, int> row("arguments", "exitCode", "says", "pngWidth");
        row("usual width", "record.json --output map.png", 0, "", 1200);
        row("chosen width", "record.json --output map.png --width 500", 0, "", 500);
        row("capital suffix", "record.json --output map.PNG --width 100", 0, "", 0);
        row("drawing", "--output map.svg record.json", 0, "", 0);
        row("again", "record.json --output old.png", 0, "", 0);
        row("help", "--help", 0, "", 0);

        row("no such record", "gone.json --output map.png", 1, "gone.json: cannot be opened", 0);
        row("no record in the file", "broken.json --output map.png", 1, "broken.json: ", 0);
        row("over the record's picture", "record.json --output one.png", 1, "one.png: ", 0);
        row("over a folder", "record.json --output folder.png", 1, "folder.png", 0);
        row("into no folder", "record.json --output gone/map.png", 1, "gone/map.png", 0);

        row("nothing", "", 2, "one record is wanted", 0);
        row("two records", "record.json record.json --output map.png", 2, "one record is wanted",
            0);
        row("no output", "record.json", 2, "--output", 0);
        row("other format", "record.json --output map.jpg", 2, "map.jpg", 0);
        row("no number", "record.json --output map.png --width wide", 2, "--width", 0);
        row("too narrow", "record.json --output map.png --width 99", 2, "--width", 0);
        row("too wide", "record.json --output map.png --width 2147483648", 2, "--width", 0);
        row("unknown option", "record.json --output map.png --colour", 2, "colour", 0);
    }
    void runs()
    {
        QFETCH(QString, arguments);
        QFETCH(int, exitCode);
        QFETCH(QByteArray, says);
        QFETCH(int, pngWidth);

        const QByteArray record = fileContent(at("record.json"));
        const QByteArray picture = fileContent(at("one.png"));
        const Run run = map(arguments);
        QVERIFY2(run.code == exitCode && run.err.contains(says), run.err);
        QCOMPARE(fileContent(at("record.json")), record);
        QCOMPARE(fileContent(at("one.png")), picture);
        QCOMPARE(QImage(at("map.png")).width(), pngWidth);
        if (arguments.contains(QLatin1String("map.svg")))
            QVERIFY(fileContent(at("map.svg")).contains("</svg>"));
        if (arguments.contains(QLatin1String("old.png")))
            QCOMPARE(QImage(at("old.png")).width(), 1200);
    }

    void drawsPicturesAtHand()
    {
        const auto greens = [this] {
            const QImage map(at("map.png"));
            int count = 0;
            for (int y = 0; y < map.height(); ++y) {
                for (int x = 0; x < map.width(); ++x) {
                    const QRgb pixel = map.pixel(x, y);
                    // Thumbnails are JPEG: nearly the picture's green.
                    count += qGreen(pixel) > 230 && qRed(pixel) < 40 && qBlue(pixel) < 40 ? 1 : 0;
                }
            }
            return count;
        };
        QCOMPARE(map("record.json --output map.png").failure(), QByteArray());
        QVERIFY(greens() > 1000);
        QVERIFY(QFile::remove(at("one.png")));
        QCOMPARE(map("record.json --output map.png").failure(), QByteArray());
        QCOMPARE(greens(), 0);
    }

    void namesDamagedPictures()
    {
        writeFile(at("one.png"), fileContent(at("one.png")).left(60));
        const Run run = map("record.json --output map.png");
        QCOMPARE(run.failure(), QByteArray());
        const QByteArray damaged
            = "panohost: " + at("one.png").toUtf8() + ": is no picture that can be read";
        QVERIFY2(run.err.count(damaged) == 1, run.err);
        // Pictures that are not at hand are no fault, and nothing else has a say.
        QCOMPARE(run.err.count("panohost:"), 1);
        QVERIFY2(!run.err.contains("QStandardPaths"), run.err);
    }

    void speaksNoOtherLanguage()
    {
        // So near each other that the scale has fractions of a degree.
        ProjectRecord near;
        near.groups = {{QStringLiteral("a.jpg")}, {QStringLiteral("b.jpg")}};
        near.yaws = near.pitches = {0, 0.02F};
        writeFile(at("record.json"), recordToJson(near));
        const auto drawn = [this](const Text &lang, const Text &languages) {
            QProcessEnvironment environment = bareEnvironment();
            environment.insert(QStringLiteral("LC_ALL"), lang);
            environment.insert(QStringLiteral("LANGUAGE"), languages);
            const Run run = panohost("map record.json --output map.svg", environment);
            return run.code == 0 ? fileContent(at("map.svg")) : QByteArray();
        };
        const QByteArray english = drawn("C.UTF-8", "");
        QVERIFY(!english.isEmpty());
        QVERIFY(drawn("de_DE.UTF-8", "de:fr") == english);
    }

    void windowWantsDisplay()
    {
        for (const char *arguments : {"", "one.png"}) {
            const Run run = panohost(arguments);
            QCOMPARE(run.code, 1);
            QVERIFY2(run.err.contains("there is no display"), run.err);
        }
    }

private:
    QString at(const Text &name) const { return m_folder->filePath(name); }
    Run panohost(
        const Text &arguments, const QProcessEnvironment &environment = bareEnvironment()) const
    {
        return run(PANOHOST, words(arguments), {m_folder->path(), {}, environment});
    }
    Run map(const Text &arguments) const { return panohost(QStringLiteral("map ") + arguments); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(tst_MapCommand)
#include "tst_MapCommand.moc"
