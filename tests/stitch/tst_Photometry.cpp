// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Photometry.h"

#include <QTest>
#include <cmath>

namespace {

QVector<PictureLight> threeLights()
{
    QVector<PictureLight> light(3);
    for (PictureLight &one : light)
        one.exposureValue = 12;
    return light;
}

QString told(const QVector<PictureLight> &light)
{
    QStringList words;
    for (const PictureLight &one : light)
        words.append(QStringLiteral("%1/%2").arg(one.exposureValue).arg(one.vignetting.at(0)));
    return words.join(QLatin1Char(' '));
}

} // namespace

class tst_Photometry : public QObject {
    Q_OBJECT

private slots:
    void judges_data()
    {
        QTest::addColumn<QByteArray>("errors");
        QTest::addColumn<QByteArray>("exposures");
        QTest::addColumn<QByteArray>("vignetting");
        QTest::addColumn<QString>("expected");

        const QString untouched = QStringLiteral("12/0 12/0 12/0");
        QTest::newRow("better") << QByteArray("9 5 4") << QByteArray("12 12.6 12.3")
                                << QByteArray("-0.2") << "11.7/-0.2 12.3/-0.2 12/-0.2";
        QTest::newRow("hardly better") << QByteArray("4.1 4.05 4.0") << QByteArray("12 12.6 12.3")
                                       << QByteArray("-0.2") << untouched;
        QTest::newRow("worse") << QByteArray("4 5") << QByteArray("12 12.6 12.3")
                               << QByteArray("-0.2") << untouched;
        QTest::newRow("tells nothing")
            << QByteArray() << QByteArray("12 12.6 12.3") << QByteArray("-0.2") << untouched;
        QTest::newRow("not numbers")
            << QByteArray("9 nan") << QByteArray("12 12.6 12.3") << QByteArray("-0.2") << untouched;
        QTest::newRow("no camera does that")
            << QByteArray("9 4") << QByteArray("12 15 12") << QByteArray("-0.2") << untouched;
        QTest::newRow("no lens does that")
            << QByteArray("9 4") << QByteArray("12 12 12") << QByteArray("-0.95") << untouched;
        QTest::newRow("no lens does that either")
            << QByteArray("9 4") << QByteArray("12 12 12") << QByteArray("0.5") << untouched;
        QTest::newRow("pictures are missing")
            << QByteArray("9 4") << QByteArray("12 12.6") << QByteArray("-0.2") << untouched;
    }
    void judges()
    {
        QFETCH(QByteArray, errors);
        QFETCH(QByteArray, exposures);
        QFETCH(QByteArray, vignetting);
        PhotometryJudge judge;
        judge.hear("loading: 1.jpg");
        if (!errors.isEmpty()) {
            for (const QByteArray &error : errors.split(' '))
                judge.hear("Iteration: 1, error: " + error);
        }
        QByteArray text;
        for (const QByteArray &exposure : exposures.split(' '))
            text += "i w90 h60 f0 v50 Vb" + vignetting + " Eev" + exposure + " n\"a.jpg\"\n";
        QTEST(told(judge.judge(text, threeLights(), QStringLiteral("/x"))), "expected");
    }
};

QTEST_GUILESS_MAIN(tst_Photometry)
#include "tst_Photometry.moc"
