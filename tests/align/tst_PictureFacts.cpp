// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/PictureFacts.h"
#include "tests/align/TestPicture.h"
#include "tests/support/Files.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QLoggingCategory>
#include <QPainter>
#include <QTemporaryDir>
#include <array>
#include <atomic>
#include <sys/stat.h>
#include <thread>

namespace {

/// Upper half blue, lower half green; the blue quarter at the left is red.
QImage flag(const QSize &size)
{
    QImage image = plainImage(size, Qt::green);
    QPainter painter(&image);
    painter.fillRect(0, 0, size.width(), size.height() / 2, Qt::blue);
    painter.fillRect(0, 0, size.width() / 2, size.height() / 2, Qt::red);
    return image;
}

/// The colours of the four quarters, by their first letters: upper left, upper right, lower left,
/// lower right.
QByteArray quarters(const QImage &image)
{
    QByteArray result;
    for (const int y : {1, 3}) {
        for (const int x : {1, 3}) {
            const QColor colour = image.pixelColor(image.width() * x / 4, image.height() * y / 4);
            const int largest = qMax(colour.red(), qMax(colour.green(), colour.blue()));
            result += largest < 60          ? 'k'
                : colour.red() == largest   ? 'r'
                : colour.green() == largest ? 'g'
                                            : 'b';
        }
    }
    return result;
}

} // namespace

class tst_PictureFacts : public QObject {
    Q_OBJECT

private:
    QString at(const Text &name) const { return m_folder.filePath(name); }

    /// A picture with tags and a thumbnail.
    QByteArray wholePicture() const
    {
        writeJpeg(at("whole.jpg"), flag({40, 30}),
            {{"Exif.Photo.FocalLengthIn35mmFilm", "24"}, {"Exif.Photo.ExposureTime", "1/100"}},
            jpegBytes(flag({16, 12})));
        return fileContent(at("whole.jpg"));
    }

private slots:
    void initTestCase()
    {
        // libjpeg complains of what is damaged here on purpose.
        QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    }

    void tags_data()
    {
        // What is told: focal length, lens type, exposure value and turn.
        const Table<QString, QString> row("tags", "told");
        row("no tags", "", "0 0 0 0");
        row("everything",
            "Photo.FocalLengthIn35mmFilm=24;Photo.FocalLength=16/1;Photo.ExposureTime=1/100;"
            "Photo.FNumber=8/1;Photo.ISOSpeedRatings=100;Image.Orientation=6;"
            "Photo.LensModel=8mm F3.5 FISH-EYE",
            "24 1 12.6438562 90");

        // 22.5 x 15 mm: 3600 x 2400 pixels at 160 a millimetre, stated a centimetre, an inch...
        const QString sensor = QStringLiteral(
            "Photo.FocalLength=10/1;Photo.PixelXDimension=3600;Photo.PixelYDimension=2400;");
        const auto crop = [&](const char *name, const char *more, const char *told) {
            row(name, sensor + QLatin1String(more), told);
        };
        crop("crop, centimetres",
            "Photo.FocalPlaneXResolution=1600/1;Photo.FocalPlaneYResolution=1600/1;"
            "Photo.FocalPlaneResolutionUnit=3",
            "16 0 0 0");
        crop("crop, inches by default, no vertical resolution",
            "Photo.FocalPlaneXResolution=4064/1", "16 0 0 0");
        crop("crop, tags in the first directory",
            "Image.FocalPlaneXResolution=160/1;Image.FocalPlaneResolutionUnit=4", "16 0 0 0");
        crop("crop that no sensor has", "Photo.FocalPlaneXResolution=1/1", "0 0 0 0");
        crop("film focal 0 is unknown",
            "Photo.FocalLengthIn35mmFilm=0;Photo.FocalPlaneXResolution=4064/1", "16 0 0 0");
        crop("focal without a sensor", "", "0 0 0 0");
        row("divided by zero",
            "Photo.FocalLength=10/0;Photo.FNumber=0/0;Photo.FocalPlaneXResolution=0/0;"
            "Photo.ExposureTime=1/0",
            "0 0 0 0");

        row("apex values",
            "Photo.ShutterSpeedValue=6/1;Photo.ApertureValue=3/1;Photo.ISOSpeedRatings=200",
            "0 0 8 0");
        row("manual lens: no aperture", "Photo.ExposureTime=1/64;Photo.FNumber=0/1", "0 0 6 0");
        row("only an aperture", "Photo.FNumber=8/1", "0 0 0 0");
        row("absurd shutter speed", "Photo.ShutterSpeedValue=2147483647/1", "0 0 0 0");
        row("upside down", "Image.Orientation=3", "0 0 0 180");
        row("head left", "Image.Orientation=8", "0 0 0 -90");
        row("no orientation", "Image.Orientation=9", "0 0 0 0");
        row("a lens that is none", "Photo.LensModel=EF24-70mm", "0 0 0 0");
    }
    void tags()
    {
        QFETCH(QString, tags);
        Tags list;
        for (const QString &tag : tags.split(QLatin1Char(';'), Qt::SkipEmptyParts))
            list.emplace_back("Exif." + tag.section(QLatin1Char('='), 0, 0).toStdString(),
                tag.section(QLatin1Char('='), 1).toStdString());
        writeJpeg(at("tags.jpg"), QSize(30, 20), list);

        const PictureFacts facts = readPictureFacts(at("tags.jpg"), Thumbnail::Skip);

        QVERIFY2(facts.readable, qUtf8Printable(facts.reason));
        QCOMPARE(facts.size, QSize(30, 20));
        QTEST(QStringLiteral("%1 %2 %3 %4")
                  .arg(double(facts.focal))
                  .arg(facts.lensType)
                  .arg(facts.exposureValue, 0, 'g', 9)
                  .arg(facts.uprightTurn()),
            "told");
        QVERIFY(facts.thumbnail.isEmpty());
    }

