// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/PtoProject.h"
#include "geometry/Angle.h"
#include "tests/support/Files.h"
#include "tests/support/Program.h"
#include "tests/support/Table.h"

#include <QDebug>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <cmath>
#include <limits>

namespace {

PictureFacts facts(const QSize &size, float focal, double exposureValue = 0, int orientation = 1)
{
    PictureFacts facts;
    facts.readable = true;
    facts.size = size;
    facts.focal = focal;
    facts.exposureValue = exposureValue;
    facts.orientation = orientation;
    return facts;
}

QString picture(int number)
{
    return QStringLiteral("/p/%1.jpg").arg(number, 3, 10, QLatin1Char('0'));
}

/// A record of \a stacks stacks of \a brackets pictures each, \a step degrees apart.
ProjectRecord recordOf(int stacks, int brackets, float step)
{
    ProjectRecord record;
    record.focal = 24;
    for (int stack = 0; stack < stacks; ++stack) {
        QStringList group;
        for (int i = 0; i < brackets; ++i) {
            group.append(picture(stack * brackets + i));
            record.yaws.append(geometry::toRadians(step * stack));
            record.pitches.append(geometry::toRadians(10 * i));
        }
        record.groups.append(group);
    }
    return record;
}

PictureTable tableOf(const ProjectRecord &record, const PictureFacts &facts)
{
    PictureTable table;
    for (const QStringList &group : record.groups) {
        for (const QString &path : group)
            table.insert(path, facts);
    }
    return table;
}

QString project(const ProjectRecord &record, const PictureTable &pictures)
{
    QString problem;
    const auto project = projectOf(record, pictures, &problem);
    return project ? QString::fromUtf8(projectText(*project, QStringLiteral("/elsewhere")))
                   : QStringLiteral("refused: ") + problem;
}

QStringList linesOf(const QString &text, char kind)
{
    QStringList lines;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        if ((line + QLatin1Char(' ')).startsWith(QLatin1Char(kind) + QStringLiteral(" ")))
            lines.append(line);
    }
    return lines;
}

/// The value of \a name in an i or p line, without its name.
QString value(const QString &line, const char *name)
{
    const QRegularExpression pattern(
        QStringLiteral(" %1([=-]?[0-9][0-9.,]*)( |$)").arg(QLatin1String(name)));
    return pattern.match(line).captured(1);
}

/// \a names of every i line, blank-separated, the lines with bars between.
QString values(const QString &text, std::initializer_list<const char *> names)
{
    QStringList result;
    for (const QString &line : linesOf(text, 'i')) {
        QStringList parts;
        for (const char *name : names)
            parts.append(value(line, name));
        result.append(parts.join(QLatin1Char(' ')));
    }
    return result.join(QLatin1Char('|'));
}

/// The names of the variables that are optimized and begin with \a first, "y" or all.
QString variables(const QString &text, const char *first = "")
{
    return linesOf(text, 'v')
        .filter(QStringLiteral(" %1").arg(QLatin1String(first)))
        .join(QLatin1Char(','));
}

} // namespace

Q_DECLARE_METATYPE(ProjectRecord)
Q_DECLARE_METATYPE(PictureFacts)

class tst_PtoProject : public QObject {
    Q_OBJECT

private slots:
    void wholeText()
    {
        ProjectRecord record = recordOf(2, 2, 30);
        record.rolls.fill(geometry::toRadians(90), 4);
        record.links = {{2, {0, 1}}};
        record.outputType = 3;
        record.groups[1][1] = QStringLiteral("/p/sub/a b,#=\u00e9.jpg");
        PictureTable table = tableOf(record, facts({900, 600}, 0, 12.5));
        table[picture(1)].exposureValue = 14.5;
        table[picture(2)].orientation = 8;

        QString problem;
        auto project = projectOf(record, table, &problem);
        QVERIFY2(project, qUtf8Printable(problem));
        project->points = {{0, 2, {812.25, 301.5}, {-0.5, 599}}};
        const QString text = QString::fromUtf8(projectText(*project, QStringLiteral("/p/sub/")));

        const QString lens
            = QStringLiteral(" v=0 a=0 b=0 c=0 d=0 e=0 g=0 t=0 Ra=0 Rb=0 Rc=0 Rd=0 Re=0 Va=0 Vb=0 "
                             "Vc=0 Vd=0 Vx=0 Vy=0");
        QCOMPARE(linesOf(text, 'i').join(QLatin1Char('\n')),
            QStringLiteral(
                "i w900 h600 f0 v73.73979529 a0 b0 c0 d0 e0 g0 t0 Ra0 Rb0 Rc0 Rd0 Re0 Va1 Vb0 Vc0 "
                "Vd0 Vx0 Vy0 r90 p0 y0 Eev12.5 Er1 Eb1 j0 n\"/p/000.jpg\"\n"
                "i w900 h600 f0%1 r=0 p=0 y=0 Eev14.5 Er1 Eb1 j=0 n\"/p/001.jpg\"\n"
                "i w900 h600 f0%1 r0 p0 y30 Eev12.5 Er1 Eb1 j2 n\"/p/002.jpg\"\n"
                "i w900 h600 f0%1 r=2 p=2 y=2 Eev12.5 Er1 Eb1 j=2 n\"a b,#=\u00e9.jpg\"")
                .arg(lens));
        QCOMPARE(variables(text), QStringLiteral("v v0,v b0,v y2,v p2,v r2"));
        QCOMPARE(linesOf(text, 'v').size(), 6);
        QCOMPARE(linesOf(text, 'c').join(QLatin1Char('|')),
            QStringLiteral("c n0 N2 x812.25 y301.5 X-0.5 Y599 t0"));
        QVERIFY(text.contains(QStringLiteral("#hugin_outputHDRBlended true\n")));
    }

