// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/PictureFacts.h"
#include "tests/align/TestPicture.h"

#include <QDataStream>
#include <QDir>
#include <QLoggingCategory>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>
#include <atomic>
#include <cmath>
#include <sys/stat.h>
#include <thread>
#include <vector>

Q_DECLARE_METATYPE(Tags)

namespace {

/// A TIFF as raw files are built: tags, and a JPEG preview instead of pixels that Qt could read.
QByteArray rawFile(const QByteArray &preview, const QSize &size)
{
    struct Entry {
        quint16 tag, type;
        quint32 value;
    };
    constexpr quint16 kShort = 3;
    constexpr quint16 kLong = 4;
    constexpr int kEntries = 6;
    const quint32 previewOffset = 8 + 2 + 12 * kEntries + 4;
    const Entry entries[kEntries] = {
        {0x0100, kLong, quint32(size.width())},
        {0x0101, kLong, quint32(size.height())},
        {0x0103, kShort, 6},
        {0x0112, kShort, 8},
        {0x0201, kLong, previewOffset},
        {0x0202, kLong, quint32(preview.size())},
    };
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("II*\0", 4);
    stream << quint32(8) << quint16(kEntries);
    for (const Entry &entry : entries)
        stream << entry.tag << entry.type << quint32(1) << entry.value;
    stream << quint32(0);
    stream.writeRawData(preview.constData(), preview.size());
    return bytes;
}

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

private slots:
    void initTestCase()
    {
        // libjpeg complains of what is damaged here on purpose.
        QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    }

    void tags_data()
    {
        QTest::addColumn<Tags>("tags");
        QTest::addColumn<float>("focal");
        QTest::addColumn<int>("lensType");
        QTest::addColumn<double>("exposureValue");
        QTest::addColumn<int>("turn");

        QTest::newRow("no tags") << Tags{} << 0.0F << 0 << 0.0 << 0;
        QTest::newRow("everything") << Tags{{"Exif.Photo.FocalLengthIn35mmFilm", "24"},
            {"Exif.Photo.FocalLength", "16/1"}, {"Exif.Photo.ExposureTime", "1/100"},
            {"Exif.Photo.FNumber", "8/1"}, {"Exif.Photo.ISOSpeedRatings", "100"},
            {"Exif.Image.Orientation", "6"}, {"Exif.Photo.LensModel", "8mm F3.5 FISH-EYE"}}
                                    << 24.0F << 1 << std::log2(6400.0) << 90;

        // 22.5 x 15 mm: 3600 x 2400 pixels at 160 a millimetre, stated a centimetre, an inch...
        const Tags sensor{{"Exif.Photo.FocalLength", "10/1"},
            {"Exif.Photo.PixelXDimension", "3600"}, {"Exif.Photo.PixelYDimension", "2400"}};
        const auto with = [&sensor](Tags more) {
            more.insert(more.end(), sensor.begin(), sensor.end());
            return more;
        };
        QTest::newRow("crop, centimetres") << with({{"Exif.Photo.FocalPlaneXResolution", "1600/1"},
            {"Exif.Photo.FocalPlaneYResolution", "1600/1"},
            {"Exif.Photo.FocalPlaneResolutionUnit", "3"}})
                                           << 16.0F << 0 << 0.0 << 0;
        QTest::newRow("crop, inches by default, no vertical resolution")
            << with({{"Exif.Photo.FocalPlaneXResolution", "4064/1"}}) << 16.0F << 0 << 0.0 << 0;
        QTest::newRow("crop, tags in the first directory")
            << with({{"Exif.Image.FocalPlaneXResolution", "160/1"},
                   {"Exif.Image.FocalPlaneResolutionUnit", "4"}})
            << 16.0F << 0 << 0.0 << 0;
        QTest::newRow("crop that no sensor has")
            << with({{"Exif.Photo.FocalPlaneXResolution", "1/1"}}) << 0.0F << 0 << 0.0 << 0;
        QTest::newRow("film focal 0 is unknown") << with({{"Exif.Photo.FocalLengthIn35mmFilm", "0"},
            {"Exif.Photo.FocalPlaneXResolution", "4064/1"}})
                                                 << 16.0F << 0 << 0.0 << 0;
        QTest::newRow("focal without a sensor") << sensor << 0.0F << 0 << 0.0 << 0;
        QTest::newRow("divided by zero")
            << Tags{{"Exif.Photo.FocalLength", "10/0"}, {"Exif.Photo.FNumber", "0/0"},
                   {"Exif.Photo.FocalPlaneXResolution", "0/0"}, {"Exif.Photo.ExposureTime", "1/0"}}
            << 0.0F << 0 << 0.0 << 0;

        QTest::newRow("apex values") << Tags{{"Exif.Photo.ShutterSpeedValue", "6/1"},
            {"Exif.Photo.ApertureValue", "3/1"}, {"Exif.Photo.ISOSpeedRatings", "200"}}
                                     << 0.0F << 0 << 8.0 << 0;
        QTest::newRow("manual lens: no aperture")
            << Tags{{"Exif.Photo.ExposureTime", "1/64"}, {"Exif.Photo.FNumber", "0/1"}} << 0.0F << 0
            << 6.0 << 0;
        QTest::newRow("only an aperture")
            << Tags{{"Exif.Photo.FNumber", "8/1"}} << 0.0F << 0 << 0.0 << 0;
        QTest::newRow("absurd shutter speed")
            << Tags{{"Exif.Photo.ShutterSpeedValue", "2147483647/1"}} << 0.0F << 0 << 0.0 << 0;

        QTest::newRow("upside down")
            << Tags{{"Exif.Image.Orientation", "3"}} << 0.0F << 0 << 0.0 << 180;
        QTest::newRow("head left")
            << Tags{{"Exif.Image.Orientation", "8"}} << 0.0F << 0 << 0.0 << -90;
        QTest::newRow("no orientation")
            << Tags{{"Exif.Image.Orientation", "9"}} << 0.0F << 0 << 0.0 << 0;
        QTest::newRow("a lens that is none")
            << Tags{{"Exif.Photo.LensModel", "EF24-70mm"}} << 0.0F << 0 << 0.0 << 0;
    }
    void tags()
    {
        QFETCH(Tags, tags);
        const QString path = m_folder.filePath(QStringLiteral("tags.jpg"));
        writeJpeg(path, QSize(30, 20), tags);

        const PictureFacts facts = readPictureFacts(path, Thumbnail::Skip);

        QVERIFY2(facts.readable, qUtf8Printable(facts.reason));
        QCOMPARE(facts.size, QSize(30, 20));
        QTEST(facts.focal, "focal");
        QTEST(facts.lensType, "lensType");
        QTEST(facts.exposureValue, "exposureValue");
        QTEST(facts.uprightTurn(), "turn");
        QVERIFY(facts.thumbnail.isEmpty());
    }

