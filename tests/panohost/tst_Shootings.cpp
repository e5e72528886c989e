// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/Files.h"
#include "tests/support/Program.h"
#include "tests/support/Table.h"

#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <cmath>

namespace {

/// What a project says of a picture, in its order of words; links to other pictures resolved.
using Picture = QHash<QString, double>;

/// By file name.
QHash<QString, Picture> picturesOf(const QString &project)
{
    static const QRegularExpression word(QStringLiteral(" (Eev|[whfvypr])(=?)(-?[0-9.]+)(?= )"));
    static const QRegularExpression name(QStringLiteral("n\"([^\"]+)\""));
    QVector<Picture> pictures;
    QHash<QString, Picture> byName;
    for (const QString &line : QString::fromUtf8(fileContent(project)).split(QLatin1Char('\n'))) {
        if (!line.startsWith(QLatin1String("i ")))
            continue;
        Picture picture;
        for (auto words = word.globalMatch(line); words.hasNext();) {
            const auto match = words.next();
            const double value = match.captured(3).toDouble();
            const QString key = match.captured(1);
            picture.insert(
                key, match.captured(2).isEmpty() ? value : pictures.value(int(value)).value(key));
        }
        pictures.append(picture);
        byName.insert(QFileInfo(name.match(line).captured(1)).fileName(), picture);
    }
    return byName;
}

} // namespace

/// Imports of shootings whose true positions are known: every picture must stand where it was
/// taken, with the lens it was taken with.
class tst_Shootings : public QObject {
    Q_OBJECT

private slots:
    void standWhereTheyWereTaken_data()
    {
        const Table<QString, QString> row("shooting", "import");
        row("--format papywizard --rows 2 --columns 5", "papywizard --config shooting.xml");
        row("--format papywizard --rows 2 --columns 3 --portrait tag --brackets 3",
            "papywizard --config shooting.xml");
        row("--format papywizard --rows 2 --columns 3 --portrait pixels --crop 1.6",
            "papywizard --config shooting.xml --stacks points");
        row("--format papywizard --rows 1 --columns 4 --lens fisheye --focal 12",
            "papywizard --config shooting.xml");
        row("--format clauss --rows 2 --columns 6 --full-turn", "clauss --config script.txt");
        row("--format clauss --rows 2 --columns 4 --focal 60 --head-step 0.05",
            "clauss --config script.txt --full-angles");
        row("--format vrdrive2 --rows 2 --columns 4 --brackets 4",
            "vrdrive2 --config shooting.xml --output-type hdr");
        row("--format gigapan --order columns --rows 3 --columns 4 --focal 50",
            "gigapan --rows 3 --overlap 30");
        row("--format gigapan --order rows-down --rows 2 --columns 6 --full-turn --focal 50 "
            "--overlap 40",
            "gigapan --rows 2 --order rows-down --full-turn");
        row("--format gigapan --order rows-up --rows 2 --columns 3 --focal 50 --portrait tag",
            "gigapan --rows 2 --order rows-up --overlap 30");
        row("--format gigapan --order columns-left --rows 2 --columns 3 --focal 50 --brackets 2",
            "gigapan --rows 2 --order columns-left --overlap 30 --bracket 2");
        row("--format gigapan --order serpentine-up --rows 3 --columns 4 --focal 50 --brackets 3 "
            "--ignore 2 --leftover 1",
            "gigapan --rows 3 --order serpentine-up --overlap 30 --bracket 3 --ignore 2");
    }
    void standWhereTheyWereTaken()
    {
        QFETCH(QString, shooting);
        QFETCH(QString, import);
        const QTemporaryDir folder;
        const QStringList size = words("--size 90x60 --force --output .");
        QCOMPARE(
            run(MAKESHOOTING, words(shooting) + size, {folder.path()}).failure(), QByteArray());
        const QStringList command = words("import") + words(import) + words("--output pano.pto .");
        QCOMPARE(run(PANOHOST, command, {folder.path()}).failure(), QByteArray());

        const auto truth = picturesOf(folder.filePath(QStringLiteral("truth.pto")));
        const auto imported = picturesOf(folder.filePath(QStringLiteral("pano.pto")));
        QVERIFY(!truth.isEmpty());
        QStringList names = truth.keys();
        names.sort();
        QStringList importedNames = imported.keys();
        importedNames.sort();
        QCOMPARE(importedNames, names);
        for (const QString &name : qAsConst(names)) {
            const Picture &expected = truth[name];
            for (const char *word : {"w", "h", "f", "v", "y", "p", "r", "Eev"}) {
                const QString key = QString::fromLatin1(word);
                QVERIFY2(expected.contains(key) && imported[name].contains(key), word);
                // The head's file holds hundredths of a degree; the tags whole tenths of a
                // millimetre.
                const double difference
                    = std::remainder(imported[name].value(key) - expected.value(key), 360.0);
                QVERIFY2(std::abs(difference) < 0.006,
                    qPrintable(QStringLiteral("%1 %2 is %3, not %4")
                                   .arg(name, key)
                                   .arg(imported[name].value(key))
                                   .arg(expected.value(key))));
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_Shootings)
#include "tst_Shootings.moc"