    void exposureOrder()
    {
        QVector<float> brightness;
        for (const char *time : {"1/400", "1/100", "1/25", "1/25"}) {
            writeJpeg(at("bracket.jpg"), QSize(8, 8),
                {{"Exif.Photo.ExposureTime", time}, {"Exif.Photo.FNumber", "56/10"}});
            brightness.append(readPictureFacts(at("bracket.jpg"), Thumbnail::Skip).brightness());
        }
        QVERIFY(brightness[0] < brightness[1] && brightness[1] < brightness[2]);
        QCOMPARE(brightness[2], brightness[3]);
    }

    void unreadable_data()
    {
        const Table<QString, QString> row("name", "reason");
        QDir(m_folder.path()).mkdir(QStringLiteral("folder.jpg"));
        writeFile(at("empty.jpg"), {});
        writeFile(at("text.jpg"), "These are only words.");
        writeFile(at("zeros.tif"), QByteArray(5000, '\0'));
        writeFile(at("tags only.jpg"), "\xFF\xD8\xFF\xD9");
        writeFile(at("xmp.jpg"), "<?xpacket?><x:xmpmeta xmlns:x='adobe:ns:meta/'/>");
        QFile::link(QStringLiteral("nowhere"), at("link.jpg"));
        ::mkfifo(QFile::encodeName(at("pipe.jpg")).constData(), 0600);
        row("missing.jpg", "no such file");
        row("folder.jpg", "is a folder");
        row("empty.jpg", "is empty");
        row("text.jpg", "is not a picture that can be read");
        row("zeros.tif", "is not a picture that can be read");
        row("tags only.jpg", "is cut short, the picture is not whole");
        row("xmp.jpg", "is not a picture that can be read");
        row("link.jpg", "the link leads nowhere");
        row("pipe.jpg", "is no regular file");
    }
    void unreadable()
    {
        QFETCH(QString, name);
        const PictureFacts facts = readPictureFacts(m_folder.filePath(name), Thumbnail::Make);
        QVERIFY(!facts.readable);
        QTEST(facts.reason, "reason");
    }