    void stackPointsLeaveEveryPictureFree()
    {
        ProjectRecord record = recordOf(2, 3, 30);
        record.stackLinking = 1;
        const QString text = project(record, tableOf(record, facts({900, 600}, 0)));
        QCOMPARE(values(text, {"y", "p", "j"}),
            QStringLiteral("0 0 0|0 0 =0|0 0 =0|30 0 3|30 0 =3|30 0 =3"));
        QCOMPARE(variables(text, "y"), QStringLiteral("v y1,v y2,v y3,v y4,v y5"));
    }

    void oneAnchorAPart()
    {
        ProjectRecord record = recordOf(6, 1, 30);
        record.links = {{2, {4, 2}}, {2, {2, 5}}, {1, {3, 1}}, {3, {1, 7}}, {3, {-1, 0}}};
        const QString text = project(record, tableOf(record, facts({900, 600}, 0)));
        QCOMPARE(variables(text, "r"), QStringLiteral("v r3,v r4,v r5"));
    }

    void lenses()
    {
        ProjectRecord record = recordOf(6, 1, 30);
        record.focal = 0;
        PictureTable table = tableOf(record, facts({900, 600}, 24));
        table[picture(1)].size = {600, 900};
        table[picture(2)].focal = 50;
        table[picture(4)].lensType = 1;
        table[picture(5)].size = {600, 900};
        QCOMPARE(values(project(record, table), {"w", "h", "f", "v"}),
            QStringLiteral("900 600 0 73.73979529|600 900 0 53.13010235|900 600 0 39.59775271|"
                           "900 600 0 =0|900 600 3 85.94366927|600 900 0 =1"));

        // A focal length chosen in the import is every picture's, with the lens type chosen there.
        record.focal = 50;
        QCOMPARE(values(project(record, table), {"f", "v"}),
            QStringLiteral("0 39.59775271|0 26.99146656|0 =0|0 =0|0 =0|0 =1"));
    }

    void rolls_data()
    {
        const Table<int, float, double> row("orientation", "roll", "expected");
        row("tag 6", 6, 0.0F, 90);
        row("tag 8 and a press", 8, 90.0F, 0);
        row("tag 3 and a press back", 3, -90.0F, 90);
        row("many presses", 6, 810.0F, 180);
    }
    void rolls()
    {
        QFETCH(int, orientation);
        QFETCH(float, roll);
        QFETCH(double, expected);
        ProjectRecord record = recordOf(1, 1, 0);
        record.rolls = {geometry::toRadians(roll)};
        const QString text = project(record, tableOf(record, facts({900, 600}, 0, 0, orientation)));
        // The angle is a 32-bit one in radians: up to 810 degrees it is good to 1e-4.
        const double found = values(text, {"r"}).toDouble();
        QVERIFY2(qAbs(std::remainder(found - expected, 360)) < 1e-3, qUtf8Printable(text));
    }

