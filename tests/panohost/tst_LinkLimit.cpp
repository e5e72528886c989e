// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/heads/Head.h"
#include "tests/support/Files.h"
#include "tests/support/Table.h"

#include <QTemporaryDir>
#include <cmath>

namespace {

/// Spread evenly over the sphere.
struct Angles {
    double yaw, pitch;
};

Angles angles(int shot, int shots)
{
    return {std::fmod(shot * 137.50776, 360),
        std::asin((2 * shot + 1.0) / shots - 1) * 180 / 3.141592653589793};
}

QByteArray shootingXml(int shots, int brackets)
{
    QString xml = QStringLiteral("<p><header><camera><bracketing nbPicts=\"%1\"/></camera></header>"
                                 "<shoot>")
                      .arg(brackets);
    for (int k = 0; k < shots; ++k) {
        const Angles at = angles(k, shots);
        xml += QStringLiteral("<pict><position yaw=\"%1\" pitch=\"%2\"/></pict>")
                   .arg(at.yaw)
                   .arg(at.pitch);
    }
    return (xml + QStringLiteral("</shoot></p>")).toLatin1();
}

QByteArray script(int shots)
{
    QString script;
    for (int k = 0; k < shots; ++k) {
        const Angles at = angles(k, shots);
        script += QStringLiteral("op_h-angle=%1\nop_v-angle=%2\nop_shoot\n")
                      .arg(qRound(at.yaw))
                      .arg(qRound(at.pitch));
    }
    return script.toLatin1();
}

PictureList pictures(int count, float focal)
{
    PictureList pictures;
    for (int k = 0; k < count; ++k) {
        PictureFacts facts;
        facts.readable = true;
        facts.focal = focal;
        pictures.paths.append(QStringLiteral("/p/%1.jpg").arg(k));
        pictures.facts.append(facts);
    }
    return pictures;
}

} // namespace

Q_DECLARE_METATYPE(ImportOptions)

/// Imports of shootings that would link nearly everything with everything.
class tst_LinkLimit : public QObject {
    Q_OBJECT

private slots:
    void refuses_data()
    {
        // The odd focal length is the first picture's alone.
        const Table<QString, int, int, float, float, ImportOptions, QString> row(
            "head", "shots", "brackets", "focal", "oddFocal", "options", "expected");
        const QString papywizard = QStringLiteral("papywizard");
        const QString clauss = QStringLiteral("clauss");
        const auto sentence = [](const char *focal, const char *millions) {
            return QStringLiteral(
                "a focal length of %1 mm makes about %2 million links between the "
                "pictures, more than 20 million; --focal MM gives another")
                .arg(QLatin1String(focal), QLatin1String(millions));
        };
        ImportOptions none;
        ImportOptions oneMillimetre;
        oneMillimetre.focal = 1;
        ImportOptions fisheye = oneMillimetre;
        fisheye.lensType = 1;
        ImportOptions tele;
        tele.focal = 200;

        // With 1 mm a Papywizard shooting links pictures up to 134.4 degrees apart, 85 of 100.
        row("Papywizard", papywizard, 8000, 1, 1.0F, 1.0F, none, sentence("1", "27"));
        row("Papywizard, usual focal", papywizard, 8000, 1, 50.0F, 50.0F, none, "");
        row("Papywizard, focal given", papywizard, 8000, 1, 50.0F, 50.0F, oneMillimetre,
            sentence("1", "27"));
        row("Papywizard, better focal given", papywizard, 8000, 1, 1.0F, 1.0F, tele, "");
        row("a fisheye has no links", papywizard, 8000, 1, 1.0F, 1.0F, fisheye, "");
        row("locations count, not pictures", papywizard, 9000, 3, 1.0F, 1.0F, none, "");
        // 124.8 degrees, 79 of 100.
        row("Clauss", clauss, 8000, 1, 1.0F, 1.0F, none, sentence("1", "25"));
        row("Clauss, one odd focal", clauss, 8000, 1, 200.0F, 1.0F, none, "");
        row("Clauss, one usual focal", clauss, 8000, 1, 1.0F, 200.0F, none, sentence("1", "25"));
        row("Clauss, focal given", clauss, 8000, 1, 200.0F, 200.0F, oneMillimetre,
            sentence("1", "25"));
    }
    void refuses()
    {
        QFETCH(const QString, head);
        QFETCH(const int, shots);
        QFETCH(const int, brackets);
        QFETCH(const float, focal);
        QFETCH(const float, oddFocal);
        QFETCH(const ImportOptions, options);
        QFETCH(const QString, expected);

        QTemporaryDir folder;
        const QString path = writeFile(folder.filePath(QStringLiteral("shooting")),
            head == QLatin1String("clauss") ? script(shots) : shootingXml(shots, brackets));

        const std::unique_ptr<Head> import = findHead(head)->make();
        QVERIFY(import->readFile(path, {}));
        PictureList list = pictures(shots, focal);
        list.facts[0].focal = oddFocal;
        QCOMPARE(import->obstacles(list, options).join(QLatin1Char('\n')), expected);
    }
};

QTEST_GUILESS_MAIN(tst_LinkLimit)
#include "tst_LinkLimit.moc"