    void cutAnywhere()
    {
        const QByteArray bytes = wholePicture();
        const QString cut = at("cut.jpg");
        for (int length = 0; length < bytes.size(); ++length) {
            writeFile(cut, bytes.left(length));
            const PictureFacts facts = readPictureFacts(cut, Thumbnail::Make);
            QVERIFY2(
                !facts.readable && !facts.reason.isEmpty(), qPrintable(QString::number(length)));
        }
        // What a camera appends, here a whole second picture, is no fault.
        writeFile(cut, bytes + QByteArray(100'000, '\1') + bytes.left(bytes.size() / 2));
        QVERIFY(readPictureFacts(cut, Thumbnail::Make).readable);
    }

    void damagedAnywhere()
    {
        const QByteArray bytes = wholePicture();
        const QString damaged = at("damaged.jpg");
        for (int place = 0; place < bytes.size(); ++place) {
            QByteArray changed = bytes;
            changed[place] = static_cast<char>(changed[place] ^ 0xFF);
            writeFile(damaged, changed);
            const PictureFacts facts = readPictureFacts(damaged, Thumbnail::Make);
            QCOMPARE(facts.reason.isEmpty(), facts.readable);
            QVERIFY(facts.focal >= 0 && facts.orientation >= 1 && facts.orientation <= 8);
            uprightThumbnail(facts);
        }
    }

    void thumbnails_data()
    {
        const Table<QSize, QImage, QString, QSize, QByteArray> row(
            "size", "embedded", "orientation", "upright", "colours");
        const QImage small = flag({160, 120});
        row("embedded", {400, 300}, small, "", {160, 120}, "rbgg");
        row("embedded, quarter turn", {400, 300}, small, "6", {120, 160}, "grgb");
        row("embedded, upside down", {400, 300}, small, "3", {160, 120}, "ggbr");
        row("embedded, mirrored", {400, 300}, small, "2", {160, 120}, "brgg");
        row("embedded, mirrored about the diagonal", {400, 300}, small, "5", {120, 160}, "rgbg");
        QImage barred = plainImage({160, 120}, Qt::black);
        QPainter(&barred).drawImage(0, 7, flag({160, 106}));
        row("black bars", {600, 400}, barred, "", {160, 106}, "rbgg");
        row("embedded, too large", {800, 600}, flag({640, 480}), "", {192, 144}, "rbgg");
        row("none", {400, 300}, {}, "8", {144, 192}, "bgrg");
        row("none, smaller than a thumbnail", {40, 30}, {}, "", {40, 30}, "rbgg");
        row("none, a strip", {5000, 4}, {}, "", {192, 1}, "");
    }
    void thumbnails()
    {
        QFETCH(QSize, size);
        QFETCH(QImage, embedded);
        QFETCH(QString, orientation);
        QFETCH(QByteArray, colours);
        const QString path = at("thumb.jpg");
        Tags tags;
        if (!orientation.isEmpty())
            tags.emplace_back("Exif.Image.Orientation", orientation.toStdString());
        writeJpeg(path, flag(size), tags, embedded.isNull() ? QByteArray() : jpegBytes(embedded));

        const QImage thumbnail = uprightThumbnail(readPictureFacts(path, Thumbnail::Make));

        QTEST(thumbnail.size(), "upright");
        if (!colours.isEmpty())
            QCOMPARE(quarters(thumbnail), colours);
    }

    void rawByItsPreview()
    {
        const QString path = at("a.nef");
        writeFile(path, rawFile(jpegBytes(flag({640, 480})), {6000, 4500}, 8));

        const PictureFacts facts = readPictureFacts(path, Thumbnail::Make);

        QVERIFY2(facts.readable, qUtf8Printable(facts.reason));
        QCOMPARE(facts.size, QSize(6000, 4500));
        QCOMPARE(uprightThumbnail(facts).size(), QSize(144, 192));
        QCOMPARE(quarters(uprightThumbnail(facts)), QByteArray("bgrg"));
    }

    void otherFormats()
    {
        const QString path = at("a b.png");
        QVERIFY(flag({300, 200}).save(path));
        const PictureFacts facts = readPictureFacts(path, Thumbnail::Make);
        QVERIFY(facts.readable);
        QCOMPARE(facts.size, QSize(300, 200));
        QCOMPARE(uprightThumbnail(facts).size(), QSize(192, 128));

        // A header that claims what would take 400 GB to decode.
        QByteArray claim = fileContent(path);
        claim.replace(16, 8, QByteArray::fromHex("0004E2000004E200"));
        writeFile(path, claim);
        QVERIFY(readPictureFacts(path, Thumbnail::Make).thumbnail.isEmpty());
    }

    void besideOtherThreads()
    {
        const QString path = at("shared.jpg");
        writeJpeg(path, flag({400, 300}), {{"Exif.Photo.FocalLengthIn35mmFilm", "24"}});
        std::atomic<int> right = 0;
        std::array<std::thread, 4> threads;
        for (std::thread &thread : threads) {
            thread = std::thread([&] {
                for (int k = 0; k < 50; ++k)
                    right += readPictureFacts(path, Thumbnail::Make).focal == 24.0F;
            });
        }
        for (std::thread &thread : threads)
            thread.join();
        QCOMPARE(right.load(), 200);
    }

    void names()
    {
        for (const char *name : {"a.jpg", "A.JPEG", "b.c.Tif", "x.NEF"})
            QVERIFY2(isPictureName(QString::fromLatin1(name)), name);
        for (const char *name : {"a.xml", "jpg", "a.jpg.xmp", "pano.pto", "a.", "a.txt"})
            QVERIFY2(!isPictureName(QString::fromLatin1(name)), name);
    }

private:
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_PictureFacts)
#include "tst_PictureFacts.moc"
