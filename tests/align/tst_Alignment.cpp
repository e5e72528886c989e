// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Alignment.h"
#include "align/Features.h"
#include "align/RecordJson.h"
#include "tests/align/ShootingTruth.h"
#include "tests/align/TestPicture.h"
#include "tests/support/Files.h"
#include "tests/support/Program.h"
#include "tests/support/Table.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QtMath>

namespace {

const char kSphere[] = "--sphere --focal 12 --overlap 40 --size 330x220";
const char kRow[] = "--rows 2 --columns 5 --full-turn --focal 16 --size 360x240";
const char kErrors[] = " --head-error 0.3 --focal-error 1 --distortion -0.01";

PictureTable tableOf(const ProjectRecord &record)
{
    PictureTable pictures;
    for (const QStringList &stack : record.groups) {
        for (const QString &path : stack)
            pictures.insert(path, readPictureFacts(path, Thumbnail::Skip));
    }
    return pictures;
}

Alignment aligned(const ProjectRecord &record, const AlignOptions &options = {})
{
    QString problem;
    auto alignment = alignRecord(record, tableOf(record), options, {}, &problem);
    if (!alignment)
        qWarning("%s", qUtf8Printable(problem));
    return alignment.value_or(Alignment());
}

QImage noise(quint32 seed)
{
    QImage image(360, 240, QImage::Format_Grayscale8);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            seed = seed * 1664525 + 1013904223;
            image.scanLine(y)[x] = uchar(seed >> 24);
        }
    }
    return image;
}

QStringList names(const QStringList &paths)
{
    QStringList result;
    for (const QString &path : paths)
        result.append(QFileInfo(path).fileName());
    return result;
}

/// The project that an import makes of \a record.
QByteArray recordedText(const ProjectRecord &record)
{
    QString problem;
    return projectText(*projectOf(record, tableOf(record), &problem), {});
}

} // namespace

class tst_Alignment : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    int m_shootings = 0;
    QHash<QString, QString> m_made;

    /// The folder of a made-up shooting, made once.
    QString shooting(const QString &arguments)
    {
        QString &folder = m_made[arguments];
        if (folder.isEmpty()) {
            folder = m_folder.filePath(QStringLiteral("shooting%1").arg(++m_shootings));
            const Run made
                = run(MAKESHOOTING, words(arguments) + words("--output") + QStringList(folder));
            if (made.code != 0)
                qWarning(
                    "makeshooting %s: %s", qUtf8Printable(arguments), made.failure().constData());
        }
        return folder;
    }

    static ProjectRecord imported(const QString &folder, const QString &arguments)
    {
        QStringList all{QStringLiteral("import")};
        all += words(arguments);
        for (const char *file : {"shooting.xml", "shooting.txt", "script.txt"}) {
            const QString path = folder + QLatin1Char('/') + QLatin1String(file);
            if (QFile::exists(path) && !all.contains(QStringLiteral("gigapan")))
                all += {QStringLiteral("--config"), path};
        }
        const QString output = folder + QStringLiteral("/record.json");
        all += {QStringLiteral("--force"), QStringLiteral("--record"), output,
            QStringLiteral("--output"), folder + QStringLiteral("/import.pto"), folder};
        const Run import = run(PANOHOST, all);
        QString problem;
        const auto record = recordFromJson(contentIfThere(output), &problem);
        if (import.code != 0 || !record)
            qWarning("panohost import %s: %s %s", qUtf8Printable(arguments),
                import.failure().constData(), qUtf8Printable(problem));
        return record.value_or(ProjectRecord());
    }

    QString stacks()
    {
        return shooting(
            QLatin1String(kRow) + QLatin1String(kErrors) + QStringLiteral(" --brackets 3"));
    }

    /// A folder with the files of \a folder, to be changed.
    QString copied(const QString &folder)
    {
        QString copy = m_folder.filePath(QStringLiteral("copy%1").arg(++m_shootings));
        QDir().mkpath(copy);
        const QStringList files = QDir(folder).entryList(QDir::Files);
        for (const QString &name : files)
            QFile::copy(folder + QLatin1Char('/') + name, copy + QLatin1Char('/') + name);
        return copy;
    }

    /// Puts a sign into the picture at \a path, somewhere else for each \a number.
    static void paint(const QString &path, int number)
    {
        QImage image(path);
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 40; ++x) {
                const bool isDark = (x / 9 + y / 9) % 2 == 0 || (x * y) % 17 < 5;
                for (int copy = 0; copy < 3; ++copy)
                    image.setPixelColor(60 + 100 * copy + number % 5 + x, 100 + number % 4 + y,
                        isDark ? Qt::black : Qt::white);
            }
        }
        image.save(path, "JPG", 95);
    }