    void grids_data()
    {
        const Table<int, bool, int, QString> row("mode", "fullTurn", "orientation", "places");
        // 36 mm make 900 pixels here: 53.1301 degrees across and 36.8699 down, half of it a step.
        const auto places = [](const char *pattern) {
            return QString::fromLatin1(pattern)
                .replace(QLatin1Char('X'), QLatin1String("26.5651"))
                .replace(QLatin1Char('Y'), QLatin1String("9.2175"));
        };
        row("columns", 0, false, 1, places("-X Y|-X -Y|0 Y|0 -Y|X Y|X -Y"));
        row("rows downward", 1, false, 1, places("-X Y|0 Y|X Y|-X -Y|0 -Y|X -Y"));
        row("rows upward", 2, false, 1, places("-X -Y|0 -Y|X -Y|-X Y|0 Y|X Y"));
        row("columns to the left", 3, false, 1, places("X Y|X -Y|0 Y|0 -Y|-X Y|-X -Y"));
        row("serpentine", 4, false, 1, places("-X -Y|0 -Y|X -Y|X Y|0 Y|-X Y"));
        row("full turn", 1, true, 1, places("-120 Y|0 Y|120 Y|-120 -Y|0 -Y|120 -Y"));
        row("upright by tag", 1, false, 6,
            "-18.4349 13.2825|0 13.2825|18.4349 13.2825|"
            "-18.4349 -13.2825|0 -13.2825|18.4349 -13.2825");
    }
    void grids()
    {
        QFETCH(int, mode);
        QFETCH(bool, fullTurn);
        QFETCH(int, orientation);
        ProjectRecord record = recordOf(6, 1, 0);
        record.yaws.clear();
        record.pitches.clear();
        record.focal = 0;
        record.layoutRows = 2;
        record.layoutMode = mode;
        record.fullTurn = fullTurn;
        record.overlap = 50;
        const QString text
            = project(record, tableOf(record, facts({900, 600}, 36, 0, orientation)));
        QTEST(values(text, {"y", "p"}), "places");
    }

    void outputExposure_data()
    {
        const Table<int, QVector<double>, QString, QString> row(
            "outputType", "exposures", "output", "pictures");
        const QVector<double> all{14, 12, 10, 14.5, 10.5, 12.5, 11, 2, 3};
        const QString same = QStringLiteral("14|12|10|14.5|10.5|12.5|11|2|3");
        row("middle exposure", 0, all, "12", same);
        row("the import's reference", 2, all, "14", same);
        // Left out of the middle, and as bright as the output: it would be rendered black as 0.
        row("unknown exposures", 0, {0, 0, 0, 12, 12, 12, 0, 0, 0}, "12",
            "12|12|12|12|12|12|12|12|12");
    }
    void outputExposure()
    {
        QFETCH(int, outputType);
        QFETCH(QVector<double>, exposures);
        ProjectRecord record = recordOf(3, 3, 30);
        record.outputType = outputType;
        PictureTable table;
        for (int i = 0; i < exposures.size(); ++i)
            table.insert(picture(i), facts({900, 600}, 0, exposures[i]));
        const QString text = project(record, table);
        QTEST(value(linesOf(text, 'p').value(0), "E"), "output");
        QTEST(values(text, {"Eev"}), "pictures");
    }

    void refused_data()
    {
        const Table<ProjectRecord, PictureFacts, QString> row("record", "picture", "cause");
        const ProjectRecord good = recordOf(2, 1, 30);
        const PictureFacts readable = facts({900, 600}, 24);
        ProjectRecord record = good;
        record.groups[1][0] = QStringLiteral("/p/\".jpg");
        row("quotation mark", record, readable, "/p/\".jpg: a project cannot name");
        record.groups[1][0] = QStringLiteral("/p/\n.jpg");
        row("line break", record, readable, ".jpg: a project cannot name");
        row("no record", {}, readable, "there is no picture");
        record = good;
        record.groups = {{}, {}};
        row("empty stacks", record, readable, "there is no picture");
        record = good;
        record.focal = 0;
        row("no focal", record, facts({900, 600}, 0), "/p/000.jpg: no usable focal length");
        record.focal = std::numeric_limits<float>::quiet_NaN();
        row("focal no number", record, facts({900, 600}, 0), "no usable focal length");
        record.focal = 1e30F;
        row("focal beyond reason", record, readable, "no usable focal length");
        PictureFacts unreadable;
        unreadable.reason = QStringLiteral("is empty");
        row("unreadable", good, unreadable, "/p/000.jpg: is empty");
        record = good;
        record.yaws.append(0);
        row("angles for half a location", record, readable, "3 yaws, 2 pitches and 0 rolls");
        record = good;
        record.rolls = {0};
        row("rolls for some", record, readable, "2 yaws, 2 pitches and 1 rolls");
        record = good;
        record.pitches[1] = std::numeric_limits<float>::infinity();
        row("angle no number", record, readable, "location 1");
        record = good;
        record.yaws.clear();
        row("grid without rows", record, readable, "no grid of 0 rows");
        record.layoutRows = 3;
        row("grid that does not fit", record, readable, "no grid of 3 rows");
        record.layoutRows = 2;
        record.overlap = std::numeric_limits<double>::quiet_NaN();
        row("grid with an overlap that is no number", record, readable, "no grid");
    }
    void refused()
    {
        QFETCH(ProjectRecord, record);
        QFETCH(PictureFacts, picture);
        QFETCH(QString, cause);
        QString problem;
        QVERIFY(!projectOf(record, tableOf(record, picture), &problem));
        QVERIFY2(problem.contains(cause), qUtf8Printable(problem));
    }

