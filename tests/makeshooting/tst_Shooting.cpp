// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/makeshooting/CommandLine.h"
#include "apps/makeshooting/HeadFiles.h"
#include "apps/makeshooting/Rendering.h"
#include "apps/makeshooting/Studio.h"
#include "apps/makeshooting/Truth.h"
#include "clauss/ClaussToSPP.h"
#include "papywizard/MerlinToSPP.h"
#include "tests/support/Files.h"
#include "tests/support/Program.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <cmath>
#include <exiv2/exiv2.hpp>

using namespace makeshooting;

namespace {

CommandLine lineOf(const Text &arguments)
{
    return parseCommandLine(words(QStringLiteral("makeshooting ") + arguments));
}

Shooting planned(const Text &arguments)
{
    const CommandLine line = lineOf(QStringLiteral("--output x ") + arguments);
    if (!line.error.isEmpty())
        qFatal("%s", qPrintable(line.error));
    return planShooting(line.shooting);
}

/// All files of a folder with their names.
QMap<QString, QByteArray> filesIn(const QString &folder)
{
    QMap<QString, QByteArray> files;
    for (const QString &name : QDir(folder).entryList(QDir::Files))
        files.insert(name, fileContent(folder + QLatin1Char('/') + name));
    return files;
}

double linear(int level)
{
    const double v = level / 255.0;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

Vector direction(double yaw, double pitch)
{
    return Rotation::fromAngles({yaw, pitch, 0}).forward;
}

} // namespace

class TstShooting : public QObject {
    Q_OBJECT

private slots:
    void sphereIsCovered_data()
    {
        // 0 pictures: not looked at.
        const Table<QString, int> row("arguments", "pictures");
        row("--focal 20.3 --overlap 42", 38);
        row("--focal 50 --overlap 35", 114);
        row("--focal 100 --portrait tag", 0);
        row("--lens fisheye --focal 8", 0);
        row("--focal 28 --overlap 5", 0);
    }
    void sphereIsCovered()
    {
        QFETCH(const QString, arguments);
        QFETCH(const int, pictures);
        const Shooting shooting = planned(QStringLiteral("--sphere ") + arguments);
        if (pictures > 0)
            QCOMPARE(shooting.pictures.size(), pictures);
        QRandomGenerator random(2);
        for (int i = 0; i < 4000; ++i) {
            const double height = random.generateDouble() * 2 - 1;
            const double yaw = random.generateDouble() * 360;
            const Vector place = direction(yaw, std::asin(height) * 180 / M_PI);
            const bool seen = std::any_of(
                shooting.pictures.begin(), shooting.pictures.end(), [&](const Picture &picture) {
                    const Rotation &r = picture.rotation;
                    const Vector v{dot(r.right, place), dot(r.up, place), dot(r.forward, place)};
                    const double off = std::atan2(std::hypot(v.x, v.y), v.z);
                    if (shooting.camera.lens == Lens::Rectilinear && v.z <= 0)
                        return false;
                    const double radius = shooting.camera.focal
                        * (shooting.camera.lens == Lens::Fisheye ? off : std::tan(off));
                    const double turn = std::atan2(v.y, v.x);
                    return std::abs(radius * std::cos(turn)) <= shooting.camera.size.width() / 2.0
                        && std::abs(radius * std::sin(turn)) <= shooting.camera.size.height() / 2.0;
                });
            QVERIFY2(
                seen, qPrintable(QStringLiteral("yaw %1, sine of pitch %2").arg(yaw).arg(height)));
        }
    }

