// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/Files.h"
#include "tests/support/Program.h"
#include "tests/support/Table.h"

#include <QColorSpace>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cmath>
#include <csignal>
#include <exiv2/exiv2.hpp>

namespace {

/// Whether the build fetched what web folders need.
constexpr bool kHasViewer = HAS_VIEWER;

/// Peak signal to noise ratio in decibels of \a picture against \a scene.
double likeness(const QImage &picture, const QImage &scene)
{
    double sum = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb a = picture.pixel(x, y);
            const QRgb b = scene.pixel(x, y);
            for (const int difference :
                {qRed(a) - qRed(b), qGreen(a) - qGreen(b), qBlue(a) - qBlue(b)})
                sum += difference * difference;
        }
    }
    const double mean = sum / (3.0 * picture.width() * picture.height());
    return 10 * std::log10(255 * 255 / mean);
}

/// How much the brightness of \a picture against that of \a scene, in stops, differs from one part
/// to another.
double unevenness(const QImage &picture, const QImage &scene)
{
    const QImage a = picture.scaled(24, 12, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage b = scene.scaled(24, 12, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    double sum = 0;
    double squares = 0;
    int count = 0;
    for (int y = 1; y < 11; ++y) {
        for (int x = 0; x < 24; ++x, ++count) {
            const double stops
                = 2.2 * std::log2(double(qGray(a.pixel(x, y))) / qGray(b.pixel(x, y)));
            sum += stops;
            squares += stops * stops;
        }
    }
    return std::sqrt(squares / count - sum * sum / count / count);
}

/// Whether \a log tells of one bar that begins at most at a tenth, never goes back and comes beyond
/// half.
bool isOneBar(const QByteArray &log)
{
    int last = 10;
    bool isFirst = true;
    auto parts
        = QRegularExpression(QStringLiteral(", ([0-9]+) %")).globalMatch(QString::fromUtf8(log));
    while (parts.hasNext()) {
        const int part = parts.next().captured(1).toInt();
        if (part > 100 || (isFirst ? part > last : part < last))
            return false;
        isFirst = false;
        last = part;
    }
    return !isFirst && last > 50;
}

/// The share of pixels that are all but black.
double blackPart(const QImage &picture)
{
    int black = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            black += qGray(picture.pixel(x, y)) < 4;
    }
    return double(black) / (picture.width() * picture.height());
}

} // namespace

class tst_StitchCommand : public QObject {
    Q_OBJECT

private:
    QString at(const Text &name) const { return m_folder.filePath(name); }

    /// The folder, and \a path for PATH where given.
    Surroundings inFolder(const QString &path = {}) const
    {
        Surroundings surroundings{m_folder.path()};
        if (!path.isEmpty())
            surroundings.environment.insert(QStringLiteral("PATH"), path);
        return surroundings;
    }

    Run panohost(const Text &arguments, const QString &path = {}) const
    {
        return run(PANOHOST, words(arguments), inFolder(path));
    }

    void shoot(const Text &arguments) const
    {
        QCOMPARE(run(MAKESHOOTING, words(arguments), inFolder()).failure(), QByteArray());
    }

    /// A folder in front of PATH in which \a tool is a script.
    QString pathWith(const Text &tool, const QByteArray &script) const
    {
        const QString folder = at("bin");
        QDir(folder).removeRecursively();
        QDir().mkpath(folder);
        const QString file = QDir(folder).filePath(tool);
        writeFile(file, "#!/bin/sh\n" + script + "\n");
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return folder + QLatin1Char(':') + QString::fromLocal8Bit(qgetenv("PATH"));
    }

    QStringList filesIn(const Text &folder, const Text &pattern) const
    {
        return QDir(at(folder)).entryList({pattern}, QDir::Files, QDir::Name);
    }

private slots:
    void initTestCase()
    {
        shoot("--output sphere --sphere --size 180x120");
        shoot("--output brackets --format vrdrive2 --rows 1 --columns 6 --full-turn --brackets 3 "
              "--size 90x60");
        shoot("--output flat --format gigapan --rows 3 --columns 3 --focal 100 --size 180x120");
        shoot("--output two --rows 1 --columns 2 --size 120x80");
        shoot("--output fisheyes --sphere --lens fisheye --focal 10 --size 300x200");
        shoot("--output wide --rows 1 --columns 2 --size 240x16 --focal 10");
        shoot("--scene scene.png --scene-width 480");
        // RAW pictures begin like a TIFF; browsers' pictures like nothing the tools know.
        writeFile(at("raw.NEF"), QByteArray("II*\0\x08\0\0\0", 8));
        writeFile(at("web.jpg"), "RIFF\x20\0\0\0WEBP");
        QByteArray project = fileContent(at("two/truth.pto"));
        writeFile(at("foreign.pto"),
            project.replace("IMG_0001.jpg", "raw.NEF").replace("IMG_0002.jpg", "web.jpg"));
    }

