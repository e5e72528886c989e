// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/RecordJson.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

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
            record.groups.append({m_folder->filePath(
                i == 0 ? QStringLiteral("one.png") : QStringLiteral("gone%1.jpg").arg(i))});
            record.yaws.append(float(i) / 2);
            record.pitches.append(0);
            if (i > 0)
                record.links.append({2, {i - 1, i}});
        }
        QImage picture(90, 60, QImage::Format_RGB32);
        picture.fill(QColor(0, 255, 0));
        QVERIFY(picture.save(m_folder->filePath(QStringLiteral("one.png"))));
        write(QStringLiteral("record.json"), recordToJson(record));
        write(QStringLiteral("broken.json"), "[1, 2");
        write(QStringLiteral("old.png"), "old");
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder.png")));
        // A file of the command's name must not stand in its way.
        write(QStringLiteral("map"), "");
    }

    void runs_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("says");
        QTest::addColumn<int>("pngWidth");

        const auto row = [](const char *name, const char *arguments, int exitCode, const char *says,
                             int pngWidth = 0) {
            QTest::newRow(name) << QString::fromLatin1(arguments) << exitCode
                                << QString::fromLatin1(says) << pngWidth;
        };
        row("usual width", "record.json --output map.png", 0, "", 1200);
        row("chosen width", "record.json --output map.png --width 500", 0, "", 500);
        row("capital suffix", "record.json --output map.PNG --width 100", 0, "");
        row("drawing", "--output map.svg record.json", 0, "");
        row("again", "record.json --output old.png", 0, "");
        row("help", "--help", 0, "");

        row("no such record", "gone.json --output map.png", 1, "gone.json: cannot be opened");
        row("no record in the file", "broken.json --output map.png", 1, "broken.json: ");
        row("over the record's picture", "record.json --output one.png", 1, "one.png: ");
        row("over a folder", "record.json --output folder.png", 1, "folder.png");
        row("into no folder", "record.json --output gone/map.png", 1, "gone/map.png");

        row("nothing", "", 2, "one record is wanted");
        row("two records", "record.json record.json --output map.png", 2, "one record is wanted");
        row("no output", "record.json", 2, "--output");
        row("other format", "record.json --output map.jpg", 2, "map.jpg");
        row("no number", "record.json --output map.png --width wide", 2, "--width");
        row("too narrow", "record.json --output map.png --width 99", 2, "--width");
        row("too wide", "record.json --output map.png --width 2147483648", 2, "--width");
        row("unknown option", "record.json --output map.png --colour", 2, "colour");
    }
    void runs()
    {
        QFETCH(QString, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, says);
        QFETCH(int, pngWidth);

        const QByteArray record = content(QStringLiteral("record.json"));
        const QByteArray picture = content(QStringLiteral("one.png"));
        const int exit = run(arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
        QVERIFY2(exit == exitCode, qPrintable(m_errors));
        QVERIFY2(m_errors.contains(says), qPrintable(m_errors));
        QCOMPARE(content(QStringLiteral("record.json")), record);
        QCOMPARE(content(QStringLiteral("one.png")), picture);
        QCOMPARE(QImage(m_folder->filePath(QStringLiteral("map.png"))).width(), pngWidth);
        if (arguments.contains(QLatin1String("map.svg")))
            QVERIFY(content(QStringLiteral("map.svg")).contains("</svg>"));
        if (arguments.contains(QLatin1String("old.png")))
            QCOMPARE(QImage(m_folder->filePath(QStringLiteral("old.png"))).width(), 1200);
    }

    void drawsPicturesAtHand()
    {
        const auto greens = [this] {
            const QImage map(m_folder->filePath(QStringLiteral("map.png")));
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
        const QStringList arguments{
            QStringLiteral("record.json"), QStringLiteral("--output"), QStringLiteral("map.png")};
        QCOMPARE(run(arguments), 0);
        QVERIFY(greens() > 1000);
        QVERIFY(QFile::remove(m_folder->filePath(QStringLiteral("one.png"))));
        QCOMPARE(run(arguments), 0);
        QCOMPARE(greens(), 0);
    }

    void namesDamagedPictures()
    {
        write(QStringLiteral("one.png"), content(QStringLiteral("one.png")).left(60));
        QCOMPARE(run({QStringLiteral("record.json"), QStringLiteral("--output"),
                     QStringLiteral("map.png")}),
            0);
        const QString damaged = QStringLiteral("panohost: %1: is no picture that can be read")
                                    .arg(m_folder->filePath(QStringLiteral("one.png")));
        QVERIFY2(m_errors.count(damaged) == 1, qPrintable(m_errors));
        // Pictures that are not at hand are no fault, and nothing else has a say.
        QCOMPARE(m_errors.count(QLatin1String("panohost:")), 1);
        QVERIFY2(!m_errors.contains(QLatin1String("QStandardPaths")), qPrintable(m_errors));
    }

    void speaksNoOtherLanguage()
    {
        // So near each other that the scale has fractions of a degree.
        ProjectRecord near;
        near.groups = {{QStringLiteral("a.jpg")}, {QStringLiteral("b.jpg")}};
        near.yaws = near.pitches = {0, 0.02F};
        write(QStringLiteral("record.json"), recordToJson(near));
        const auto drawn = [this](const char *lang, const char *languages) {
            qputenv("LC_ALL", lang);
            qputenv("LANGUAGE", languages);
            const int exit = run({QStringLiteral("record.json"), QStringLiteral("--output"),
                QStringLiteral("map.svg")});
            qputenv("LC_ALL", "C.UTF-8");
            qunsetenv("LANGUAGE");
            return exit == 0 ? content(QStringLiteral("map.svg")) : QByteArray();
        };
        const QByteArray english = drawn("C.UTF-8", "");
        QVERIFY(!english.isEmpty());
        QVERIFY(drawn("de_DE.UTF-8", "de:fr") == english);
    }

    void windowWantsDisplay()
    {
        for (const QStringList &arguments :
            {QStringList(), QStringList(QStringLiteral("one.png"))}) {
            QCOMPARE(runProgram(arguments), 1);
            QVERIFY2(m_errors.contains(QLatin1String("there is no display")), qPrintable(m_errors));
        }
    }

private:
    int run(const QStringList &arguments)
    {
        return runProgram(QStringList(QStringLiteral("map")) + arguments);
    }

    /// Without a display.
    int runProgram(const QStringList &arguments);
    QByteArray content(const QString &name) const;
    void write(const QString &name, const QByteArray &content) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_errors;
};

void tst_MapCommand::write(const QString &name, const QByteArray &content) const
{
    QFile file(m_folder->filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray tst_MapCommand::content(const QString &name) const
{
    QFile file(m_folder->filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int tst_MapCommand::runProgram(const QStringList &arguments)
{
    QProcess program;
    QProcessEnvironment bare = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        bare.remove(QLatin1String(name));
    program.setProcessEnvironment(bare);
    program.setWorkingDirectory(m_folder->path());
    program.start(QStringLiteral(PANOHOST), arguments);
    if (!program.waitForFinished(60'000) || program.exitStatus() != QProcess::NormalExit)
        return -1;
    m_errors = QString::fromLocal8Bit(program.readAllStandardError());
    return program.exitCode();
}

QTEST_GUILESS_MAIN(tst_MapCommand)
#include "tst_MapCommand.moc"
