// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/RecordJson.h"
#include "tests/align/TestPicture.h"
#include "tests/support/Files.h"
#include "tests/support/Program.h"
#include "tests/support/RecordDump.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <memory>
#include <optional>
#include <unistd.h>

namespace {

QString shootingXml(int shots, const QString &header = {})
{
    QString xml = QStringLiteral("<papywizard><header>%1</header><shoot>\n").arg(header);
    for (int i = 0; i < shots; ++i)
        xml += QStringLiteral(
            "<pict id=\"%1\" bracket=\"1\"><position yaw=\"%2\" pitch=\"%3\"/></pict>\n")
                   .arg(i + 1)
                   .arg(30 * i)
                   .arg(10);
    return xml + QStringLiteral("</shoot></papywizard>\n");
}

const QString kLens20 = QStringLiteral("<lens type=\"rectilinear\"><focal>20</focal></lens>");
const QString kThree = QStringLiteral("<camera><bracketing nbPicts=\"3\"/></camera>");

/// The lines of \a record's dump that differ from a fresh record's, apart from its pictures.
QString told(const ProjectRecord &record)
{
    ProjectRecord fresh;
    fresh.groups = record.groups;
    const QStringList before = dump(fresh).split(QLatin1Char('\n'));
    QStringList lines;
    for (const QString &line : dump(record).split(QLatin1Char('\n'))) {
        if (!before.contains(line) && !line.startsWith(QLatin1String("link ")))
            lines.append(line);
    }
    return lines.join(QLatin1String("; "));
}

} // namespace