    void headFileSaysWhatWasPlanned_data()
    {
        const Table<QString> row("arguments");
        row("grid", "--rows 3 --columns 7 --full-turn");
        row("sphere, upright", "--sphere --portrait tag --focal 35");
        row("brackets and strays", "--brackets 3 --ignore 2 --leftover 1 --portrait pixels");
        row("fisheye behind a small sensor", "--lens fisheye --focal 12 --crop 1.5");
        row("VR Drive 2", "--format vrdrive2 --brackets 5 --head-step 0.005");
        row("Clauss, whole degrees", "--format clauss --rows 4 --columns 7 --full-turn");
        row("Clauss, fine steps", "--format clauss --head-step 0.005 --pitch-range -91.235,12.34");
        row("Clauss, brackets", "--format clauss --brackets 3 --order serpentine-up");
        row("errors stay out of it", "--head-error 2 --head-offset 3,4 --focal-error 5");
    }
    void headFileSaysWhatWasPlanned()
    {
        QFETCH(const QString, arguments);
        const Shooting shooting = planned(arguments);
        const ShootingOptions &options = shooting.options;
        const HeadFile file = headFile(shooting);
        const QTemporaryDir folder;
        const QString path = folder.filePath(file.name);
        writeFile(path, file.content);

        QVector<HeadShot> shots;
        if (options.format == HeadFormat::Clauss) {
            ClaussToSPP clauss;
            clauss.SetFullAngles(true);
            QVERIFY(clauss.ReadConfigFile(path));
            shots = clauss.Shots();
            if (options.headStep == 0)
                QVERIFY2(!file.content.contains('.'), "whole degrees have no decimals");
        } else {
            MerlinToSPP merlin;
            QStringList findings;
            QVERIFY(
                merlin.ReadXML(path, [&](const Finding &finding) { findings << finding.value; }));
            QCOMPARE(findings, QStringList());
            const PapywizardShooting &read = merlin.Shooting();
            shots = read.shots;
            QCOMPARE(read.bracketCount, options.brackets);
            QVERIFY(qAbs(read.focal - options.focal) < 1e-3);
            QCOMPARE(read.sensorCoef, options.crop);
            QCOMPARE(read.fisheye, options.lens == Lens::Fisheye);
            QCOMPARE(read.portrait, options.mounting != Mounting::Landscape);
            QVERIFY(read.comment.contains(QLatin1String("<on any map> &")));
        }
        QVector<Picture> pictures = shooting.pictures;
        pictures.erase(std::remove_if(pictures.begin(), pictures.end(),
                           [](const Picture &picture) { return picture.location < 0; }),
            pictures.end());
        QCOMPARE(shots.size(), pictures.size());
        for (int i = 0; i < shots.size(); ++i) {
            QCOMPARE(shots[i].yaw, static_cast<float>(pictures[i].nominalYaw));
            QCOMPARE(shots[i].pitch, static_cast<float>(pictures[i].nominalPitch));
            if (options.format != HeadFormat::Clauss) {
                QCOMPARE(shots[i].id, i + 1);
                QCOMPARE(shots[i].bracket, pictures[i].bracket + 1);
                QCOMPARE(shots[i].time, pictures[i].time);
            }
        }
    }