    void toolsAgree_data()
    {
        // Whether the canvas is cut to what the pictures cover.
        const Table<ProjectRecord, PictureFacts, bool> row("record", "picture", "cropped");
        const PictureFacts plain = facts({900, 600}, 24, 12.64);
        row("one picture", recordOf(1, 1, 0), plain, true);
        row("part of a turn", recordOf(4, 1, 25), plain, true);
        row("part of a turn, portrait by tag", recordOf(4, 1, 25), facts({900, 600}, 24, 12.64, 6),
            true);
        row("across the seam", recordOf(6, 1, 30), plain, false);
        row("full turn of stacks", recordOf(12, 3, 30), plain, false);

        ProjectRecord record = recordOf(9, 1, 40);
        for (int i = 0; i < 9; ++i)
            record.pitches[i] = geometry::toRadians(static_cast<float>(i % 3) * 60 - 60);
        row("sphere", record, plain, false);
        record.lensType = 1;
        record.focal = 8;
        row("sphere, fisheye", record, plain, false);
        record = recordOf(2, 1, 30);
        record.lensType = 1;
        record.focal = 16;
        record.rolls = {0.5F, -2.0F};
        row("fisheye, rolled", record, plain, true);
        record = recordOf(2, 2, 30);
        record.stackLinking = 1;
        record.pitches = {0.7F, 0, -0.4F, 0};
        record.focal = 35;
        record.rolls = {0.3F, 0, 1.9F, 0};
        row("pitched and rolled, points in stacks", record, plain, true);
        record = recordOf(1, 1, 0);
        record.focal = 10000;
        row("a telescope", record, facts({9000, 6000}, 0), true);
        record.focal = 1;
        row("1 mm", record, plain, false);
        record = recordOf(12, 1, 0);
        record.yaws.clear();
        record.layoutRows = 3;
        record.layoutMode = 4;
        record.overlap = 40;
        record.focal = 0;
        row("grid", record, facts({900, 600}, 100), true);
    }
    void toolsAgree()
    {
        QFETCH(ProjectRecord, record);
        QFETCH(PictureFacts, picture);
        QFETCH(bool, cropped);
        const QString path = m_folder.filePath(QStringLiteral("tools.pto"));
        const QString text = project(record, tableOf(record, picture));
        writeFile(path, text.toUtf8());

        const int images = linesOf(text, 'i').size();
        const Run check = run("checkpto", {path});
        QVERIFY2(check.code >= 0 && check.code != 255, check.err);
        QVERIFY2(check.out.contains('\n' + QByteArray::number(images) + " images\n"), check.out);

        // The canvas against what the tools themselves make of the borders.
        const QString canvasLine = linesOf(text, 'p').value(0);
        const QSize canvas(value(canvasLine, "w").toInt(), value(canvasLine, "h").toInt());
        const QStringList crop = value(canvasLine, "S").split(QLatin1Char(','));
        QCOMPARE(crop.size() == 4, cropped);
        const QRectF expected = cropped ? QRectF(QPointF(crop[0].toDouble(), crop[2].toDouble()),
                                    QPointF(crop[1].toDouble(), crop[3].toDouble()))
                                        : QRectF(QPointF(), canvas);
        QByteArray border;
        for (int i = 0; i <= 60; ++i) {
            const QByteArray x = QByteArray::number(picture.size.width() * i / 60.0);
            const QByteArray y = QByteArray::number(picture.size.height() * i / 60.0);
            border += x + " 0\n" + x + ' ' + QByteArray::number(picture.size.height()) + '\n' + "0 "
                + y + '\n' + QByteArray::number(picture.size.width()) + ' ' + y + '\n';
        }
        QRectF found;
        for (int i = 0; i < images; ++i) {
            const Run trafo = run("pano_trafo", {path, QString::number(i)}, {{}, border});
            QVERIFY2(trafo.code == 0 && trafo.err.isEmpty(), trafo.err);
            for (const QByteArray &line : trafo.out.trimmed().split('\n')) {
                const QList<QByteArray> point = line.split(' ');
                found |= QRectF(point[0].toDouble(), point[1].toDouble(), 1e-9, 1e-9);
            }
        }
        // A picture with a pole in it covers more than its border.
        const double tolerance = 2 + canvas.width() / 300.0;
        const auto close = [tolerance](double a, double b) { return std::abs(a - b) <= tolerance; };
        const bool agree = close(found.left(), expected.left())
            && close(found.right(), expected.right())
            && (!cropped
                || (close(found.top(), expected.top())
                    && close(found.bottom(), expected.bottom())));
        QString report;
        QDebug(&report) << canvasLine << "found" << found << "expected" << expected;
        QVERIFY2(agree, qPrintable(report));
    }

private:
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_PtoProject)
#include "tst_PtoProject.moc"