private slots:
    void robust_data()
    {
        // How many pictures show nothing that could be matched.
        const Table<QString, QString, int, double> row("shooting", "import", "plain", "rms");
        const QString sphere = QLatin1String(kSphere);
        const QString wrongSphere = sphere + QLatin1String(kErrors);
        const QString wrongRow = QLatin1String(kRow) + QLatin1String(kErrors);
        const auto more = [](const Text &shooting, const char *options) -> QString {
            return shooting + QLatin1String(options);
        };
        row("sphere", wrongSphere, "papywizard", 0, 0.02);
        row("the same houses again and again", more(wrongSphere, " --repeat"), "papywizard", 0,
            0.02);
        row("half of it sky", more(wrongSphere, " --sky 20"), "papywizard", 1, 0.2);
        row("blurred and noisy sky", more(wrongSphere, " --blurred-sky --noise 3"), "papywizard", 0,
            0.15);
        row("brackets of 4, points inside", more(wrongRow, " --brackets 3 --bracket-step 4"),
            "papywizard --stacks points", 14, 0.05);
        row("brackets of 4, points inside, 3 degrees off",
            more(kRow, " --brackets 3 --bracket-step 4 --head-error 3"),
            "papywizard --stacks points", 14, 0.1);
        row("blurred and noisy sky, large, and little else",
            "--rows 2 --columns 5 --full-turn --focal 12 --size 1500x1000 --pitch-range 20,75 "
            "--blurred-sky --noise 3 --head-error 0.3 --focal-error 1 --distortion -0.01",
            "papywizard", 0, 0.15);
        row("blurred and noisy sky, all levels",
            "--rows 2 --columns 5 --full-turn --focal 12 --size 600x400 --pitch-range 20,75 "
            "--blurred-sky --noise 3 --head-error 0.3 --focal-error 1 --distortion -0.01 "
            "--brackets 3 --bracket-step 1",
            "papywizard --levels all", 0, 0.15);
        row("brackets of 2, all levels", more(wrongRow, " --brackets 3"), "papywizard --levels all",
            0, 0.02);
        row("portrait by tag", more(wrongRow, " --portrait tag"), "papywizard", 0, 0.02);
        row("portrait by pixels", more(wrongRow, " --portrait pixels"), "papywizard", 0, 0.02);
        row("a head that counts from elsewhere", more(wrongSphere, " --head-offset 5,3"),
            "papywizard", 0, 0.02);
        row("focal length 5 % off",
            more(sphere, " --head-error 0.3 --focal-error 5 --distortion -0.03"), "papywizard", 0,
            0.02);
        row("3 degrees off, wide", more(sphere, " --head-error 3 --focal-error 1"), "papywizard", 0,
            0.1);
        row("3 degrees off, narrow",
            "--rows 3 --columns 5 --focal 50 --overlap 45 --size 360x240 --head-error 3 "
            "--focal-error 1",
            "papywizard", 0, 0.1);
        row("fisheye",
            more("--sphere --lens fisheye --focal 12 --overlap 40 --size 360x240", kErrors),
            "papywizard", 0, 0.02);
        row("clauss", more(wrongRow, " --format clauss"), "clauss", 0, 0.02);
        for (const char *overlap : {"20", "40", "60"})
            row(QByteArray("grid, overlap 30 where it is ") + overlap,
                more(QStringLiteral("--format gigapan --rows 3 --columns 4 --focal 35 --size "
                                    "360x240 --order serpentine-up --overlap ")
                        + QLatin1String(overlap),
                    kErrors),
                "gigapan --rows 3 --order serpentine-up --overlap 30 --clean-links", 0, 0.1);
        row("grid, once round",
            more("--format gigapan --rows 2 --columns 8 --focal 20 --full-turn --overlap 40 "
                 "--size 360x240",
                kErrors),
            "gigapan --rows 2 --full-turn --overlap 40 --clean-links", 0, 0.02);
    }
    void robust()
    {
        QFETCH(QString, shooting);
        QFETCH(QString, import);
        QFETCH(int, plain);
        QFETCH(double, rms);
        const QString folder = this->shooting(shooting);
        const ProjectRecord record = imported(folder, import);
        const Alignment alignment = aligned(record);
        const ShootingTruth truth = ShootingTruth::of(folder);

        const AlignReport &report = alignment.report;
        QVERIFY(report.pictures > 0);
        QVERIFY2(
            report.held.size() <= plain, qPrintable(names(report.held).join(QLatin1Char(' '))));
        QCOMPARE(report.joined + report.held.size(), report.pictures);
        QVERIFY(report.fits);
        if (report.held.isEmpty())
            QCOMPARE(report.parts, 1);
        const AlignError error = alignError(alignment.project, truth);
        QVERIFY2(error.rms <= rms,
            qPrintable(QStringLiteral("%1 degrees, %2 of %3")
                           .arg(error.rms)
                           .arg(error.worst)
                           .arg(error.worstName)));
        const AlignError joined = alignError(alignment.project, truth, names(report.held));
        // A tenth of a pixel; of pictures of 900 pixels it would be 0.015 degrees.
        const double pixel
            = 1 / (alignment.project.pictures.first().lens.pixelFocal() * M_PI / 180);
        QVERIFY2(joined.rms <= qMax(0.1 * pixel, plain == 0 ? rms : qMin(rms, 0.06)),
            qPrintable(QString::number(joined.rms)));
        QVERIFY(qAbs(report.focal / truth.focal - 1) < 0.003);
        QVERIFY(qAbs(report.distortion - truth.distortion) < 0.003);
        // Nothing is further off than the head was.
        if (!record.yaws.isEmpty()) {
            ProjectRecord headsWord = record;
            headsWord.autoDetection = false;
            QVERIFY(error.worst <= alignError(aligned(headsWord).project, truth).worst);
        }
    }

    void vignetted_data()
    {
        const Table<double> row("dark");
        row("usual", 0.4);
        row("strong", 0.65);
    }
    /// What one picture has at its border, another has brighter in its middle.
    void vignetted()
    {
        QFETCH(double, dark);
        const QString folder = copied(shooting(QLatin1String(kSphere) + QLatin1String(kErrors)));
        const ProjectRecord record = imported(folder, QStringLiteral("papywizard"));
        for (const QStringList &stack : record.groups) {
            QImage image(stack.first());
            const QPointF middle(image.width() / 2.0, image.height() / 2.0);
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QPointF off = QPointF(x, y) - middle;
                    const double left = 1
                        - dark * QPointF::dotProduct(off, off)
                            / QPointF::dotProduct(middle, middle);
                    const QRgb rgb = image.pixel(x, y);
                    image.setPixel(x, y,
                        qRgb(int(qRed(rgb) * left), int(qGreen(rgb) * left),
                            int(qBlue(rgb) * left)));
                }
            }
            QVERIFY(image.save(stack.first(), "JPG", 95));
        }
        const Alignment alignment = aligned(record);
        QCOMPARE(names(alignment.report.held), QStringList());
        QVERIFY(alignment.report.residualRms < 0.3);
        const AlignError off = alignError(alignment.project, ShootingTruth::of(folder));
        QVERIFY2(off.rms <= 0.02, qPrintable(QString::number(off.rms)));
    }

    void narrow_data()
    {
        const Table<int, double, int> row("focal", "error", "seed");
        row("10 degrees wide", 200, 0.3, 1);
        row("10 degrees wide, other errors", 200, 0.3, 2);
        row("10 degrees wide, and others", 200, 0.3, 4);
        row("10 degrees wide, head 1 degree off", 200, 1, 1);
        row("10 degrees wide, head 1 degree off otherwise", 200, 1, 4);
        row("20 degrees wide, head 2 degrees off", 100, 2, 4);
        row("20 degrees wide, head 2 degrees off otherwise", 100, 2, 6);
    }
    /// Through a long lens the head is off by large parts of a picture, and its errors and those of
    /// the focal length look alike.
    void narrow()
    {
        QFETCH(int, focal);
        QFETCH(double, error);
        QFETCH(int, seed);
        const QString folder = shooting(
            QStringLiteral("--rows 3 --columns 5 --overlap 40 --size 360x240 --head-step 0.01 "
                           "--focal-error 3 --focal %1 --head-error %2 --seed %3")
                .arg(focal)
                .arg(error)
                .arg(seed));
        const Alignment alignment = aligned(imported(folder, QStringLiteral("papywizard")));
        const ShootingTruth truth = ShootingTruth::of(folder);
        QCOMPARE(alignment.report.joined, 15);
        const AlignError off = alignError(alignment.project, truth);
        QVERIFY2(off.rms <= 0.15, qPrintable(QString::number(off.rms)));
        QVERIFY2(qAbs(alignment.report.focal / truth.focal - 1) < 0.015,
            qPrintable(QString::number(alignment.report.focal)));
    }

    void whatIsMatched_data()
    {
        // Places in their stacks, as first and second picture of pairs between stacks and inside.
        const Table<int, int, int, QString, QString> row(
            "stackLinking", "levelLinking", "outputType", "between", "inside");
        row("the reference", 0, 0, 0, "11", "");
        row("the reference that the import put first, tonemapped", 0, 0, 2, "00", "");
        row("the reference that the import put first, radiance", 0, 0, 3, "00", "");
        row("points inside", 1, 0, 0, "11", "01 12");
        row("all levels", 1, 1, 0, "00 11 22", "01 12");
        row("all levels of one place", 0, 1, 0, "00 11 22", "");
    }
    void whatIsMatched()
    {
        QFETCH(int, stackLinking);
        QFETCH(int, levelLinking);
        QFETCH(int, outputType);
        ProjectRecord record = imported(stacks(), QStringLiteral("papywizard"));
        record.stackLinking = stackLinking;
        record.levelLinking = levelLinking;
        record.outputType = outputType;
        const PtoProject project = aligned(record).project;

        QStringList between;
        QStringList inside;
        for (const ControlPoint &point : project.points) {
            const int places[] = {point.first, point.second};
            QVERIFY(places[0] < places[1]);
            const bool isInside = places[0] / 3 == places[1] / 3;
            (isInside ? inside : between)
                .append(QStringLiteral("%1%2").arg(places[0] % 3).arg(places[1] % 3));
        }
        for (QStringList *list : {&between, &inside}) {
            list->removeDuplicates();
            list->sort();
        }
        QTEST(between.join(QLatin1Char(' ')), "between");
        QTEST(inside.join(QLatin1Char(' ')), "inside");

        // One place for a stack, or each picture its own.
        for (int i = 0; i < project.pictures.size(); ++i) {
            const Placement &first = project.pictures.at(i - i % 3).place;
            const Placement &place = project.pictures.at(i).place;
            QCOMPARE(i % 3 == 0 || place.yaw != first.yaw, i % 3 == 0 || stackLinking == 1);
        }
        QVERIFY(alignError(project, ShootingTruth::of(stacks())).rms < 0.02);
    }

    void links()
    {
        ProjectRecord record = imported(shooting(QLatin1String(kSphere) + QLatin1String(kErrors)),
            QStringLiteral("papywizard"));
        const auto locations = [](const PtoProject &project) {
            QSet<QPair<int, int>> pairs;
            for (const ControlPoint &point : project.points)
                pairs.insert({point.first, point.second});
            return pairs;
        };
        QSet<QPair<int, int>> linked;
        for (const ProjectLink &link : qAsConst(record.links))
            linked.insert(
                {qMin(link.indices[0], link.indices[1]), qMax(link.indices[0], link.indices[1])});
        const QSet<QPair<int, int>> found = locations(aligned(record).project);
        QVERIFY(linked.contains(found));
        QVERIFY(found.size() < linked.size());

        // A chain, a link to nowhere, and one that leads round.
        record.links = {{2, {1, 2}}, {2, {2, 3}}, {2, {2, 200}}, {1, {-1, 1}}, {0, {3, 3}}};
        QCOMPARE(locations(aligned(record).project), (QSet<QPair<int, int>>{{1, 2}, {2, 3}}));
        record.links.clear();
        const Alignment nothing = aligned(record);
        QVERIFY(nothing.project.points.isEmpty());
        QCOMPARE(nothing.report.joined, 0);
    }

    void undetected()
    {
        ProjectRecord record = imported(stacks(), QStringLiteral("papywizard"));
        record.autoDetection = false;
        const Alignment alignment = aligned(record);
        QCOMPARE(projectText(alignment.project, {}), recordedText(record));
        QCOMPARE(alignment.report.joined, 0);
        QCOMPARE(alignment.report.held.size(), alignment.report.pictures);
    }

    void unoptimised()
    {
        ProjectRecord record = imported(stacks(), QStringLiteral("papywizard"));
        record.skipOptimization = true;
        PtoProject project = aligned(record).project;
        QVERIFY(project.points.size() > 500);
        project.points.clear();
        QCOMPARE(projectText(project, {}), recordedText(record));
    }

    void unguided()
    {
        // What the head says of a picture matters only for those that show nothing.
        const QString folder = shooting(
            QLatin1String(kSphere) + QLatin1String(kErrors) + QStringLiteral(" --sky 20"));
        ProjectRecord record = imported(folder, QStringLiteral("papywizard"));
        record.guidedOptimization = false;
        const Alignment straight = aligned(record);
        for (int i = 0; i < record.yaws.size(); ++i)
            record.yaws[i] += (i % 2 == 0 ? 0.01F : -0.01F) * float(i % 3);
        const Alignment shaken = aligned(record);
        const QStringList held = names(shaken.report.held);
        QCOMPARE(names(straight.report.held), held);
        const ShootingTruth truth = ShootingTruth::of(folder);
        QVERIFY(alignError(straight.project, truth, held).rms < 0.05);
        QVERIFY(alignError(shaken.project, truth, held).rms < 0.05);

        // The whole stays where the head said it was.
        align::TurnFit fit;
        QString problem;
        const PtoProject recorded = *projectOf(record, tableOf(record), &problem);
        for (int i = 0; i < recorded.pictures.size(); ++i) {
            if (!shaken.report.held.contains(recorded.pictures.at(i).path))
                fit.add(align::rotationOf(recorded.pictures.at(i).place),
                    align::rotationOf(shaken.project.pictures.at(i).place));
        }
        QVERIFY(align::angleOf(fit.turn()) < 1e-4);
    }

    void guided()
    {
        // Of a row that spans less than a turn its own points tell the angle between the ends worse
        // than the head does.
        const QString folder = shooting(
            QStringLiteral("--rows 1 --columns 6 --focal 18 --overlap 45 --size 360x240"));
        ProjectRecord record = imported(folder, QStringLiteral("papywizard"));
        for (float &yaw : record.yaws)
            yaw *= 1.05F;
        const auto span = [&](bool guided) {
            record.guidedOptimization = guided;
            const PtoProject project = aligned(record).project;
            return project.pictures.last().place.yaw - project.pictures.first().place.yaw;
        };
        const double recorded = qRadiansToDegrees(double(record.yaws.last() - record.yaws.first()));
        const double free = span(false);
        const double held = span(true);
        QVERIFY2(qAbs(recorded - held) < qAbs(recorded - free) - 0.02,
            qPrintable(QStringLiteral("%1 %2 %3").arg(recorded).arg(held).arg(free)));
    }

    void gridsAreGuided()
    {
        const QString folder = shooting(
            QStringLiteral("--format gigapan --rows 2 --columns 4 --focal 30 --size 360x240 "
                           "--overlap 45"));
        ProjectRecord record = imported(folder, QStringLiteral("gigapan --rows 2 --overlap 45"));
        record.guidedOptimization = true;
        const QByteArray guided = projectText(aligned(record).project, {});
        record.guidedOptimization = false;
        QCOMPARE(projectText(aligned(record).project, {}), guided);
    }

    void wrongMatches()
    {
        // A sign that somebody carried from one picture to the next.
        const QString folder = copied(stacks());
        for (int i = 2; i <= 14; i += 3) {
            const QString path
                = folder + QStringLiteral("/IMG_%1.jpg").arg(i, 4, 10, QLatin1Char('0'));
            paint(path, i);
        }
        ProjectRecord record = imported(folder, QStringLiteral("papywizard"));
        record.cleanLinks = false;
        const Alignment all = aligned(record);
        record.cleanLinks = true;
        const Alignment cleaned = aligned(record);
        QVERIFY(cleaned.project.points.size() < all.project.points.size());
        QVERIFY2(cleaned.report.residualWorst < 0.5 * all.report.residualWorst,
            qPrintable(QStringLiteral("%1 of %2")
                           .arg(cleaned.report.residualWorst)
                           .arg(all.report.residualWorst)));
        QVERIFY(alignError(cleaned.project, ShootingTruth::of(folder)).rms < 0.02);
    }

    void focals()
    {
        // The pictures' own where the record has none; found in either case.
        ProjectRecord record = imported(stacks(), QStringLiteral("papywizard"));
        const double focal = ShootingTruth::of(stacks()).focal;
        record.focal = 0;
        const AlignReport own = aligned(record).report;
        record.focal = 17;
        const AlignReport given = aligned(record).report;
        QCOMPARE(own.recordedFocal, 16.0);
        QCOMPARE(given.recordedFocal, 17.0);
        QVERIFY(qAbs(own.focal - focal) < 0.05);
        QVERIFY(qAbs(given.focal - focal) < 0.05);
    }

    void rolls()
    {
        // Turned by somebody who threw the tags away.
        const QString folder = copied(stacks());
        const QStringList pictures
            = QDir(folder).entryList({QStringLiteral("*.jpg")}, QDir::Files, QDir::Name);
        for (const QString &name : pictures) {
            const QString path = folder + QLatin1Char('/') + name;
            const QImage turned = QImage(path).transformed(QTransform().rotate(90));
            QVERIFY(QFile::remove(path) && turned.save(path, "JPG", 95));
        }
        const ProjectRecord record
            = imported(folder, QStringLiteral("papywizard --rotate 270 --focal 16"));
        QVERIFY(!record.rolls.isEmpty());
        const Alignment alignment = aligned(record);
        QCOMPARE(alignment.report.joined, alignment.report.pictures);
        // The truth is that of the pictures as they were: 90 degrees of roll apart.
        PtoProject project = alignment.project;
        for (PtoProject::Picture &picture : project.pictures) {
            const align::Rotation upright
                = align::rotationOf(picture.place) * align::rotationOf({0, 0, 90});
            picture.place = align::placementOf(upright);
        }
        QVERIFY(alignError(project, ShootingTruth::of(folder)).rms < 0.03);
    }

    void orders_data()
    {
        const Table<QString> row("order");
        for (const char *order : {"columns", "rows-down", "rows-up", "columns-left"})
            row(order);
    }
    void orders()
    {
        QFETCH(QString, order);
        const QString folder = shooting(
            QStringLiteral("--format gigapan --rows 2 --columns 3 --focal 24 --size 360x240 "
                           "--overlap 40 --head-error 0.2 --order ")
            + order);
        const Alignment alignment = aligned(imported(folder,
            QStringLiteral("gigapan --rows 2 --overlap 40 --clean-links --order ") + order));
        QCOMPARE(alignment.report.joined, 6);
        QVERIFY(alignError(alignment.project, ShootingTruth::of(folder)).rms < 0.03);
    }

    void pictureFiles_data()
    {
        const Table<QSize, QString> row("size", "suffix");
        row("12 megapixels, sides that no power of two divides", {4327, 2885}, "jpg");
        row("60 megapixels", {9486, 6324}, "jpg");
        row("as they are, no JPEG", {360, 240}, "png");
        row("scaled down, no JPEG", {2160, 1440}, "png");
        // Six lines more at either end than its preview shows.
        row("RAW, by its preview", {2160, 1452}, "nef");
    }
    void pictureFiles()
    {
        QFETCH(QSize, size);
        QFETCH(QString, suffix);
        const QString folder = copied(shooting(QStringLiteral(
            "--rows 1 --columns 3 --focal 24 --overlap 40 --size 360x240 --head-error 0.3")));
        const QStringList pictures = QDir(folder).entryList({QStringLiteral("*.jpg")});
        ShootingTruth truth = ShootingTruth::of(folder);
        for (const QString &name : pictures) {
            const QString path = folder + QLatin1Char('/') + name;
            const QString other = QFileInfo(name).baseName() + QLatin1Char('.') + suffix;
            const QImage image(path);
            QVERIFY(QFile::remove(path));
            const QString otherPath = folder + QLatin1Char('/') + other;
            if (suffix == QLatin1String("nef"))
                writeFile(otherPath, rawFile(jpegBytes(image), size));
            else
                QVERIFY(image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                            .save(otherPath));
            truth.rotations.insert(other, truth.rotations.value(name));
        }
        const Alignment alignment
            = aligned(imported(folder, QStringLiteral("papywizard --focal 24 --lens standard")));
        QCOMPARE(alignment.report.joined, 3);
        const double error = alignError(alignment.project, truth).rms;
        // A third of a pixel of what was enlarged.
        QVERIFY2(error < 0.1, qPrintable(QString::number(error)));
        // The points are the stored pictures'.
        int beyond = 0;
        for (const ControlPoint &point : alignment.project.points)
            beyond += point.inFirst.x() > size.width() * 0.7;
        QVERIFY(beyond > 5);
    }

    void pictureThatGoes()
    {
        // Between the reading of its tags and of itself.
        const QString folder = copied(stacks());
        const ProjectRecord record = imported(folder, QStringLiteral("papywizard"));
        const PictureTable pictures = tableOf(record);
        const QString &gone = record.groups[2][1];
        QVERIFY(QFile::remove(gone));
        QFile broken(record.groups[4][1]);
        QVERIFY(broken.open(QIODevice::ReadWrite) && broken.resize(700));
        broken.close();
        QString problem;
        const auto alignment = alignRecord(record, pictures, {}, {}, &problem);
        QVERIFY(alignment);
        QVERIFY(alignment->report.held.contains(gone));
        QVERIFY(alignment->report.held.contains(broken.fileName()));
        QVERIFY(alignment->report.joined >= 12);
        QVERIFY(alignError(alignment->project, ShootingTruth::of(folder)).worst < 1.5);
    }

    void strangePictures_data()
    {
        const Table<QSize> row("size");
        row("of elsewhere", {360, 240});
        row("of elsewhere, and flat", {4000, 12});
        row("of elsewhere, and hardly a line", {3600, 1});
    }
    /// One picture has no business there: the others are not led astray, and it is named.
    void strangePictures()
    {
        QFETCH(QSize, size);
        const QString folder = copied(shooting(QLatin1String(kRow) + QLatin1String(kErrors)));
        const QString wrong = folder + QStringLiteral("/IMG_0005.jpg");
        const QString elsewhere
            = shooting(QStringLiteral("--rows 1 --columns 1 --focal 16 --size 360x240 --seed 77"));
        QVERIFY(QFile::remove(wrong));
        QVERIFY(QImage(elsewhere + QStringLiteral("/IMG_0001.jpg")).scaled(size).save(wrong));
        const ProjectRecord record
            = imported(folder, QStringLiteral("papywizard --focal 16 --lens standard"));
        const Alignment alignment = aligned(record);
        const QStringList name{QStringLiteral("IMG_0005.jpg")};
        QCOMPARE(names(alignment.report.held), name);
        QCOMPARE(alignment.report.suspects.isEmpty(), size.height() < 100);
        for (const AlignReport::Suspect &suspect : alignment.report.suspects)
            QVERIFY(names(suspect.pictures).contains(name.first()));
        const ShootingTruth truth = ShootingTruth::of(folder);
        QVERIFY(alignError(alignment.project, truth, name).rms < 0.02);
        // In between its neighbours, where the head put it.
        QVERIFY(alignError(alignment.project, truth).worst < 1.5);
    }

    void nothingMatches_data()
    {
        const Table<QString, bool> row("pictures", "guided");
        row("noise, guided", "noise", true);
        row("noise, not guided", "noise", false);
        // Houses are like houses, a lawn like a lawn: some of it agrees by chance.
        row("of fifteen places, guided", "elsewhere", true);
        row("of fifteen places, not guided", "elsewhere", false);
        row("of fifteen skies", "skies", true);
    }
    void nothingMatches()
    {
        QFETCH(QString, pictures);
        QFETCH(bool, guided);
        const QString folder = copied(stacks());
        const QStringList files
            = QDir(folder).entryList({QStringLiteral("*.jpg")}, QDir::Files, QDir::Name);
        for (int i = 0; i < files.size(); ++i) {
            const QString path = folder + QLatin1Char('/') + files.at(i);
            QVERIFY(QFile::remove(path));
            if (pictures == QLatin1String("noise")) {
                QVERIFY(noise(quint32(i)).save(path, "JPG", 95));
                continue;
            }
            const QString sky = pictures == QLatin1String("skies")
                ? QStringLiteral(" --pitch-range 50,50 --blurred-sky --noise 3")
                : QString();
            const QString elsewhere
                = shooting(QStringLiteral("--rows 1 --columns 1 --focal 16 --size 360x240 "
                                          "--yaw-range %1,%1 --seed %2%3")
                               .arg(37 * i % 360)
                               .arg(700 + i)
                               .arg(sky));
            QVERIFY(QFile::copy(elsewhere + QStringLiteral("/IMG_0001.jpg"), path));
        }
        ProjectRecord record
            = imported(folder, QStringLiteral("papywizard --focal 16 --lens standard"));
        record.guidedOptimization = guided;
        const Alignment alignment = aligned(record);
        QCOMPARE(alignment.report.joined, 0);
        QCOMPARE(alignment.report.held.size(), alignment.report.pictures);
        QVERIFY(alignment.project.points.isEmpty());
        QCOMPARE(projectText(alignment.project, {}), recordedText(record));
    }

    void held_data()
    {
        // By what part the head counts wrong, and what part of that is left of a picture that
        // shows nothing.
        const Table<QString, double, bool, double> row("errors", "drift", "guided", "part");
        row("each picture its own", " --head-error 0.3", 0, true, 1.05);
        row("each its own, not guided", " --head-error 0.3", 0, false, 1.05);
        row("more and more", " --head-error 0.05", 0.03, true, 0.3);
        row("more and more, not guided", " --head-error 0.05", 0.03, false, 0.3);
    }
    void held()
    {
        QFETCH(QString, errors);
        QFETCH(double, drift);
        QFETCH(bool, guided);
        QFETCH(double, part);
        const QString folder = copied(
            shooting(QStringLiteral("--rows 2 --columns 7 --overlap 45 --focal 18 --size 360x240")
                + errors));
        // Two beside each other, and one alone.
        const QStringList plain{QStringLiteral("IMG_0003.jpg"), QStringLiteral("IMG_0010.jpg"),
            QStringLiteral("IMG_0013.jpg")};
        for (const QString &name : plain) {
            QImage grey(360, 240, QImage::Format_RGB32);
            grey.fill(Qt::gray);
            QVERIFY(grey.save(folder + QLatin1Char('/') + name));
        }
        ProjectRecord record
            = imported(folder, QStringLiteral("papywizard --focal 18 --lens standard"));
        record.guidedOptimization = guided;
        for (float &yaw : record.yaws)
            yaw *= float(1 - drift);
        const Alignment alignment = aligned(record);
        QCOMPARE(names(alignment.report.held), plain);
        record.autoDetection = false;
        const PtoProject recorded = aligned(record).project;

        const ShootingTruth truth = ShootingTruth::of(folder);
        const AlignError found = alignError(alignment.project, truth);
        const AlignError before = alignError(recorded, truth);
        double squares[2] = {};
        for (const QString &name : plain) {
            squares[0] += qPow(found.all.value(name), 2);
            squares[1] += qPow(before.all.value(name), 2);
        }
        const double left = qSqrt(squares[0] / squares[1]);
        QVERIFY2(left <= part, qPrintable(QString::number(left)));
    }

    void report_data()
    {
        const Table<QString, QString, QString, QStringList> row(
            "shooting", "import", "others", "lines");
        const QString whole = QLatin1String(kRow) + QLatin1String(kErrors);
        row("all is well", whole, "papywizard", "",
            {"10 pictures, 10 joined", "points miss each other by", "focal length", "the head was",
                "matching"});
        row("not looked for", whole, "papywizard --no-detect", "",
            {"10 pictures, 0 joined", "no points were looked for, as asked"});
        row("not optimised", whole, "papywizard --skip-optimization", "",
            {"10 pictures, 10 joined", "points miss each other by",
                "positions are the recorded ones, as asked", "matching"});
        row("a focal length that is none", whole, "papywizard --focal 13 --lens standard", "",
            {"10 pictures, 10 joined", "points miss each other by", "focal length 16",
                "the head was", "the pictures do not fit what was recorded", "matching"});
        row("two pictures of elsewhere", whole, "papywizard --focal 16 --lens standard",
            "IMG_0003.jpg IMG_0008.jpg",
            {"10 pictures, 8 joined, 2 held by the head: IMG_0003.jpg, IMG_0008.jpg",
                "points miss each other by", "focal length", "the head was",
                "match none of their neighbours, perhaps the wrong pictures: IMG_0003.jpg, "
                "IMG_0008.jpg",
                "matching"});
        const QString grid = QStringLiteral("--format gigapan --rows 2 --columns 4 --focal 30 "
                                            "--size 360x240 --overlap 45");
        row("a grid that overlaps more", grid, "gigapan --rows 2 --overlap 30", "",
            {"8 pictures, 8 joined", "points miss each other by", "focal length", "pictures were",
                "neighbours overlap by 4? % in a row and 4? % in a column (30 % stated)",
                "matching"});
        row("a grid taken in another order", grid,
            "gigapan --rows 2 --overlap 45 --order serpentine-up", "",
            {"8 pictures, 0 joined, 8 held by the head: IMG_0001.jpg",
                "the pictures do not fit the grid",
                "should overlap and do not match: ", "matching"});
        row("a grid that is not once round", grid, "gigapan --rows 2 --overlap 45 --full-turn", "",
            {"8 pictures, 8 joined", "in 4 parts that no points join", "points miss each other by",
                "focal length", "pictures were", "neighbours overlap by 4? % in a column",
                "matching"});
    }
    void report()
    {
        QFETCH(QString, shooting);
        QFETCH(QString, import);
        QFETCH(QString, others);
        QFETCH(QStringList, lines);
        const QString folder = copied(this->shooting(shooting));
        for (const QString &name : words(others)) {
            const QString elsewhere = this->shooting(
                QStringLiteral("--rows 1 --columns 1 --focal 16 --size 360x240 --seed 7")
                + name.mid(7, 1));
            QVERIFY(QFile::remove(folder + QLatin1Char('/') + name));
            QVERIFY(QFile::copy(
                elsewhere + QStringLiteral("/IMG_0001.jpg"), folder + QLatin1Char('/') + name));
        }
        const AlignReport report = aligned(imported(folder, import)).report;
        const QStringList found = report.toText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QVERIFY2(found.size() == lines.size(), qPrintable(report.toText()));
        for (int i = 0; i < lines.size(); ++i) {
            const QRegularExpression begin(
                QRegularExpression::wildcardToRegularExpression(lines.at(i) + QLatin1Char('*')));
            QVERIFY2(begin.match(found.at(i)).hasMatch(), qPrintable(report.toText()));
        }
    }

    void wrongSteps()
    {
        // The file of another shooting: what the pictures say is not to be argued with.
        const QString folder = shooting(
            QStringLiteral("--rows 1 --columns 6 --focal 18 --overlap 45 --size 360x240"));
        ProjectRecord record = imported(folder, QStringLiteral("papywizard"));
        for (float &yaw : record.yaws)
            yaw *= 1.4F;
        const Alignment alignment = aligned(record);
        QCOMPARE(alignment.report.joined, 6);
        QVERIFY(alignment.report.suspects.size() >= 4);
        QVERIFY(alignment.report.residualRms < 0.5);
        const double error = alignError(alignment.project, ShootingTruth::of(folder)).rms;
        QVERIFY2(error < 1, qPrintable(QString::number(error)));
    }

    void features()
    {
        // Blobs anywhere between the pixels are found where they are.
        align::WorkingPicture picture;
        picture.grey = cv::Mat(400, 600, CV_8U, cv::Scalar(128));
        std::vector<align::Point> blobs;
        for (int row = 0; row < 8; ++row) {
            for (int column = 0; column < 12; ++column)
                blobs.emplace_back(40 + 47.3 * column, 35 + 46.7 * row);
        }
        for (const align::Point &blob : blobs) {
            for (int y = int(blob.y) - 14; y < int(blob.y) + 15; ++y) {
                for (int x = int(blob.x) - 14; x < int(blob.x) + 15; ++x) {
                    const align::Point off = align::Point(x, y) - blob;
                    picture.grey.at<uchar>(y, x)
                        = uchar(std::lround(128 + 100 * std::exp(-off.dot(off) / (2 * 9))));
                }
            }
        }
        const align::Lens lens = align::Lens::of({{600, 400}, 60, false});
        const align::Features features = align::findFeatures(picture, lens);
        align::Point sum;
        int count = 0;
        for (const align::Point &point : features.points) {
            for (const align::Point &blob : blobs) {
                const align::Point off = point - blob;
                if (off.dot(off) < 4) {
                    sum += off;
                    ++count;
                }
            }
        }
        QVERIFY(count >= 90);
        QVERIFY2(std::sqrt(sum.dot(sum)) / count < 0.05,
            qPrintable(QStringLiteral("%1 %2").arg(sum.x / count).arg(sum.y / count)));
    }

    void cancelled()
    {
        const ProjectRecord record = imported(stacks(), QStringLiteral("papywizard"));
        const PictureTable pictures = tableOf(record);
        int calls = 0;
        int limit = 1'000'000;
        QStringList steps;
        const auto progress = [&](const QString &step, int, int) {
            if (!steps.contains(step))
                steps.append(step);
            return ++calls < limit;
        };
        QString problem;
        QVERIFY(alignRecord(record, pictures, {}, progress, &problem));
        QVERIFY(steps.size() >= 2);
        for (const int part : {1, calls / 2, calls}) {
            limit = part;
            calls = 0;
            problem = QStringLiteral("?");
            QVERIFY(!alignRecord(record, pictures, {}, progress, &problem));
            QCOMPARE(calls, part);
            QCOMPARE(problem, QString());
        }
    }

    void interrupted()
    {
        const QString folder = copied(stacks());
        const ProjectRecord record = imported(folder, QStringLiteral("papywizard"));
        const PictureTable pictures = tableOf(record);
        AlignOptions options;
        options.cacheFolder = folder + QStringLiteral("/a.pto.matches");
        const QString cache = options.cacheFolder + QStringLiteral("/matches");
        bool isKept = false;
        // Pairs that had to be matched, and the project.
        const auto run = [&](int cancelAfter, QByteArray *text) {
            int matched = 0;
            const auto progress = [&](const QString &step, int, int) {
                matched += step == QLatin1String("matching");
                return matched != cancelAfter;
            };
            QString problem;
            const auto alignment = alignRecord(record, pictures, options, progress, &problem);
            if (alignment && !isKept)
                forgetMatches(options.cacheFolder);
            *text = alignment ? projectText(alignment->project, {}) : QByteArray();
            return matched;
        };
        QByteArray whole;
        const int all = run(-1, &whole);
        QVERIFY(all > 10);
        QVERIFY(!QFileInfo::exists(options.cacheFolder));

        QByteArray text;
        QCOMPARE(run(8, &text), 8);
        QVERIFY(text.isEmpty());
        isKept = true;
        QCOMPARE(run(-1, &text), all - 8);
        QCOMPARE(text, whole);
        QCOMPARE(run(-1, &text), 0);
        QCOMPARE(text, whole);

        // Half of the last entry is lost, and one picture is a new one: what it is part of is done
        // again.
        QFile file(cache);
        QVERIFY(file.open(QIODevice::ReadWrite) && file.resize(file.size() - 5));
        file.close();
        QCOMPARE(run(-1, &text), 1);
        QCOMPARE(text, whole);
        QFile picture(record.groups[0][1]);
        QVERIFY(picture.open(QIODevice::ReadWrite));
        QVERIFY(picture.setFileTime(
            QDateTime::currentDateTime().addSecs(-100), QFileDevice::FileModificationTime));
        picture.close();
        const int again = run(-1, &text);
        QVERIFY(again > 0 && again < 6);
        QCOMPARE(text, whole);

        // No cache at all, or not ours.
        options.fresh = true;
        QCOMPARE(run(-1, &text), all);
        options.fresh = false;
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(QByteArray(5000, '\x7f'));
        file.close();
        isKept = false;
        QCOMPARE(run(-1, &text), all);
        QCOMPARE(text, whole);
        QVERIFY(!QFileInfo::exists(options.cacheFolder));
        options.cacheFolder = QStringLiteral("/proc/nowhere");
        QCOMPARE(run(-1, &text), all);
        QCOMPARE(text, whole);
    }

    void refused()
    {
        QString problem;
        QVERIFY(!alignRecord({}, {}, {}, {}, &problem));
        QCOMPARE(problem, QStringLiteral("there is no picture"));
    }
};

QTEST_GUILESS_MAIN(tst_Alignment)
#include "tst_Alignment.moc"