    void givenFileIsFollowed_data()
    {
        const Table<QString, QByteArray, QString, double, int> row(
            "name", "content", "arguments", "focal", "roll");
        const QByteArray xml
            = "<?xml version=\"1.0\"?>\n<r><header><camera><sensor coef=\"1.61\"/>"
              "<bracketing nbPicts=\"2\"/></camera><lens type=\" FishEye \"><focal>\n 10 "
              "</focal></lens><shooting><cameraOrientation> Portrait"
              "</cameraOrientation></shooting></header><shoot>"
              "<pict><position yaw=\"-144.00\" pitch=\"91.20\"/></pict>"
              "<pict><position yaw=\"-144.00\" pitch=\"91.20\"/></pict>"
              "<pict><position yaw=\"350.5\" pitch=\"-120\"/></pict>"
              "<pict><position yaw=\"350.5\" pitch=\"-120\"/></pict></shoot></r>\n";
        row("XML", "shooting.xml", xml, "", 16.1, 90);
        row("XML behind a byte order mark", "shooting.xml", "\xef\xbb\xbf" + xml, "", 16.1, 90);
        row("XML, overruled", "shooting.xml", xml,
            "--focal 24 --lens rectilinear --portrait pixels", 24.0, 0);
        const QByteArray script = "op_h-angle=-144\nop_v-angle=91.2\r\nop_shoot\nop_shoot\n"
                                  "op_h-angle=350.5\nop_v-angle=-120\nop_shoot\nop_shoot";
        row("Clauss script", "script.txt", script, "--focal 15 --brackets 2", 15.0, 0);
    }
    void givenFileIsFollowed()
    {
        QFETCH(const QString, name);
        QFETCH(const QByteArray, content);
        QFETCH(const QString, arguments);
        QFETCH(const double, focal);
        QFETCH(const int, roll);
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("given"));
        writeFile(path, content);
        const Shooting shooting = planned(QStringLiteral("--from %1 %2").arg(path, arguments));
        QCOMPARE(headFile(shooting).name, name);
        QCOMPARE(headFile(shooting).content, content);
        QVERIFY(qAbs(shooting.options.focal - focal) < 1e-9);
        QCOMPARE(shooting.pictures.size(), 4);
        const Angles wanted[] = {{-144, 91.2, double(roll)}, {350.5, -120, double(roll)}};
        for (int i = 0; i < 4; ++i) {
            const Rotation &rotation = shooting.pictures[i].rotation;
            const Rotation expected = Rotation::fromAngles(wanted[i / 2]);
            QVERIFY(dot(rotation.forward, expected.forward) > 1 - 1e-12);
            QVERIFY(dot(rotation.up, expected.up) > 1 - 1e-12);
            QCOMPARE(shooting.pictures[i].location, i / 2);
            QCOMPARE(shooting.pictures[i].ev, i % 2 == 0 ? -1.0 : 1.0);
        }
    }

