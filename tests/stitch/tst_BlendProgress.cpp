// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/BlendProgress.h"
#include "tests/support/Table.h"

#include <QtTest>

class tst_BlendProgress : public QObject {
    Q_OBJECT

private slots:
    /// Of four pictures; percent after each line.
    void reads_data()
    {
        const Table<QByteArray, QString> row("lines", "percents");
        const QByteArray one = "enblend: info: loading next image: /w/done-1.tif 1/1\n";
        const QByteArray two
            = "enblend: info: combining non-overlapping images: /w/done-1.tif 1/1 /w/done-2.tif\n";
        row("nothing is named yet", "enblend: info: checking\n", "0");
        row("singly", one + "a\nb\nc\n" + one, "0 3 6 8 25");
        row("two at once", two + "a\nb\nc\n" + one + "a\n", "0 6 11 17 50 53");
        row("talkative", one + QByteArray("a\n").repeated(11), "0 3 6 8 11 14 17 19 22 25 25 25");
        row("other folder's names",
            "enblend: info: loading next image: /w/mask-1.png\nenblend: info: so\n", "0 0");
        row("never all", two + one + one + one + QByteArray("a\n").repeated(9),
            "0 50 75 99 99 99 99 99 99 99 99 99 99");
    }
    void reads()
    {
        QFETCH(QByteArray, lines);
        BlendProgress progress(4, "/w/done-");
        QStringList percents;
        lines.chop(1);
        for (const QByteArray &line : lines.split('\n'))
            percents.append(QString::number(qRound(100 * progress.readLine(line))));
        QTEST(percents.join(QLatin1Char(' ')), "percents");
        QVERIFY(!progress.isDegenerate());
    }

    void degenerate()
    {
        BlendProgress progress(4, "/w/done-");
        progress.readLine("enblend: excessive overlap: degenerate image/mask geometry");
        progress.readLine("enblend: info: so");
        QVERIFY(progress.isDegenerate());
    }
};

QTEST_APPLESS_MAIN(tst_BlendProgress)
#include "tst_BlendProgress.moc"