/// Runs the built program in a folder of its own, without display, with
///   shooting.xml  6 shots, 20 mm              three.xml  6 shots, 3 a location
///   bare.xml      6 shots, no focal           script.txt 6 shots of a Clauss head
///   pics/1.jpg to 6.jpg  24 mm, exposures like -2, 0, +2 twice
///   bare/1.jpg to 6.jpg  without tags         empty/     nothing but a text file
class tst_CommandLine : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        const QDir folder(m_folder->path());
        for (const char *name : {"pics", "bare", "empty"})
            folder.mkdir(QLatin1String(name));
        const char *times[] = {"1/400", "1/100", "1/25"};
        for (int i = 0; i < 6; ++i) {
            const QString name = QStringLiteral("%1.jpg").arg(i + 1);
            writeJpeg(at("pics/") + name, QSize(60, 40),
                {{"Exif.Photo.FocalLengthIn35mmFilm", "24"},
                    {"Exif.Photo.ExposureTime", times[i % 3]}, {"Exif.Photo.FNumber", "8/1"}});
            writeJpeg(at("bare/") + name, QSize(60, 40));
        }
        writeFile(at("empty/read me.txt"), "no picture");
        writeFile(at("pics/notes.xml"), "<notes/>");
        writeFile(at("pics/.hidden.jpg"), "a system's own file");
        writeFile(at("shooting.xml"), shootingXml(6, kLens20).toUtf8());
        writeFile(at("three.xml"), shootingXml(6, kThree + kLens20).toUtf8());
        writeFile(at("bare.xml"), shootingXml(6).toUtf8());
        QByteArray script = "op_v-angle=5\n";
        for (int i = 0; i < 6; ++i)
            script += "op_h-angle=" + QByteArray::number(60 * i) + "\nop_shoot\n";
        writeFile(at("script.txt"), script);
    }

    void answers_data()
    {
        const Table<QString, QString> row("arguments", "expected");
        row("--version", "^panohost 3\\.0\\.0\n$");
        row("heads",
            "^clauss\\b[^\n]+\ngigapan\\b[^\n]+\npapywizard\\b[^\n]+\nvrdrive2\\b[^\n]+\n$");
        row("--help", "panohost heads.*--rotate");
        row("import --help", "--full-angles.*\\(clauss\\)");
        row("import vrdrive2 --help", "--config.*--output-type");
        row("import papywizard --help --config x", "--invert-pitch");
        row("-h", "panohost heads");
        row("import -h", "HEAD.*--help");
        row("import gigapan -h", "--full-turn.*--help");
        row("map -h", "--width");
    }
    void answers()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, expected);
        const Run run = panohost(words(arguments));
        QCOMPARE(run.err, QByteArray());
        QCOMPARE(run.code, 0);
        const QRegularExpression pattern(expected, QRegularExpression::DotMatchesEverythingOption);
        QVERIFY2(pattern.match(QString::fromUtf8(run.out)).hasMatch(), run.out);
    }

    void wrongUsage_data()
    {
        const Table<QString, QByteArray> row("arguments", "cause");
        row("heads all", "heads takes nothing");
        row("weave", "no command \"weave\"");
        row("import", "no head is named");
        row("import merlin --output a.pto pics", "no head \"merlin\"");

        const auto good = [&row](const char *more, const char *cause) {
            row(("import papywizard --config shooting.xml --output a.pto pics " + QByteArray(more))
                    .constData(),
                cause);
        };
        row("import papywizard --output a.pto pics", "--config");
        row("import papywizard --config shooting.xml pics", "--output");
        row("import papywizard --config shooting.xml --output a.pto", "no pictures");
        row("import papywizard --config shooting.xml --output a.pto --", "no pictures");
        row("import papywizard --config shooting.xml pics --output", "output");
        good("--colour", "colour");
        good("-f", "f");
        good("--force=yes", "force");
        good("--focal 24mm", "\"24mm\"");
        good("--focal 0.999", "\"0.999\"");
        good("--focal 10000.1", "\"10000.1\"");
        good("--focal nan", "\"nan\"");
        good("--focal inf", "\"inf\"");
        good("--focal 24,5", "\"24,5\"");
        good("--focal=", "--focal");
        good("--lens Fisheye", "\"Fisheye\"");
        good("--rotate 45", "\"45\"");
        good("--rotate -90", "\"-90\"");
        good("--stacks soft", "\"soft\"");
        good("--levels none", "\"none\"");
        good("--levels all --stacks hard", "--levels all cannot go with --stacks hard");
        good("--record ./a.pto", "same file");
        good("--record=", "--record");
        good("--pictures-from=", "--pictures-from wants a file");
        good("--full-angles", "full-angles");
        good("--output-type hdr", "output-type");
        row("import clauss --config script.txt --output a.pto --lens fisheye pics", "--focal");
        row("import clauss --config script.txt --output a.pto --stacks hard pics", "stacks");
        row("import gigapan --config script.txt --output a.pto pics", "config");
        row("import gigapan --rows 0 --output a.pto pics", "\"0\"");
        row("import gigapan --rows 2.5 --output a.pto pics", "\"2.5\"");
        row("import gigapan --bracket 100001 --output a.pto pics", "\"100001\"");
        row("import gigapan --ignore -1 --output a.pto pics", "\"-1\"");
        row("import gigapan --overlap 4 --output a.pto pics", "\"4\"");
        row("import gigapan --order up --output a.pto pics", "\"up\"");
        row("import vrdrive2 --config three.xml --output a.pto --output-type ldr pics", "\"ldr\"");
    }
    void wrongUsage()
    {
        QFETCH(QString, arguments);
        QFETCH(QByteArray, cause);
        const QStringList before = everything();
        const Run run = panohost(words(arguments));
        QCOMPARE(run.code, 2);
        QCOMPARE(run.out, QByteArray());
        QVERIFY2(run.err.startsWith("panohost: ") && run.err.contains(cause), run.err);
        QCOMPARE(everything(), before);
    }

    void records_data()
    {
        // A remark of "*" is not looked at.
        const Table<QString, QString, QByteArray> row("arguments", "expected", "remark");
        const auto six = [](const char *angle) {
            return QStringLiteral(" %1").arg(QLatin1String(angle)).repeated(6);
        };
        const auto angles = [&](const char *pitch, const char *roll) {
            return QStringLiteral("yaws: 0 0.52359879 1.04719758 1.57079637 2.09439516 2.61799383; "
                                  "pitches:%1; rolls:%2; focal: ")
                .arg(six(pitch), six(roll));
        };
        const auto papywizard = [&](const QByteArray &more, const QByteArray &rest,
                                    const char *pitch = "0.17453292", const char *roll = "0") {
            row(("papywizard --config " + more).constData(),
                angles(pitch, roll) + QLatin1String(rest), "*");
        };
        const auto usual = [](const char *focal) {
            return focal + QByteArray("; autoDetection: 1; guidedOptimization: 1; cleanLinks: 1");
        };
        papywizard("shooting.xml pics", usual("24"));
        papywizard("shooting.xml bare", usual("20"));
        papywizard("shooting.xml pics --focal 1", usual("1"));
        papywizard("bare.xml bare --focal=10000", usual("10000"));
        papywizard("bare.xml bare --focal 35.12345", usual("35.1230011"));
        papywizard("shooting.xml pics --focal 30 --focal 31", usual("31"));
        papywizard("shooting.xml pics --lens fisheye", usual("24; lensType: 1"));
        // The mean of what the pictures tell, those without a focal length included.
        papywizard("shooting.xml pics/1.jpg pics/2.jpg bare/3.jpg bare/4.jpg bare/5.jpg bare/6.jpg",
            usual("8"));
        papywizard("shooting.xml pics --no-detect", "24; guidedOptimization: 1; cleanLinks: 1");
        papywizard(
            "shooting.xml pics --no-clean-links", "24; autoDetection: 1; guidedOptimization: 1");
        papywizard("shooting.xml pics --no-clean-links --clean-links", usual("24"));
        papywizard("shooting.xml pics --skip-optimization --no-recorded-location",
            "24; autoDetection: 1; skipOptimization: 1; cleanLinks: 1");
        papywizard("shooting.xml pics --stacks points",
            "24; autoDetection: 1; stackLinking: 1; guidedOptimization: 1; cleanLinks: 1");
        papywizard("shooting.xml pics --levels all",
            "24; autoDetection: 1; stackLinking: 1; levelLinking: 1; guidedOptimization: 1; "
            "cleanLinks: 1");
        papywizard("shooting.xml pics --levels reference --stacks hard", usual("24"));
        papywizard("shooting.xml pics --rotate 90", usual("24"), "0.17453292", "1.57079637");
        papywizard("shooting.xml pics --rotate 180", usual("24"), "0.17453292", "3.14159274");
        papywizard("shooting.xml pics --rotate 270", usual("24"), "0.17453292", "-1.57079637");
        papywizard("shooting.xml pics --invert-pitch", usual("24"), "-0.17453292");

        const auto clauss = [&](const char *more, const char *pitch, const char *rest) {
            row((QByteArray("clauss --config script.txt ") + more).constData(),
                QStringLiteral("yaws: 0 1.04719758 2.09439516 3.14159274 4.18879032 5.23598766; "
                               "pitches:%1; %2")
                    .arg(six(pitch), QLatin1String(rest)),
                "");
        };
        clauss("pics --invert-pitch --clean-links", "-0.0872664601",
            "autoDetection: 1; guidedOptimization: 1; cleanLinks: 1");
        clauss("bare --focal 8 --lens fisheye --no-recorded-location", "0.0872664601",
            "focal: 8; lensType: 1; autoDetection: 1");
        row("gigapan pics", "autoDetection: 1; layoutRows: 2; layoutBracket: 1; overlap: 40", "");
        row("gigapan pics --rows 1 --bracket 2 --ignore 1 --order serpentine-up --full-turn "
            "--overlap 25.5 --levels all --clean-links",
            "autoDetection: 1; stackLinking: 1; levelLinking: 1; cleanLinks: 1; layoutMode: 4; "
            "layoutRows: 1; layoutBracket: 2; fullTurn: 1; overlap: 25.5",
            "6.jpg: from this picture on, 1 are left over");
        row("gigapan bare/1.jpg pics/1.jpg pics/2.jpg bare/2.jpg --ignore 1 --bracket 2 --rows 1 "
            "--overlap 33.33",
            "autoDetection: 1; layoutRows: 1; layoutBracket: 2; overlap: 33.299999999999997",
            "2.jpg: from");
        row("gigapan bare --focal 50 --rows 3 --order columns-left",
            "focal: 50; autoDetection: 1; layoutMode: 3; layoutRows: 3; layoutBracket: 1; overlap: "
            "40",
            "");
        row("gigapan bare --focal 24 --rows 6 --overlap 20",
            "focal: 24; autoDetection: 1; layoutRows: 6; layoutBracket: 1; overlap: 20",
            "6 rows lie 213 degrees apart from the lowest to the highest, more than the 180 there "
            "are; --rows, --overlap or --focal");
        row("gigapan bare --focal 24 --rows 1 --overlap 5",
            "focal: 24; autoDetection: 1; layoutRows: 1; layoutBracket: 1; overlap: 5",
            "6 columns take 420 degrees, more than a full turn; --full-turn is missing, or "
            "--rows, --overlap or --focal");
        row("gigapan bare --focal 200 --rows 1 --full-turn",
            "focal: 200; autoDetection: 1; layoutRows: 1; layoutBracket: 1; fullTurn: 1; overlap: "
            "40",
            "6 columns see 62 degrees and cannot close a full turn; --full-turn, --rows or "
            "--focal");
        row("gigapan bare --focal 24 --overlap 100",
            "focal: 24; autoDetection: 1; layoutRows: 2; layoutBracket: 1; overlap: 100",
            "overlap of 100 percent all pictures lie in one place; --overlap");
        row("vrdrive2 --config three.xml pics/1.jpg pics/2.jpg pics/3.jpg pics/4.jpg pics/5.jpg "
            "pics/6.jpg --output-type hdr --no-clean-links",
            angles("0.17453292", "0")
                + QLatin1String("24; autoDetection: 1; guidedOptimization: 1; outputType: 3"),
            "focal length");
    }
    void records()
    {
        QFETCH(QString, arguments);
        QFETCH(QByteArray, remark);
        Run run;
        const auto record = recordFrom(words(arguments), &run);
        QVERIFY2(record, run.err);
        QTEST(told(*record), "expected");
        if (remark != "*")
            QVERIFY2(remark.isEmpty() ? run.err.isEmpty() : run.err.contains(remark), run.err);
    }

    void lensProposal_data()
    {
        const Table<QString, QString, QString, QByteArray> row(
            "header", "arguments", "expected", "remark");
        const char *fisheye = "<lens type='fisheye'><focal>10.5</focal></lens>";
        row("file alone", fisheye, "bare", "10.5 1",
            "the file's lens is fisheye, the pictures' standard; fisheye is taken");
        row("pictures before file", fisheye, "pics", "24 0",
            "the file's lens is fisheye, the pictures' standard; standard is taken");
        row("focals apart", "<lens><focal>20</focal></lens>", "pics", "24 0",
            "the file's focal length is 20 mm, the pictures' 24 mm; 24 mm is taken");
        row("the last lens counts", "", "fish", "24 1", "fisheye is taken");
        row("limited", "<lens><focal>20000</focal></lens>", "bare", "10000 0", "");
        row("limited below", "<lens><focal>0.2</focal></lens>", "bare", "1 0", "");
        row("rounded", "<lens><focal>20.44749</focal></lens>", "bare", "20.447 0", "");
        row("nothing proposed, focal given", "<lens type='fisheye'/>", "bare --focal 8", "8 0",
            "standard is taken");
        const char *mixed = "pics/1.jpg pics/2.jpg pics/3.jpg pics/4.jpg pics/5.jpg bare/6.jpg";
        row("one tells nothing", "", mixed, "20 0",
            "1 of 6 pictures tell no focal length, and count as 0 mm in the mean of 20 mm");
        row("one tells nothing, focal given", "",
            "pics/1.jpg pics/2.jpg pics/3.jpg pics/4.jpg pics/5.jpg bare/6.jpg --focal 24", "24 0",
            "");
    }
    void lensProposal()
    {
        QFETCH(QString, header);
        QFETCH(QString, arguments);
        QFETCH(QByteArray, remark);
        QDir(m_folder->path()).mkdir(QStringLiteral("fish"));
        for (int i = 1; i <= 6; ++i)
            writeJpeg(at("fish/%1.jpg").arg(i), QSize(60, 40),
                {{"Exif.Photo.FocalLengthIn35mmFilm", "24"},
                    {"Exif.Photo.LensModel", i == 6 ? "Fisheye 8 mm" : "Zoom"}});
        writeFile(at("lens.xml"), shootingXml(6, header).toUtf8());

        Run run;
        const auto record
            = recordFrom(words("papywizard --config lens.xml") + words(arguments), &run);
        QVERIFY2(record, run.err);
        QTEST(QStringLiteral("%1 %2").arg(double(record->focal), 0, 'g', 6).arg(record->lensType),
            "expected");
        QVERIFY2(remark.isEmpty() ? run.err.isEmpty() : run.err.contains(remark), run.err);
    }

    void pictures_data()
    {
        const Table<QString, QString, QByteArray> row("arguments", "expected", "input");
        row("papywizard --config shooting.xml pics", "1|2|3|4|5|6", "");
        row("papywizard --config three.xml pics", "1 2 3|4 5 6", "");
        row("papywizard --config shooting.xml --no-detect pics/6.jpg bare/1.jpg pics/2.jpg "
            "./pics/3.jpg bare/../pics/4.jpg @/pics/5.jpg",
            "1|2|3|4|5|6", "");
        row("papywizard --config shooting.xml --pictures-from -", "1|2|3|4|5|6",
            "\xEF\xBB\xBF"
            "pics/3.jpg\r\npics/1.jpg\n\npics/2.jpg\r\npics/6.jpg\npics/5.jpg\npics/4.jpg");
        row("papywizard --config shooting.xml --pictures-from - pics/1.jpg", "1|2|3|4|5|6",
            "pics/2.jpg\npics/3.jpg\npics/6.jpg\npics/5.jpg\npics/4.jpg");
        row("papywizard --config shooting.xml --pictures-from -", "1|2|3|4|5|6", "pics");
        row("clauss --config script.txt pics/6.jpg pics/1.jpg pics/5.jpg pics/2.jpg pics/4.jpg "
            "pics/3.jpg",
            "6|1|5|2|4|3", "");
        row("clauss --config script.txt pics", "1|2|3|4|5|6", "");
        row("gigapan --rows 2 --pictures-from -", "6|5|4|3|2|1",
            "pics/6.jpg\npics/5.jpg\npics/4.jpg\npics/3.jpg\npics/2.jpg\npics/1.jpg\n");
        row("vrdrive2 --config three.xml pics", "2 1 3|5 4 6", "");
    }
    void pictures()
    {
        QFETCH(QString, arguments);
        QFETCH(QByteArray, input);
        arguments.replace(QLatin1Char('@'), m_folder->path());
        Run run;
        const auto record = recordFrom(words(arguments), &run, input);
        QVERIFY2(record, run.err);
        QTEST(stacksOf(*record), "expected");
        for (const QStringList &group : record->groups) {
            for (const QString &path : group)
                QVERIFY2(
                    QDir::isAbsolutePath(path) && QFileInfo::exists(path), qUtf8Printable(path));
        }
    }

    void nastyNames()
    {
        const Texts names{"a b.jpg", "-dash.jpg", "c#1=2,3;&.jpg", "\u00e9\u4e2d\U0001F600.jpg",
            "'$(touch x)'.JPG", "100%\\1.jpeg"};
        QDir(m_folder->path()).mkdir(QStringLiteral("n\u00e4sty dir"));
        for (const QString &name : names)
            QVERIFY(QFile::copy(at("pics/1.jpg"), at("n\u00e4sty dir/") + name));
        QFile::rename(at("shooting.xml"), at("n\u00e4sty dir/a shooting.xml"));

        QCOMPARE(panohost({"import", "papywizard", "--config", "n\u00e4sty dir/a shooting.xml",
                              "--output", "n\u00e4sty dir/my pano.pto", "--record=r e.json", "--",
                              "n\u00e4sty dir"})
                     .failure(),
            QByteArray());

        QString error;
        const auto record = recordFromJson(fileContent(at("r e.json")), &error);
        QVERIFY(record);
        QStringList expected;
        for (const QString &name : names)
            expected.append(at("n\u00e4sty dir/") + name);
        expected.sort();
        QStringList found;
        for (const QStringList &group : record->groups)
            found += group;
        QCOMPARE(found, expected);

        // nona finds each picture by the name in the project.
        const QStringList arguments = words("-o out -m TIFF_m") << at("n\u00e4sty dir/my pano.pto");
        QCOMPARE(run("nona", arguments, {m_folder->path()}).failure(), QByteArray());
        QCOMPARE(QDir(m_folder->path()).entryList({QStringLiteral("out*.tif")}).size(), 6);
    }

    void refused_data()
    {
        const Table<QString, QStringList> row("arguments", "causes");
        const auto one = [&row](const char *more, const Texts &causes) {
            row((QByteArray("papywizard --output a.pto --record a.json ") + more).constData(),
                causes);
        };
        one("--config shooting.xml pics/1.jpg", {"shooting.xml", "6 shots", "1 picture"});
        one("--config shooting.xml pics bare/1.jpg", {"shooting.xml", "6 shots", "7 picture"});
        one("--config three.xml pics bare/1.jpg",
            {"three.xml", "3 pictures a location", "7 chosen"});
        one("--config shooting.xml pics/1.jpg pics/2.jpg pics/3.jpg pics/4.jpg pics/5.jpg "
            "./pics/5.jpg",
            {"@/pics/5.jpg: is chosen more than once"});
        one("--config shooting.xml pics/1.jpg pics/2.jpg pics/3.jpg broken/4.jpg broken/5.jpg "
            "pics/absent.jpg",
            {"@/broken/4.jpg: is empty", "@/broken/5.jpg: is cut short",
                "@/pics/absent.jpg: no such"});
        one("--config shooting.xml pics/notes.xml pics",
            {"@/pics/notes.xml: is not a picture", "6 shots", "7 pictures"});
        one("--config bare.xml bare", {"bare.xml", "--focal"});
        one("--config empty.xml pics", {"empty.xml: holds no shots", "0 shots", "6 pictures"});
        one("--config absent.xml pics", {"absent.xml: cannot be opened"});
        one("--config pics pics", {"pics: "});
        one("--config cut.xml pics", {"cut.xml:3: is not well-formed"});
        one("--config shooting.xml empty", {"empty: there are no pictures in this folder"});
        one("--config shooting.xml --pictures-from absent.txt", {"absent.txt: cannot be opened"});
        one("--config shooting.xml --pictures-from pics", {"pics: is a folder"});
        one("--config shooting.xml --pictures-from none.txt", {"names no pictures"});
        one("--config shooting.xml quoted", {"@/quoted/\".jpg", "quotation mark"});

        const auto clash = [&row](const char *more, const char *cause) {
            row((QByteArray("papywizard --config shooting.xml pics ") + more).constData(), {cause});
        };
        clash("--output old.pto", "old.pto: exists already; --force");
        clash("--output a.pto --record old.pto", "old.pto: exists already; --force");
        clash(
            "--force --output pics/3.jpg", "pics/3.jpg: is one of the files that the import reads");
        clash("--force --output shooting.xml", "shooting.xml: is one of the files");
        clash("--force --output hard.pto", "hard.pto: is one of the files");
        clash("--force --output a.pto --record link.json", "link.json: is one of the files");
        clash("--force --output a.pto --record pics", "pics: is a folder");
        clash("--force --output three.xml", "three.xml: is a picture or a head's file");
        clash("--force --output bare/1.jpg", "1.jpg: is a picture or a head's file");
        clash("--output absent/a.pto", "there is no folder");
        clash("--output /dev/null --force", "/dev/null: is no regular file");
        row("papywizard --config shooting.xml --pictures-from list.txt --force --output list.txt",
            {"list.txt: is one of the files"});

        row("clauss --config script.txt --output a.pto pics/1.jpg",
            {"script.txt", "6 shots", "1 pictures"});
        row("clauss --config script.txt --output a.pto bare", {"@/bare/1.jpg", "--focal"});
        row("clauss --config bad.txt --output a.pto pics", {"bad.txt:2: op_h-angle=x"});
        row("gigapan --rows 7 --output a.pto pics", {"6 pictures", "7 rows"});
        row("gigapan --ignore 6 --output a.pto pics", {"6 pictures, 6 of them ignored"});
        row("gigapan --output a.pto bare", {"@/bare/6.jpg", "--focal"});
        row("vrdrive2 --config three.xml --output a.pto pics/1.jpg", {"three.xml", "6 shots"});
    }
    void refused()
    {
        QFETCH(QString, arguments);
        QFETCH(QStringList, causes);
        QDir folder(m_folder->path());
        folder.mkdir(QStringLiteral("broken"));
        writeFile(at("broken/4.jpg"), {});
        writeFile(at("broken/5.jpg"), fileContent(at("pics/5.jpg")).left(600));
        folder.mkdir(QStringLiteral("quoted"));
        for (const char *name : {"\"", "1", "2", "3", "4", "5"})
            QFile::copy(at("pics/1.jpg"), at("quoted/%1.jpg").arg(QLatin1String(name)));
        writeFile(at("empty.xml"), "<a/>");
        writeFile(at("cut.xml"), "<a>\n<shoot>\n<pict></shoot></a>");
        writeFile(at("none.txt"), "\n\r\n");
        writeFile(at("list.txt"), "pics\n");
        writeFile(at("old.pto"), "keep");
        writeFile(at("bad.txt"), "op_shoot\nop_h-angle=x\nop_shoot\n");
        QFile::link(QStringLiteral("pics/1.jpg"), at("link.json"));
        QVERIFY(::link(QFile::encodeName(at("pics/2.jpg")).constData(),
                    QFile::encodeName(at("hard.pto")).constData())
            == 0);
        const QStringList before = everything();

        const Run run = panohost(words("import") + words(arguments));

        QCOMPARE(run.code, 1);
        QCOMPARE(run.out, QByteArray());
        for (QString cause : causes) {
            cause.replace(QLatin1Char('@'), m_folder->path());
            QVERIFY2(run.err.contains(cause.toUtf8()), cause.toUtf8() + '\n' + run.err);
        }
        QCOMPARE(everything(), before);
    }

    void forceWritesOver()
    {
        writeFile(at("a.pto"), "old project");
        writeFile(at("a.json"), "old record");
        const Run run
            = panohost(words("import papywizard --config shooting.xml --output a.pto --record "
                             "a.json --force pics"));
        QCOMPARE(run.failure(), QByteArray());
        QVERIFY(fileContent(at("a.pto")).contains("n\"pics/1.jpg\""));
        QVERIFY(fileContent(at("a.json")).startsWith("{\n\"groups\": [[\""));
        QCOMPARE(run.out, QByteArray("a.pto: 6 locations, 6 pictures, 9 links\n"));
    }

    void findingsAreNamed()
    {
        writeFile(at("odd.xml"),
            "<a><header><lens><focal>2o</focal></lens></header>\n<shoot>\n"
            "<pict id=\"x\"><position yaw=\"north\" pitch=\"1e400\"/></pict>\n"
            "<pict><time>2014-02-23_13h59m01s</time></pict><pict><time>never</time></pict>\n"
            "<pict/><pict/><pict/></shoot></a>\n");
        const Run run = panohost(words("import papywizard --config odd.xml --output a.pto pics"));
        QCOMPARE(run.code, 0);
        for (const char *expected : {"panohost: odd.xml:1: focal", "2o", "panohost: odd.xml:3: id",
                 "panohost: odd.xml:3: yaw", "north", "1e400"})
            QVERIFY2(run.err.contains(expected), run.err);
        // Nothing comes of times.
        QVERIFY2(!run.err.contains("time"), run.err);

        QByteArray many = "<a><shoot>\n";
        for (int i = 0; i < 6; ++i)
            many += "<pict id='a' bracket='b'><position yaw='c' pitch='d'/></pict>\n";
        writeFile(at("many.xml"), many + "</shoot></a>");
        const Run flood
            = panohost(words("import papywizard --config many.xml --output b.pto pics"));
        QCOMPARE(flood.code, 0);
        QCOMPARE(flood.err.count('\n'), 21);
        QVERIFY2(flood.err.contains("many.xml: 24 values"), flood.err);
    }

    void terminalIsLeftAlone()
    {
        writeFile(at("red\x1b[31m.txt"), "op_h-angle=\x1b]0;owned\x07x\x9b\nop_shoot\n");
        writeFile(at("list.txt"), "pics/1.jpg\ra\n");
        const Run run = panohost(words("import clauss --config red\x1b[31m.txt --pictures-from "
                                       "list.txt --output a.pto"));
        QCOMPARE(run.code, 1);
        for (const QChar character : QString::fromUtf8(run.err))
            QVERIFY2(character == QLatin1Char('\n') || character.category() != QChar::Other_Control,
                run.err.toPercentEncoding());
        QVERIFY2(run.err.contains("red\\x1b[31m.txt:1: op_h-angle=\\x1b]0;"), run.err);
    }

    void fullDisk()
    {
        for (const char *arguments : {"heads", "import --help",
                 "import papywizard --config shooting.xml --output a.pto --force pics"}) {
            const QByteArray command = QByteArray("exec " PANOHOST " ") + arguments + " >/dev/full";
            const Run full
                = run("sh", {"-c", command.constData()}, {m_folder->path(), {}, bareEnvironment()});
            QCOMPARE(full.code, 1);
            QVERIFY2(full.err.contains("standard output cannot be written"), full.err);
        }
    }

    void decimalsOfAScript()
    {
        writeFile(at("fine.txt"),
            "op_v-angle=0\n\nop_h-angle=22.5\nop_shoot\nop_h-angle=45\nop_shoot\nop_h-angle=67.5\n"
            "op_shoot\n");
        const QStringList arguments
            = words("clauss --config fine.txt pics/1.jpg pics/2.jpg pics/3.jpg");
        Run run;
        const auto whole = recordFrom(arguments, &run);
        QVERIFY2(whole, run.err);
        QCOMPARE(whole->yaws, (QVector<float>{0.383972436F, 0.785398185F, 1.16937065F}));
        for (const char *part : {"fine.txt:3: op_h-angle=22.5", "2 in all", "--full-angles"})
            QVERIFY2(run.err.contains(part), run.err);

        const auto full = recordFrom(arguments + words("--full-angles"), &run);
        QVERIFY2(full, run.err);
        QCOMPARE(run.err, QByteArray());
        QCOMPARE(full->yaws, (QVector<float>{0.392699093F, 0.785398185F, 1.17809725F}));
    }

private:
    QString at(const Text &name) const { return m_folder->filePath(name); }

    /// Every file below the folder with its content.
    QStringList everything() const
    {
        QStringList list;
        QDirIterator files(
            m_folder->path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            list.append(path + QString::fromLatin1(fileContent(path).toHex()));
        }
        list.sort();
        return list;
    }

    /// Without a language names are UTF-8 all the same.
    Run panohost(const Texts &arguments, const QByteArray &input = {}) const
    {
        return run(PANOHOST, arguments, {m_folder->path(), input, bareEnvironment()});
    }

    /// The record that an import with \a arguments writes, its own outputs added to them; nothing
    /// when it fails, or when the project is none for the Hugin tools: \a result is that run then.
    std::optional<ProjectRecord> recordFrom(
        const QStringList &arguments, Run *result, const QByteArray &input = {}) const
    {
        *result = panohost(
            words("import") + arguments + words("--force --output record.pto --record record.json"),
            input);
        if (result->code != 0)
            return std::nullopt;
        const Run check = run("checkpto", {at("record.pto")});
        if (check.code < 0 || check.code == 255) {
            *result = check;
            return std::nullopt;
        }
        QString error;
        return recordFromJson(fileContent(at("record.json")), &error);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