    void exposureOrder()
    {
        QVector<float> brightness;
        for (const char *time : {"1/400", "1/100", "1/25", "1/25"}) {
            const QString path = m_folder.filePath(QStringLiteral("bracket.jpg"));
            writeJpeg(path, QSize(8, 8),
                {{"Exif.Photo.ExposureTime", time}, {"Exif.Photo.FNumber", "56/10"}});
            brightness.append(readPictureFacts(path, Thumbnail::Skip).brightness());
        }
        QVERIFY(brightness[0] < brightness[1]);
        QVERIFY(brightness[1] < brightness[2]);
        QVERIFY(brightness[2] == brightness[3]);
    }

    void unreadable_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("reason");

        QDir(m_folder.path()).mkdir(QStringLiteral("folder.jpg"));
        writeFile(m_folder.filePath(QStringLiteral("empty.jpg")), {});
        writeFile(m_folder.filePath(QStringLiteral("text.jpg")), "These are only words.");
        writeFile(m_folder.filePath(QStringLiteral("zeros.tif")), QByteArray(5000, '\0'));
        writeFile(m_folder.filePath(QStringLiteral("tags only.jpg")), "\xFF\xD8\xFF\xD9");
        writeFile(m_folder.filePath(QStringLiteral("xmp.jpg")),
            "<?xpacket?><x:xmpmeta xmlns:x='adobe:ns:meta/'/>");
        QFile::link(QStringLiteral("nowhere"), m_folder.filePath(QStringLiteral("link.jpg")));
        ::mkfifo(
            QFile::encodeName(m_folder.filePath(QStringLiteral("pipe.jpg"))).constData(), 0600);

