// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Radiance.h"
#include "stitch/Tags.h"
#include "tests/support/Files.h"

#include <OpenEXR/ImfRgbaFile.h>
#include <OpenEXR/ImfStandardAttributes.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <cstddef>
#include <exiv2/exiv2.hpp>
#include <limits>
#include <vector>

class tst_Radiance : public QObject {
    Q_OBJECT

private slots:
    // What blending leaves, on a canvas larger than the picture, becomes a picture that programs
    // can reckon with.
    void leavesLightOnly()
    {
        const QTemporaryDir folder;
        const QString blended = folder.filePath(QStringLiteral("blended.exr"));
        const QString result = folder.filePath(QStringLiteral("result.exr"));
        const QString source = folder.filePath(QStringLiteral("IMG_0001.jpg"));
        const float odd = std::numeric_limits<float>::quiet_NaN();
        {
            Imf::Header header({{0, 0}, {7, 9}}, {{4, 5}, {7, 6}});
            Imf::RgbaOutputFile file(
                QFile::encodeName(blended).constData(), header, Imf::WRITE_RGBA);
            const std::vector<Imf::Rgba> pixels{{-0.01F, 0, 60'000, 1}, {odd, 1, -odd, 0},
                {0.5F, -3, 2, 0.5F}, {1, 2, 3, 1}, {4, 5, 6, 1}, {7, 8, 9, 1}, {0, 0, 0, 0},
                {-7, -8, -9, 1}};
            constexpr std::ptrdiff_t kFirst = 4 + 5 * 4;
            file.setFrameBuffer(pixels.data() - kFirst, 1, 4);
            file.writePixels(2);
        }
        QImage picture(4, 4, QImage::Format_RGB32);
        picture.fill(Qt::gray);
        QVERIFY(picture.save(source));
        const auto image = Exiv2::ImageFactory::open(QFile::encodeName(source).toStdString());
        image->exifData()["Exif.Image.Copyright"] = "A. Nybody";
        image->exifData()["Exif.Photo.ExposureTime"] = "1/50";
        image->exifData()["Exif.GPSInfo.GPSLatitude"] = "33/1 30/1 0/1";
        image->exifData()["Exif.GPSInfo.GPSLatitudeRef"] = "S";
        image->exifData()["Exif.GPSInfo.GPSLongitude"] = "70/1 0/1 36/1";
        image->exifData()["Exif.GPSInfo.GPSLongitudeRef"] = "E";
        image->writeMetadata();

        Frame frame;
        frame.canvas = QSize(4, 2);
        frame.crop = QRect(0, 0, 4, 2);
        QCOMPARE(writeRadiance(blended, result, source, frame), QString());
        Imf::RgbaInputFile file(QFile::encodeName(result).constData());
        QVERIFY(file.dataWindow() == Imath::Box2i({0, 0}, {3, 1}));
        QVERIFY(file.displayWindow() == file.dataWindow());
        std::vector<Imf::Rgba> pixels(8);
        file.setFrameBuffer(pixels.data(), 1, 4);
        file.readPixels(0, 1);
        QStringList told;
        for (const Imf::Rgba &pixel : pixels)
            told.append(QStringLiteral("%1 %2 %3 %4")
                            .arg(double(pixel.r))
                            .arg(double(pixel.g))
                            .arg(double(pixel.b))
                            .arg(double(pixel.a)));
        QCOMPARE(told.join(QLatin1String(", ")),
            QStringLiteral("0 0 60000 1, 0 1 0 0, 0.5 0 2 0.5, 1 2 3 1, 4 5 6 1, 7 8 9 1, 0 0 0 0, "
                           "0 0 0 1"));
        const Imf::Header &header = file.header();
        QCOMPARE(Imf::owner(header).c_str(), "A. Nybody");
        QCOMPARE(Imf::expTime(header), 0.02F);
        QCOMPARE(Imf::latitude(header), -33.5F);
        QCOMPARE(Imf::longitude(header), 70.01F);
        QVERIFY(!Imf::hasAperture(header));
        QCOMPARE(int(Imf::envmap(header)), int(Imf::ENVMAP_LATLONG));
    }

    // Pictures without tags, or with useless ones, are pictures all the same.
    void sourcesWithoutTags_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");

        const auto row = [](const char *name, const QByteArray &content) {
            QTest::newRow(name) << QString::fromLatin1(name) << content;
        };
        row("grey.pgm", "P5\n2 2\n255\n\x01\x02\x03\x04");
        row("light.hdr", "#?RADIANCE\nFORMAT=32-bit_rle_rgbe\n\n-Y 1 +X 1\n\x80\x80\x80\x80");
        row("light.exr", "v/1\x01\x02");
        row("broken.jpg", "\xff\xd8\xff\xe1");
        row("empty.jpg", {});
        // Made below.
        row("no sides.jpg", {});
    }
    void sourcesWithoutTags()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        const QTemporaryDir folder;
        const QString source = folder.filePath(name);
        const QString blended = folder.filePath(QStringLiteral("blended.exr"));
        const QString light = folder.filePath(QStringLiteral("result.exr"));
        const QString result = folder.filePath(QStringLiteral("result.jpg"));
        QImage picture(4, 2, QImage::Format_RGB32);
        picture.fill(Qt::gray);
        QVERIFY(picture.save(result));
        writeFile(source, content);
        if (name.startsWith(QStringLiteral("no sides"))) {
            QVERIFY(picture.save(source));
            const auto image = Exiv2::ImageFactory::open(QFile::encodeName(source).toStdString());
            for (const char *tag : {"Exif.GPSInfo.GPSLatitude", "Exif.GPSInfo.GPSLongitude"}) {
                image->exifData()[tag] = "33/1 30/1 0/1";
                image->exifData()[tag + std::string("Ref")] = "";
            }
            image->writeMetadata();
        }

        Frame frame;
        frame.canvas = QSize(4, 2);
        frame.crop = QRect(0, 0, 4, 2);
        QCOMPARE(writeTags(result, source, frame), QString());
        const auto image = Exiv2::ImageFactory::open(QFile::encodeName(result).toStdString());
        image->readMetadata();
        QCOMPARE(image->xmpData()["Xmp.GPano.FullPanoWidthPixels"].toString().c_str(), "4");
        {
            Imf::RgbaOutputFile written(
                QFile::encodeName(blended).constData(), 4, 2, Imf::WRITE_RGBA);
            const std::vector<Imf::Rgba> pixels(8);
            written.setFrameBuffer(pixels.data(), 1, 4);
            written.writePixels(2);
        }
        QCOMPARE(writeRadiance(blended, light, source, frame), QString());
        QVERIFY(
            !Imf::hasLatitude(Imf::RgbaInputFile(QFile::encodeName(light).constData()).header()));
    }

    // What broke off is told of.
    void refusesWhatBrokeOff()
    {
        const QTemporaryDir folder;
        const QString broken
            = writeFile(folder.filePath(QStringLiteral("broken.exr")), "v/1\x01 and no more");
        const QString problem
            = writeRadiance(broken, folder.filePath(QStringLiteral("result.exr")), {}, {});
        QVERIFY2(problem.contains(QStringLiteral("result.exr: cannot be written: ")),
            qPrintable(problem));
    }
};

QTEST_GUILESS_MAIN(tst_Radiance)
#include "tst_Radiance.moc"
