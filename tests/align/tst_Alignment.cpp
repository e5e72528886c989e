// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Alignment.h"
#include "align/RecordJson.h"
#include "tests/align/ShootingTruth.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

const char kSphere[] = "--sphere --focal 14 --overlap 40 --size 360x240";
const char kRow[] = "--rows 2 --columns 7 --full-turn --focal 16 --size 360x240";
const char kErrors[] = " --head-error 0.3 --focal-error 1 --distortion -0.01";

QStringList words(const QString &text)
{
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

Alignment aligned(const ProjectRecord &record, const AlignOptions &options = {})
{
    PictureTable pictures;
    for (const QStringList &stack : record.groups) {
        for (const QString &path : stack)
            pictures.insert(path, readPictureFacts(path, Thumbnail::Skip));
    }
    QString problem;
    auto alignment = alignRecord(record, pictures, options, {}, &problem);
    if (!alignment)
        qWarning("%s", qUtf8Printable(problem));
    return alignment.value_or(Alignment());
}

QStringList names(const QStringList &paths)
{
    QStringList result;
    for (const QString &path : paths)
        result.append(QFileInfo(path).fileName());
    return result;
}

/// The pairs of pictures that points join, as "a-b", each once.
[[maybe_unused]] QStringList pairsOf(const PtoProject &project)
{
    QStringList pairs;
    for (const ControlPoint &point : project.points)
        pairs.append(QStringLiteral("%1-%2").arg(point.first).arg(point.second));
    pairs.removeDuplicates();
    return pairs;
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
            const QStringList all
                = words(arguments) + QStringList{QStringLiteral("--output"), folder};
            if (QProcess::execute(QStringLiteral(MAKESHOOTING), all) != 0)
                qWarning("makeshooting %s", qUtf8Printable(arguments));
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
        QProcess process;
        process.setStandardOutputFile(QProcess::nullDevice());
        process.start(QStringLiteral(PANOHOST), all);
        process.waitForFinished();
        QFile file(output);
        QString problem;
        if (process.exitCode() != 0 || !file.open(QIODevice::ReadOnly)) {
            qWarning("panohost import %s: %s", qUtf8Printable(arguments),
                process.readAllStandardError().constData());
            return {};
        }
        return recordFromJson(file.readAll(), &problem).value_or(ProjectRecord());
    }

private slots:
    void robust_data()
    {
        QTest::addColumn<QString>("shooting");
        QTest::addColumn<QString>("import");
        // Pictures that show nothing that could be matched.
        QTest::addColumn<int>("plain");
        QTest::addColumn<double>("rms");

        const auto row = [](const char *name, const QString &shooting, const char *import,
                             int plain = 0, double rms = 0.02) {
            QTest::newRow(name) << shooting << QString::fromLatin1(import) << plain << rms;
        };
        const QString sphere = QLatin1String(kSphere);
        const QString small = QLatin1String(kRow);
        const QString errors = QLatin1String(kErrors);
        row("sphere", sphere + errors, "papywizard");
        row("the same houses again and again", sphere + errors + QStringLiteral(" --repeat"),
            "papywizard");
        row("half of it sky", sphere + errors + QStringLiteral(" --sky 20"), "papywizard", 1, 0.2);
        row("blurred and noisy sky", sphere + errors + QStringLiteral(" --blurred-sky --noise 3"),
            "papywizard", 4, 0.3);
        row("brackets of 4", small + errors + QStringLiteral(" --brackets 3 --bracket-step 4"),
            "papywizard");
        row("brackets of 4, points inside",
            small + errors + QStringLiteral(" --brackets 3 --bracket-step 4"),
            "papywizard --stacks points", 14, 0.05);
        row("brackets of 2, all levels", small + errors + QStringLiteral(" --brackets 3"),
            "papywizard --levels all");
        row("portrait by tag", small + errors + QStringLiteral(" --portrait tag"), "papywizard");
        row("portrait by pixels", small + errors + QStringLiteral(" --portrait pixels"),
            "papywizard");
        row("a head that counts from elsewhere",
            sphere + errors + QStringLiteral(" --head-offset 5,3"), "papywizard");
        row("focal length 5 % off",
            sphere + QStringLiteral(" --head-error 0.3 --focal-error 5 --distortion -0.03"),
            "papywizard");
        row("3 degrees off, wide", sphere + QStringLiteral(" --head-error 3 --focal-error 1"),
            "papywizard", 0, 0.1);
        row("3 degrees off, narrow",
            QStringLiteral("--rows 3 --columns 5 --focal 50 --overlap 45 --size 360x240 "
                           "--head-error 3 --focal-error 1"),
            "papywizard", 0, 0.1);
        row("fisheye",
            QStringLiteral("--sphere --lens fisheye --focal 12 --overlap 40 --size 360x240")
                + errors,
            "papywizard");
        row("clauss", small + errors + QStringLiteral(" --format clauss"), "clauss");
        row("VR Drive 2", small + errors + QStringLiteral(" --format vrdrive2 --brackets 3"),
            "vrdrive2");
        for (const int overlap : {20, 40, 60})
            row(qPrintable(QStringLiteral("grid, overlap 30 where it is %1").arg(overlap)),
                QStringLiteral("--format gigapan --rows 3 --columns 4 --focal 35 --size 360x240 "
                               "--order serpentine-up --overlap %1")
                        .arg(overlap)
                    + errors,
                "gigapan --rows 3 --order serpentine-up --overlap 30 --clean-links", 0, 0.1);
        row("grid, once round",
            QStringLiteral("--format gigapan --rows 2 --columns 8 --focal 20 --full-turn "
                           "--overlap 40 --size 360x240")
                + errors,
            "gigapan --rows 2 --full-turn --overlap 40 --clean-links");
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
        QVERIFY2(joined.rms <= qMax(0.1 * pixel, qMin(rms, 0.05)),
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
};

QTEST_GUILESS_MAIN(tst_Alignment)
#include "tst_Alignment.moc"