    void cleanup()
    {
        for (const QString &name :
            QDir(m_folder.path()).entryList({QStringLiteral("pano*")}, QDir::AllEntries)) {
            QFile::remove(at(name));
            QDir(at(name)).removeRecursively();
        }
    }

    void sphereLooksLikeTheScene()
    {
        const Run run = panohost("stitch --project sphere/truth.pto --output pano.jpg --width 480");
        QVERIFY2(run.code == 0, run.err);
        QCOMPARE(run.out.mid(run.out.indexOf("pano.jpg")),
            QByteArray("pano.jpg: 480 x 240 pixels, equirectangular\n"));
        const QImage picture(at("pano.jpg"));
        QCOMPARE(picture.size(), QSize(480, 240));
        const double decibels = likeness(picture, QImage(at("scene.png")));
        QVERIFY2(decibels > 25, qPrintable(QString::number(decibels)));
        QCOMPARE(picture.colorSpace(), QColorSpace(QColorSpace::SRgb));
        QVERIFY(!QFile::exists(at("pano.jpg.work")));
    }

    /// Every second picture is darker than it says, and all are darker at their corners.
    void evensOut()
    {
        QDir().mkpath(at("uneven"));
        QFile::remove(at("uneven/truth.pto"));
        QVERIFY(QFile::copy(at("sphere/truth.pto"), at("uneven/truth.pto")));
        int count = 0;
        for (const QString &name : filesIn("sphere", "*.jpg")) {
            QImage picture(at(QStringLiteral("sphere/") + name));
            const double diagonal = std::hypot(picture.width(), picture.height()) / 2;
            const double gain = count++ % 2 == 0 ? 1 : 0.6;
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x) {
                    const double r
                        = std::hypot(x - picture.width() / 2.0, y - picture.height() / 2.0)
                        / diagonal;
                    const double factor = std::pow(gain * (1 - 0.4 * r * r), 1 / 2.2);
                    const auto dim = [factor](int level) { return int(level * factor); };
                    const QRgb p = picture.pixel(x, y);
                    picture.setPixel(x, y, qRgb(dim(qRed(p)), dim(qGreen(p)), dim(qBlue(p))));
                }
            }
            QVERIFY(picture.save(at(QStringLiteral("uneven/") + name), "JPEG", 95));
        }
        double uneven[2];
        for (const bool isEvened : {false, true}) {
            const QString command = QStringLiteral(
                "stitch --project uneven/truth.pto --output pano.jpg --force --width 480");
            const Run run
                = panohost(isEvened ? command : command + QLatin1String(" --no-photometric"));
            QVERIFY2(run.code == 0, run.err);
            QCOMPARE(run.out.contains("were evened out"), isEvened);
            uneven[isEvened] = unevenness(QImage(at("pano.jpg")), QImage(at("scene.png")));
        }
        // The tool draws its points by lot: mostly two fifths are left, at times more than half.
        QVERIFY2(uneven[1] < 0.75 * uneven[0],
            qPrintable(QStringLiteral("%1 %2").arg(uneven[0]).arg(uneven[1])));
    }

    /// All that the world reads, on a panorama that is not the whole sphere.
    void tags()
    {
        const QString first = at("two/IMG_0001.jpg");
        const auto source = Exiv2::ImageFactory::open(QFile::encodeName(first).toStdString());
        source->readMetadata();
        source->exifData()["Exif.Image.Copyright"] = "A. Nybody";
        source->exifData()["Exif.GPSInfo.GPSLatitude"] = "52/1 30/1 0/1";
        source->exifData()["Exif.GPSInfo.GPSLatitudeRef"] = "N";
        source->writeMetadata();
        for (const char *suffix : {"jpg", "tif"}) {
            const Run run
                = panohost(QStringLiteral("stitch --project two/truth.pto --output pano.%1 "
                                          "--projection equirectangular")
                               .arg(QLatin1String(suffix)));
            QVERIFY2(run.code == 0, run.err);
            const auto image = Exiv2::ImageFactory::open(
                QFile::encodeName(at(QStringLiteral("pano.") + QLatin1String(suffix)))
                    .toStdString());
            image->readMetadata();
            auto &exif = image->exifData();
            auto &xmp = image->xmpData();
            QCOMPARE(exif["Exif.Image.Copyright"].toString().c_str(), "A. Nybody");
            QCOMPARE(exif["Exif.GPSInfo.GPSLatitude"].toString().c_str(), "52/1 30/1 0/1");
            QCOMPARE(exif["Exif.Photo.DateTimeOriginal"].toString(),
                source->exifData()["Exif.Photo.DateTimeOriginal"].toString());
            QCOMPARE(exif["Exif.Image.Model"].toString(),
                source->exifData()["Exif.Image.Model"].toString());
            const auto number = [&xmp](const char *name) {
                return int(xmp[std::string("Xmp.GPano.") + name].toLong());
            };
            QCOMPARE(xmp["Xmp.GPano.ProjectionType"].toString().c_str(), "equirectangular");
            const int full = number("FullPanoWidthPixels");
            QCOMPARE(number("FullPanoHeightPixels"), (full + 1) / 2);
            QCOMPARE(number("CroppedAreaImageWidthPixels"), image->pixelWidth());
            QCOMPARE(number("CroppedAreaImageHeightPixels"), image->pixelHeight());
            // The two lie side by side about yaw 0 and the horizon.
            const auto isCentred = [](int offset, int part, int whole) {
                return std::abs(2 * offset + part - whole) <= 4;
            };
            QVERIFY(isCentred(number("CroppedAreaLeftPixels"), image->pixelWidth(), full));
            QVERIFY(isCentred(number("CroppedAreaTopPixels"), image->pixelHeight(), full / 2));
            QVERIFY(image->iccProfileDefined());
            if (image->mimeType() == "image/tiff")
                QCOMPARE(exif["Exif.Image.BitsPerSample"].toLong(), 16L);
        }
    }

    void kinds_data()
    {
        const Table<QString, QByteArray, QByteArray> row("arguments", "told", "magic");
        const QByteArray jpeg("\xff\xd8\xff");
        const QByteArray tiff("II*\0", 4);
        const QByteArray exr("\x76\x2f\x31\x01");
        const QString brackets
            = QStringLiteral("vrdrive2 --config brackets/shooting.xml brackets --output-type ");
        row("fused, 8 bits", brackets + QLatin1String("tonemapped --output pano.jpg"),
            "equirectangular", jpeg);
        row("fused, 16 bits",
            brackets + QLatin1String("tonemapped --output pano.tif --width 200 --no-photometric"),
            "200 x ", tiff);
        row("radiance", brackets + QLatin1String("hdr --no-photometric --output pano.exr"),
            "equirectangular", exr);
        row("preview of radiance", brackets + QLatin1String("hdr --preview --output pano.jpg"),
            "equirectangular", jpeg);
        row("gigapan --rows 3 --overlap 30 flat --output pano.jpg", "rectilinear", jpeg);
        row("--project two/truth.pto --no-photometric --projection cylindrical --output pano.jpg",
            "cylindrical", jpeg);
        row("hardly a pixel left of some pictures",
            "--project sphere/truth.pto --no-photometric --width 200 --output pano.jpg",
            "200 x 100", jpeg);
    }
    void kinds()
    {
        QFETCH(QString, arguments);
        QFETCH(QByteArray, told);
        QFETCH(QByteArray, magic);
        const Run run = panohost(QStringLiteral("stitch ") + arguments);
        QVERIFY2(run.code == 0, run.err);
        QVERIFY2(run.out.contains(told), run.out);
        QVERIFY2(isOneBar(run.err), run.err);
        const QString output
            = arguments.section(QStringLiteral("--output "), 1).section(QLatin1Char(' '), 0, 0);
        QVERIFY(fileContent(at(output)).startsWith(magic));
        QCOMPARE(QDir(m_folder.path()).entryList({QStringLiteral("pano*")}), QStringList(output));
    }

    void webFolder()
    {
        const QString command = QStringLiteral(
            "stitch --project two/truth.pto --no-photometric --output pano.tif --web pano.web");
        const Run run = panohost(command);
        if (!kHasViewer) {
            QVERIFY2(run.code == 1 && run.err.contains("was built without the viewer"), run.err);
            QSKIP("configured without the viewer");
        }
        QVERIFY2(run.code == 0, run.err);
        QVERIFY2(run.err.contains("Making tiles, ") && isOneBar(run.err), run.err);
        QVERIFY(run.out.contains("equirectangular\npano.web/index.html: "));
        QVERIFY(QFile::exists(at("pano.web/viewer/COPYING")));
        const QByteArray picture = fileContent(at("pano.web/picture.js"));
        QVERIFY(
            QByteArray::fromBase64(picture.mid(picture.indexOf('\'') + 1)).startsWith("\xff\xd8"));
        QCOMPARE(panohost(command + QLatin1String(" --force")).failure(), QByteArray());
        QVERIFY(QFile::remove(at("pano.tif")));
        const Run again = panohost(command);
        QVERIFY2(
            again.err.contains("pano.web: exists already; --force writes over it\n"), again.err);
        QCOMPARE(again.code, 1);
    }

    void insideIsFull_data()
    {
        const Table<QString> row("project");
        row("where rows meet", "flat/truth.pto --crop inside");
        // enblend's coarse masks leave 19,000 black pixels of these.
        row("fisheyes", "fisheyes/truth.pto --crop inside --width 1570");
    }
    void insideIsFull()
    {
        QFETCH(QString, project);
        const QString command
            = QStringLiteral("stitch --output pano.jpg --no-photometric --project ") + project;
        QCOMPARE(panohost(command).failure(), QByteArray());
        const QImage picture(at("pano.jpg"));
        QVERIFY(picture.width() > 300);
        QCOMPARE(blackPart(picture), 0.0);
    }

    void refusals_data()
    {
        const Table<QString, QByteArray, int> row("arguments", "cause", "exitCode");
        const char *hdr = "vrdrive2 --config brackets/shooting.xml --output-type hdr brackets "
                          "--output pano.jpg";
        row(hdr, "pano.jpg: radiance needs the name of an .exr", 1);
        row("--project two/truth.pto --output pano.exr", "only radiance is written as .exr", 1);
        row("--project two/truth.pto --output pano.png", "a panorama is a .jpg", 1);
        row("--project two/truth.pto --output pano", "a panorama is a .jpg", 1);
        row("--project two/truth.pto --output pano.tif --preview", "a preview is a .jpg", 1);
        row("--project two/truth.pto --output no/pano.jpg", "there is no folder", 1);
        row("--project two/truth.pto --output two/IMG_0001.jpg --force", "is one of the files", 1);
        row("--project two/truth.pto --output scene.png",
            "scene.png: exists already; --force writes over it", 1);
        row("--project foreign.pto --output pano.jpg",
            "raw.NEF: Hugin's tools cannot read such a file; develop or convert it and 1 more to",
            1);
        row("--project two/none.pto --output pano.jpg", "cannot be opened", 1);
        row("--project two/truth.json --output pano.jpg", "no pictures", 1);
        row("--project sphere/truth.pto --output pano.jpg --projection rectilinear", "at most 160",
            1);
        row("--project sphere/truth.pto --output pano.jpg --width 60000 --memory 8",
            "and 8.0 GB are allowed; a narrower panorama needs less (--width, --memory)", 1);
        row("--project sphere/truth.pto --output pano.jpg --width 100000 --memory 1000",
            "a JPEG has at most 65000; a .tif or a narrower panorama would do (--width)", 1);
        row("--project sphere/truth.pto --output pano.tif --width 1000000 --memory 100000",
            "are free; a narrower panorama needs less (--width)", 1);
        row("--project two/truth.pto --output pano.jpg --web pano.web --projection rectilinear",
            "only an equirectangular", 1);
        row("vrdrive2 --config brackets/shooting.xml --output-type hdr brackets --output pano.exr "
            "--web pano.web",
            "browsers do not show radiance", 1);
        row("--project two/truth.pto --output pano.jpg --web=", "--web wants a folder", 2);
        row("--project two/truth.pto", "--output", 2);
        row("--project two/truth.pto --output pano.jpg --width 0", "\"0\"", 2);
        row("--project two/truth.pto --output pano.jpg --projection flat", "\"flat\"", 2);
        row("--project two/truth.pto --output pano.jpg two", "takes the pictures from", 2);
        row("--output pano.jpg", "there is no head", 2);
        row("--record-in none.json --output pano.jpg", "none.json: cannot be opened", 1);
        row("--record-in= --output pano.jpg", "--record-in wants a file", 2);
    }
    void refusals()
    {
        QFETCH(QString, arguments);
        QFETCH(QByteArray, cause);
        QFETCH(int, exitCode);
        const QStringList before = QDir(m_folder.path()).entryList();
        const Run run = panohost(QStringLiteral("stitch ") + arguments);
        QVERIFY2(run.err.contains(cause), run.err);
        QCOMPARE(run.code, exitCode);
        QCOMPARE(QDir(m_folder.path()).entryList(), before);
    }

    /// A tool that fails takes nothing with it; what was done before is not done again.
    void toolsThatFail_data()
    {
        const Table<QString, QByteArray, QByteArray, int> row(
            "tool", "script", "problem", "layers");
        const QByteArray fail = "echo 'out of luck' >&2; exit 7";
        row("photometry", "vig_optimize", fail,
            "vig_optimize failed with exit code 7: \"out of luck\"", 0);
        row("remapping", "nona", fail, "nona failed with exit code 7: \"out of luck\"", 0);
        row("remapping writes nothing", "nona", "exit 0",
            "nona ended with exit code 0, but did not write", 0);
        row("blending writes a part and dies", "enblend",
            "while [ \"$1\" != -o ]; do shift; done; echo part >\"$2\"; kill -9 $$",
            "enblend was ended by signal 9", 2);
    }
    void toolsThatFail()
    {
        QFETCH(QString, tool);
        QFETCH(QByteArray, script);
        QFETCH(QByteArray, problem);
        QFETCH(int, layers);
        const QString output = at("pano.jpg");
        writeFile(output, "what was there before");
        const QString command
            = QStringLiteral("stitch --project two/truth.pto --output pano.jpg --force");
        const Run run = panohost(command, pathWith(tool, script));
        QCOMPARE(run.code, 1);
        QVERIFY2(run.err.contains(problem), run.err);
        QVERIFY2(run.err.contains(at("pano.jpg.work/log.txt").toUtf8()), run.err);
        QCOMPARE(fileContent(output), QByteArray("what was there before"));
        QCOMPARE(filesIn("pano.jpg.work", "done-layer-*").size(), layers);

        // Whoever goes on needs only what is missing.
        const bool isBlending = layers > 0;
        const Run again = panohost(command, isBlending ? pathWith("nona", "exit 9") : QString());
        QCOMPARE(again.failure(), QByteArray());
        QVERIFY(fileContent(output).startsWith("\xff\xd8"));
        QVERIFY(!QFile::exists(at("pano.jpg.work")));
    }

    void toolThatIsMissing()
    {
        const QString folder = at("bin");
        QDir(folder).removeRecursively();
        QDir().mkpath(folder);
        QFile::link(QStandardPaths::findExecutable(QStringLiteral("nona")),
            folder + QStringLiteral("/nona"));
        const Run run = panohost("stitch --project two/truth.pto --output pano.jpg", folder);
        QCOMPARE(run.code, 1);
        QVERIFY2(run.err.contains("enblend and vig_optimize are missing"), run.err);
        QVERIFY(!QFile::exists(at("pano.jpg.work")));
    }

    void interruptions_data()
    {
        const Table<QByteArray, int, QString, QString> row("step", "signal", "arguments", "name");
        const auto rows = [&](const QByteArray &step, std::initializer_list<int> numbers,
                              const Text &arguments, const char *name) {
            for (const int signal : numbers)
                row(step + ' ' + QByteArray::number(signal), step, signal, arguments, name);
        };
        const QString brackets = QStringLiteral("vrdrive2 --config brackets/shooting.xml "
                                                "--no-photometric --output-type %1 brackets");
        for (const char *tool : {"vig_optimize", "nona", "enblend"})
            rows(tool, {SIGINT, SIGTERM, SIGKILL}, "--project two/truth.pto", "pano.jpg");
        rows("enfuse", {SIGINT, SIGKILL}, brackets.arg(QStringLiteral("tonemapped")), "pano.jpg");
        rows("hugin_hdrmerge", {SIGINT, SIGKILL}, brackets.arg(QStringLiteral("hdr")), "pano.exr");
        rows("matching, ", {SIGINT, SIGKILL},
            "papywizard --config sphere/shooting.xml sphere --width 300", "pano.jpg");
        rows("Making tiles, ", {SIGINT, SIGKILL},
            "--project wide/truth.pto --no-photometric --width 8200 --web pano.web", "pano.jpg");
    }
    /// At whatever step it is ended, a tool (which then sleeps) or what the bar says, the tool ends
    /// too, nothing is lost, and it can go on.
    void interruptions()
    {
        QFETCH(QByteArray, step);
        QFETCH(int, signal);
        QFETCH(QString, arguments);
        QFETCH(QString, name);
        const bool isWeb = arguments.contains(QStringLiteral("--web"));
        if (isWeb && !kHasViewer)
            QSKIP("configured without the viewer");
        const bool isTool = !step.endsWith(' ');
        const QStringList files{name, QStringLiteral("pano.web/scene.js"),
            QStringLiteral("pano.web/picture.js"), QStringLiteral("pano.web/viewer/COPYING")};
        QDir().mkpath(at("pano.web/viewer"));
        for (const QString &file : files)
            writeFile(at(file), "what was there before");
        const QString command
            = QStringLiteral("stitch %1 --output %2 --force").arg(arguments, name);
        const QString mark = at("pano.mark");
        const QByteArray sleeper = "echo $$ >'" + mark.toUtf8() + "'; exec sleep 1000";
        RunningProgram program(PANOHOST, words(command),
            inFolder(isTool ? pathWith(QString::fromLatin1(step), sleeper) : QString()));
        const auto isReached = [&] {
            const QByteArray &said = program.complaints();
            return isTool ? contentIfThere(mark).endsWith('\n') : said.contains(step);
        };
        QVERIFY2(program.await(isReached), program.complaints());
        program.signal(signal);
        const Run ended = program.wait();
        if (signal == SIGKILL) {
            QVERIFY2(ended.err.endsWith("was ended by signal 9"), ended.err);
        } else {
            QCOMPARE(ended.code, 1);
            QVERIFY2(ended.err.contains("interrupted; what is done so far is kept in "), ended.err);
        }
        if (isTool)
            QTRY_VERIFY(!isAlive(fileContent(mark).trimmed().toInt()));
        for (const QString &file : files)
            QCOMPARE(fileContent(at(file)), QByteArray("what was there before"));

        QCOMPARE(panohost(command).failure(), QByteArray());
        QVERIFY(fileContent(at(name)).size() > 1000);
        QCOMPARE(fileContent(at(files[1])).size() > 100, isWeb);
        QCOMPARE(QDir(m_folder.path())
                     .entryList({QStringLiteral("pano*.work"), QStringLiteral("pano.web.*")},
                         QDir::AllEntries),
            QStringList());
    }

    void keptWork()
    {
        const QString command = QStringLiteral("stitch --project two/truth.pto --output pano.jpg "
                                               "--force --keep --width 200");
        QCOMPARE(panohost(command).failure(), QByteArray());
        const QByteArray first = fileContent(at("pano.jpg"));
        const QStringList layers = filesIn("pano.jpg.work", "done-layer-*");
        QCOMPARE(layers.size(), 2);
        // Neither of them is needed any more.
        for (const char *tool : {"nona", "enblend", "vig_optimize"})
            QCOMPARE(panohost(command, pathWith(tool, "exit 9")).failure(), QByteArray());
        QCOMPARE(fileContent(at("pano.jpg")), first);
        // Another size is remapped anew, and only that is kept.
        QCOMPARE(panohost(command + QLatin1String(" --width 180")).failure(), QByteArray());
        const QStringList others = filesIn("pano.jpg.work", "done-layer-*");
        QCOMPARE(others.size(), 2);
        QVERIFY(others != layers);
        QCOMPARE(filesIn("pano.jpg.work", "done-blended-*").size(), 1);
        QCOMPARE(filesIn("pano.jpg.work", "part-*"), QStringList());
    }

private:
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_StitchCommand)
#include "tst_StitchCommand.moc"
