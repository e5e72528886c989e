// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Photometry.h"
#include "tests/support/Table.h"

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
    void checks_data()
    {
        const Table<QByteArray, QByteArray, QByteArray, QString> row(
            "errors", "exposures", "vignetting", "expected");
        const QString untouched = QStringLiteral("12/0 12/0 12/0");
        row("better", "9 5 4", "12 12.6 12.3", "-0.2", "11.7/-0.2 12.3/-0.2 12/-0.2");
        row("hardly better", "4.1 4.05 4.0", "12 12.6 12.3", "-0.2", untouched);
        row("worse", "4 5", "12 12.6 12.3", "-0.2", untouched);
        row("tells nothing", "", "12 12.6 12.3", "-0.2", untouched);
        row("not numbers", "9 nan", "12 12.6 12.3", "-0.2", untouched);
        row("no camera does that", "9 4", "12 15 12", "-0.2", untouched);
        row("no lens does that", "9 4", "12 12 12", "-0.95", untouched);
        row("no lens does that either", "9 4", "12 12 12", "0.5", untouched);
        row("pictures are missing", "9 4", "12 12.6", "-0.2", untouched);
    }
    void checks()
    {
        QFETCH(QByteArray, errors);
        QFETCH(QByteArray, exposures);
        QFETCH(QByteArray, vignetting);
        PhotometryCheck check;
        check.readLine("loading: 1.jpg");
        if (!errors.isEmpty()) {
            for (const QByteArray &error : errors.split(' '))
                check.readLine("Iteration: 1, error: " + error);
        }
        QByteArray text;
        for (const QByteArray &exposure : exposures.split(' '))
            text += "i w90 h60 f0 v50 Vb" + vignetting + " Eev" + exposure + " n\"a.jpg\"\n";
        QTEST(told(check.accepted(text, threeLights(), QStringLiteral("/x"))), "expected");
    }
};

QTEST_GUILESS_MAIN(tst_Photometry)
#include "tst_Photometry.moc"