    void unusableFilesAreRefused_data()
    {
        const Table<QByteArray, QString> row("content", "reason");
        const QByteArray pict = "<pict><position yaw=\"1\" pitch=\"2\"/></pict>";
        row("empty", "", "no shots");
        row("cut off", "<r><shoot>" + pict, "neither");
        row("no shots", "<r><shoot/></r>", "no shots");
        row("no focal length", "<r><shoot>" + pict + "</shoot></r>", "--focal");
        row("absurd focal length",
            "<r><shoot>" + pict + "</shoot><header><lens><focal>1e30</focal></lens></header></r>",
            "--focal");
        row("brackets do not fit",
            "<r><shoot>" + pict
                + "</shoot><header><camera><bracketing nbPicts=\"2147483647\"/></camera>"
                  "<lens><focal>20</focal></lens></header></r>",
            "2147483647");
        row("angle that is none", "op_h-angle=nan\nop_shoot\n", "neither");
        row("zero bytes", QByteArray(1000, '\0'), "no shots");
    }
    void unusableFilesAreRefused()
    {
        QFETCH(const QByteArray, content);
        QFETCH(const QString, reason);
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("given"));
        writeFile(path, content);
        const CommandLine line = lineOf(QStringLiteral("--output x --from ") + path);
        QVERIFY2(line.error.contains(path) && line.error.contains(reason), qPrintable(line.error));
        for (const QString &other : {folder.path(), folder.filePath(QStringLiteral("missing")),
                 QStringLiteral("/dev/zero")})
            QVERIFY(lineOf(QStringLiteral("--output x --from ") + other).error.contains(other));
    }

    /// Beyond the zenith the yaw comes out of rounding errors: 7e-15 degrees.
    void projectHoldsPlainNumbers()
    {
        const QByteArray project
            = truthPto(planned("--rows 1 --columns 1 --yaw-range 180,180 --pitch-range 91.2,91.2"));
        const QRegularExpression line(
            QStringLiteral("\\ni w900 h600 f0 v83\\.974424992 r-?180\\.0* p88\\.80* y-?0\\.0* a0 "
                           "b0\\.0* c0 Eev12\\.643856190 Er1 Eb1 n\"IMG_0001\\.jpg\"\\n"));
        QVERIFY2(QString::fromLatin1(project).contains(line), project.constData());
    }

    void errorsOfHeadAndLens()
    {
        const QString grid = QStringLiteral("--rows 10 --columns 50 --brackets 2 --portrait tag ");
        const Shooting exact = planned(grid);
        const Shooting wrong = planned(grid + QStringLiteral("--head-error 0.3"));
        double squares[3] = {};
        for (int i = 0; i < exact.pictures.size(); ++i) {
            const Rotation &is = wrong.pictures[i].rotation;
            const Rotation &should = exact.pictures[i].rotation;
            // Small turns: what one axis moves along another is the turn about the third.
            const double turns[] = {dot(is.forward, should.up), dot(is.forward, should.right),
                dot(is.up, should.right)};
            for (int axis = 0; axis < 3; ++axis)
                squares[axis] += turns[axis] * turns[axis];
            if (i % 2 == 1)
                QCOMPARE(dot(is.right, wrong.pictures[i - 1].rotation.right) > 1 - 1e-15, true);
        }
        for (const double sum : squares) {
            const double deviation = std::sqrt(sum / exact.pictures.size()) * 180 / M_PI;
            QVERIFY2(deviation > 0.27 && deviation < 0.33, qPrintable(QString::number(deviation)));
        }

        const Shooting shifted = planned("--head-offset 10,-4 --focal-error 5 --distortion -0.01");
        for (const Picture &picture : shifted.pictures) {
            const Rotation expected
                = Rotation::fromAngles({picture.nominalYaw + 10, picture.nominalPitch - 4, 0});
            QVERIFY(dot(picture.rotation.forward, expected.forward) > 1 - 1e-12);
        }
        QCOMPARE(shifted.camera.focal, nominalCamera(shifted.options).focal * 1.05);
        QCOMPARE(shifted.camera.distortion, -0.01);
    }

    void sceneKeepsItsPromises()
    {
        const auto sceneOf
            = [](const char *arguments) { return Scene(planned(arguments).options.scene); };
        const auto differs = [](const Colour &a, const Colour &b, float limit) {
            return std::abs(a.r - b.r) > limit || std::abs(a.g - b.g) > limit
                || std::abs(a.b - b.b) > limit;
        };
        const Scene plain = sceneOf("--sky 15");
        const Scene usual = sceneOf("");
        const Scene other = sceneOf("--seed 2");
        const Scene repeated = sceneOf("--repeat");
        const Scene blurred = sceneOf("--blurred-sky");
        int textured = 0;
        int reseeded = 0;
        int unique = 0;
        int notRepeated = 0;
        int patched = 0;
        for (double yaw = 0.13; yaw < 360; yaw += 0.5) {
            for (const double pitch : {15.2, 40.0, 80.0}) {
                QVERIFY(!differs(
                    plain.light(direction(yaw, pitch)), plain.light(direction(0, pitch)), 1e-6F));
                textured += differs(
                    usual.light(direction(yaw, pitch)), plain.light(direction(yaw, pitch)), 0.05F);
                patched += differs(
                    blurred.light(direction(yaw, 60)), plain.light(direction(yaw, 60)), 0.02F);
                // Without edges: half a degree changes little.
                QVERIFY(!differs(blurred.light(direction(yaw, 60)),
                    blurred.light(direction(yaw + 0.5, 60)), 0.02F));
            }
            for (const double pitch : {-60.0, -20.0, -8.0, -2.0, 1.0})
                reseeded += differs(
                    usual.light(direction(yaw, pitch)), other.light(direction(yaw, pitch)), 0.05F);
            // Towers stay unique.
            if (std::abs(std::remainder(yaw, 90)) < 5 || std::abs(std::remainder(yaw + 30, 90)) < 5)
                continue;
            // The sun shines on the repeated houses from one side, so they are not quite equal.
            for (const double pitch : {-20.0, -8.0, -2.0, 1.0}) {
                const auto unlike = [&](const Scene &scene) {
                    return differs(scene.light(direction(yaw, pitch)),
                        scene.light(direction(yaw + 30, pitch)), 0.2F);
                };
                unique += unlike(usual);
                notRepeated += unlike(repeated);
            }
        }
        QVERIFY2(notRepeated * 10 < unique,
            qPrintable(QStringLiteral("%1 of %2").arg(notRepeated).arg(unique)));
        QVERIFY(textured > 1000 && patched > 1000 && unique > 500 && reseeded > 1000);
    }

    void bracketsAreExposedAsTheySay()
    {
        const Shooting shooting = planned("--rows 1 --columns 1 --size 120x80 --brackets 3");
        const Scene scene(shooting.options.scene);
        QVector<QImage> images;
        for (int i = 0; i < 3; ++i)
            images << render(shooting, scene, i);
        double light[3] = {};
        int clipped = 0;
        for (int y = 0; y < 80; ++y) {
            for (int x = 0; x < 120; ++x) {
                clipped += qGreen(images[2].pixel(x, y)) == 255;
                const int brightest = qGreen(images[2].pixel(x, y));
                const int darkest = qGreen(images[0].pixel(x, y));
                if (brightest > 250 || darkest < 12)
                    continue;
                for (int i = 0; i < 3; ++i)
                    light[i] += linear(qGreen(images[i].pixel(x, y)));
            }
        }
        QVERIFY2(clipped > 500, "two stops over, the sky is white");
        QVERIFY2(std::abs(light[1] / light[0] - 4) < 0.1,
            qPrintable(QString::number(light[1] / light[0])));
        QVERIFY2(std::abs(light[2] / light[1] - 4) < 0.1,
            qPrintable(QString::number(light[2] / light[1])));
    }

    void noiseIsAsStrongAsAsked()
    {
        const QString camera
            = QStringLiteral("--rows 1 --columns 2 --size 200x120 --yaw-range 0,0 --focal 60 ");
        const Shooting clean = planned(camera);
        const Shooting noisy = planned(camera + QStringLiteral("--noise 5"));
        const Scene scene(clean.options.scene);
        const QImage truth = render(clean, scene, 0);
        const QImage first = render(noisy, scene, 0);
        const QImage second = render(noisy, scene, 1);
        double own = 0;
        double common = 0;
        int count = 0;
        for (int y = 0; y < 120; ++y) {
            for (int x = 0; x < 200; ++x) {
                const int level = qGreen(truth.pixel(x, y));
                if (level < 30 || level > 225)
                    continue; // where it clips
                const double a = qGreen(first.pixel(x, y)) - level;
                const double b = qGreen(second.pixel(x, y)) - level;
                own += a * a;
                common += a * b;
                ++count;
            }
        }
        QVERIFY(count > 5000);
        QVERIFY2(std::abs(std::sqrt(own / count) - 5) < 0.3,
            qPrintable(QString::number(std::sqrt(own / count))));
        QVERIFY2(std::abs(common / own) < 0.05, "two pictures have different noise");
    }

    void cameraWritesItsData_data()
    {
        // Orientation, focal length, the same on film, F number, exposure times of the stack, ISO.
        const Table<QString, QSize, QSize, QString> row("arguments", "size", "thumbnail", "tags");
        const QSize lying(240, 160);
        const QSize small(160, 106);
        row("", lying, small, "1|20.0 mm|20.0 mm|F8|1/100 s|100");
        row("--portrait tag", lying, small, "6|20.0 mm|20.0 mm|F8|1/100 s|100");
        row("--portrait pixels", {160, 240}, {80, 120}, "1|20.0 mm|20.0 mm|F8|1/100 s|100");
        row("--crop 1.5 --focal 24 --focal-error 7", lying, small,
            "1|16.0 mm|24.0 mm|F8|1/100 s|100");
        row("--brackets 3 --focal 35.7", lying, small,
            "1|35.7 mm|36.0 mm|F8|1/400 s 1/100 s 1/25 s|100");
    }
    void cameraWritesItsData()
    {
        QFETCH(const QString, arguments);
        QFETCH(const QSize, size);
        QFETCH(const QSize, thumbnail);
        QFETCH(const QString, tags);
        const QTemporaryDir folder;
        const Shooting shooting
            = planned(QStringLiteral("--size 240x160 --rows 1 --columns 1 ") + arguments);
        QCOMPARE(writeShooting(shooting, folder.path(), 0), QString());

        QStringList times;
        for (const Picture &picture : shooting.pictures) {
            const QString path = folder.filePath(picture.name);
            QCOMPARE(QImageReader(path).size(), size);
            const auto image = Exiv2::ImageFactory::open(path.toStdString());
            image->readMetadata();
            Exiv2::ExifData &exif = image->exifData();
            const auto print = [&](const char *key) {
                const auto datum = exif.findKey(Exiv2::ExifKey(key));
                return datum == exif.end() ? QStringLiteral("missing")
                                           : QString::fromStdString(datum->print(&exif));
            };
            times << print("Exif.Photo.ExposureTime");
            const QStringList found{QString::number(exif["Exif.Image.Orientation"].toLong()),
                print("Exif.Photo.FocalLength"), print("Exif.Photo.FocalLengthIn35mmFilm"),
                print("Exif.Photo.FNumber"), times.join(QLatin1Char(' ')),
                print("Exif.Photo.ISOSpeedRatings")};
            if (times.size() == shooting.pictures.size())
                QCOMPARE(found.join(QLatin1Char('|')), tags);
            QCOMPARE(print("Exif.Image.Model"), QStringLiteral("ZPanoHead makeshooting"));
            QCOMPARE(print("Exif.Photo.DateTimeOriginal"),
                picture.time.toString(QStringLiteral("yyyy:MM:dd hh:mm:ss")));
            const Exiv2::DataBuf bytes = Exiv2::ExifThumb(exif).copy();
            const QImage small
                = QImage::fromData(bytes.pData_, static_cast<int>(bytes.size_), "JPEG");
            QCOMPARE(small.size(), thumbnail);
        }
    }

    void filesAreTheSameWhateverTheThreads()
    {
        const QString arguments = QStringLiteral(
            "--size 150x100 --rows 2 --columns 3 --noise 2 --head-error 1 --ignore 1 --leftover 1");
        const QTemporaryDir one;
        const QTemporaryDir many;
        const QTemporaryDir other;
        QCOMPARE(writeShooting(planned(arguments), one.path(), 1), QString());
        QCOMPARE(writeShooting(planned(arguments), many.path(), 5), QString());
        QCOMPARE(writeShooting(planned(arguments + QStringLiteral(" --seed 9")), other.path(), 2),
            QString());
        const QMap<QString, QByteArray> files = filesIn(one.path());
        QCOMPARE(files.size(), 8 + 3);
        QVERIFY(filesIn(many.path()) == files);
        const QString picture = QStringLiteral("IMG_0003.jpg");
        QVERIFY(fileContent(other.filePath(picture)) != files.value(picture));

        const QJsonArray pictures
            = QJsonDocument::fromJson(files.value(QStringLiteral("truth.json")))
                  .object()
                  .value(QLatin1String("pictures"))
                  .toArray();
        const Shooting shooting = planned(arguments);
        QCOMPARE(pictures.size(), 8);
        for (int i = 0; i < pictures.size(); ++i) {
            const QJsonObject entry = pictures[i].toObject();
            const auto value
                = [&](const char *key) { return entry.value(QLatin1String(key)).toDouble(); };
            const Rotation told
                = Rotation::fromAngles({value("yaw"), value("pitch"), value("roll")});
            QCOMPARE(entry.value(QLatin1String("name")).toString(), shooting.pictures[i].name);
            QVERIFY(dot(told.forward, shooting.pictures[i].rotation.forward) > 1 - 1e-12);
            QVERIFY(dot(told.up, shooting.pictures[i].rotation.up) > 1 - 1e-12);
            QCOMPARE(entry.value(QLatin1String("location")).toInt(), i == 0 || i == 7 ? -1 : i - 1);
        }
    }

    void wrongUsageIsNamed_data()
    {
        const Table<QString, QString> row("arguments", "named");
        row("", "--output");
        row("--output x y", "\"y\"");
        row("--output x --rows 0", "--rows");
        row("--output x --rows 2.5", "--rows");
        row("--output x --columns 1e30", "--columns");
        row("--output x --rows 10000 --columns 10000", "pictures");
        row("--output x --sphere --focal 5000 --overlap 95", "pictures");
        row("--output x --focal nan", "--focal");
        row("--output x --focal -20", "--focal");
        row("--output x --overlap 100", "--overlap");
        row("--output x --size 900", "--size");
        row("--output x --size 900x-600", "--size");
        row("--output x --size 100000x100000", "--size");
        row("--output x --size 9.5x600", "--size");
        row("--output x --pitch-range 5", "--pitch-range");
        row("--output x --yaw-range 1,inf", "--yaw-range");
        row("--output x --format canon", "gigapan");
        row("--output x --order up", "serpentine-up");
        row("--output x --portrait yes", "pixels");
        row("--output x --seed -1", "--seed");
        row("--output x --distortion -0.1", "--distortion");
        row("--output x --distortion -0.06 --size 1200x300", "--distortion");
        row("--output x --format gigapan --sphere", "--sphere");
        row("--output x --from y --rows 3", "--rows");
        row("--output x --bogus", "bogus");
        row("--scene x --scene-width 1000000000", "--scene-width");
    }
    void wrongUsageIsNamed()
    {
        QFETCH(const QString, arguments);
        QFETCH(const QString, named);
        const CommandLine line = lineOf(arguments);
        QVERIFY2(line.error.contains(named), qPrintable(line.error));
    }

    void programRefusesToMixShootings()
    {
        const QTemporaryDir folder;
        const auto make = [](const QString &arguments) {
            return run(MAKESHOOTING, words("--size 60x40 --rows 1 --columns 2") + words(arguments));
        };
        const QString place = folder.filePath(QStringLiteral("new/one"));
        const QString first = place + QStringLiteral("/IMG_0001.jpg");
        QCOMPARE(make(QStringLiteral("--output ") + place).failure(), QByteArray());
        QCOMPARE(filesIn(place).size(), 2 + 3);
        writeFile(first, "precious");
        const Run mixed = make(QStringLiteral("--output ") + place);
        QVERIFY2(mixed.code == 1 && mixed.err.contains(place.toUtf8()), mixed.err);
        QCOMPARE(fileContent(first), QByteArray("precious"));
        QCOMPARE(make(QStringLiteral("--force --output ") + place).failure(), QByteArray());
        QVERIFY(fileContent(first) != "precious");

        const QString file = writeFile(folder.filePath(QStringLiteral("file")), "a file");
        const Run onFile = make(QStringLiteral("--output ") + file);
        QVERIFY2(onFile.code == 1 && onFile.err.contains(file.toUtf8()), onFile.err);
        QCOMPARE(make(QStringLiteral("--focal x")).code, 2);
    }
};

QTEST_GUILESS_MAIN(TstShooting)
#include "tst_Shooting.moc"