        const auto row = [](const char *name, const char *reason) {
            QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(reason);
        };
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
        const QString whole = m_folder.filePath(QStringLiteral("whole.jpg"));
        writeJpeg(whole, flag({40, 30}), {{"Exif.Photo.FocalLengthIn35mmFilm", "24"}},
            jpegBytes(flag({16, 12})));
        const QByteArray bytes = fileContent(whole);
        const QString cut = m_folder.filePath(QStringLiteral("cut.jpg"));
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
        const QString whole = m_folder.filePath(QStringLiteral("whole.jpg"));
        writeJpeg(whole, flag({40, 30}),
            {{"Exif.Photo.FocalLengthIn35mmFilm", "24"}, {"Exif.Photo.ExposureTime", "1/100"}},
            jpegBytes(flag({16, 12})));
        const QByteArray bytes = fileContent(whole);
        const QString damaged = m_folder.filePath(QStringLiteral("damaged.jpg"));
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
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QImage>("embedded");
        QTest::addColumn<QString>("orientation");
        QTest::addColumn<QSize>("upright");
        QTest::addColumn<QByteArray>("colours");

        QTest::newRow("embedded") << QSize(400, 300) << flag({160, 120}) << QString()
                                  << QSize(160, 120) << QByteArray("rbgg");
        QTest::newRow("embedded, quarter turn")
            << QSize(400, 300) << flag({160, 120}) << QStringLiteral("6") << QSize(120, 160)
            << QByteArray("grgb");
        QTest::newRow("embedded, upside down")
            << QSize(400, 300) << flag({160, 120}) << QStringLiteral("3") << QSize(160, 120)
            << QByteArray("ggbr");
        QTest::newRow("embedded, mirrored")
            << QSize(400, 300) << flag({160, 120}) << QStringLiteral("2") << QSize(160, 120)
            << QByteArray("brgg");
        QTest::newRow("embedded, mirrored about the diagonal")
            << QSize(400, 300) << flag({160, 120}) << QStringLiteral("5") << QSize(120, 160)
            << QByteArray("rgbg");
        QImage barred = plainImage({160, 120}, Qt::black);
        QPainter(&barred).drawImage(0, 7, flag({160, 106}));
        QTest::newRow("black bars")
            << QSize(600, 400) << barred << QString() << QSize(160, 106) << QByteArray("rbgg");
        QTest::newRow("embedded, too large") << QSize(800, 600) << flag({640, 480}) << QString()
                                             << QSize(192, 144) << QByteArray("rbgg");
        QTest::newRow("none") << QSize(400, 300) << QImage() << QStringLiteral("8")
                              << QSize(144, 192) << QByteArray("bgrg");
        QTest::newRow("none, smaller than a thumbnail")
            << QSize(40, 30) << QImage() << QString() << QSize(40, 30) << QByteArray("rbgg");
        QTest::newRow("none, a strip")
            << QSize(5000, 4) << QImage() << QString() << QSize(192, 1) << QByteArray();
    }
    void thumbnails()
    {
        QFETCH(QSize, size);
        QFETCH(QImage, embedded);
        QFETCH(QString, orientation);
        QFETCH(QByteArray, colours);
        const QString path = m_folder.filePath(QStringLiteral("thumb.jpg"));
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
        const QString path = m_folder.filePath(QStringLiteral("a.nef"));
        writeFile(path, rawFile(jpegBytes(flag({640, 480})), {6000, 4500}));

        const PictureFacts facts = readPictureFacts(path, Thumbnail::Make);

        QVERIFY2(facts.readable, qUtf8Printable(facts.reason));
        QCOMPARE(facts.size, QSize(6000, 4500));
        QCOMPARE(uprightThumbnail(facts).size(), QSize(144, 192));
        QCOMPARE(quarters(uprightThumbnail(facts)), QByteArray("bgrg"));
    }

    void otherFormats()
    {
        const QString path = m_folder.filePath(QStringLiteral("a b.png"));
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
        const QString path = m_folder.filePath(QStringLiteral("shared.jpg"));
        writeJpeg(path, flag({400, 300}), {{"Exif.Photo.FocalLengthIn35mmFilm", "24"}});
        std::atomic<int> right = 0;
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
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
