// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/View.h"
#include "tests/support/Table.h"

#include <QLineF>
#include <cmath>

class tst_View : public QObject {
    Q_OBJECT

private slots:
    void findsWhatItShows_data()
    {
        const Table<bool, double, double, double> row("fisheye", "a", "b", "c");
        row("no distortion", false, 0, 0, 0);
        row("all of it", false, 0.003, -0.02, 0.006);
        row("strong barrel", false, 0, -0.05, 0);
        row("strong pincushion", false, 0, 0.05, 0);
        row("fisheye", true, 0, -0.03, 0);
    }
    /// From the centre to the very corners.
    void findsWhatItShows()
    {
        QFETCH(bool, fisheye);
        QFETCH(double, a);
        QFETCH(double, b);
        QFETCH(double, c);
        const QSize size(900, 600);
        const View view({40, -25, 10}, {size, 18, fisheye}, {a, b, c});
        for (int y = 0; y <= 20; ++y) {
            for (int x = 0; x <= 20; ++x) {
                const QPointF shown(0.9999 * size.width() * (x / 20.0 - 0.5),
                    0.9999 * size.height() * (y / 20.0 - 0.5));
                const auto found = view.find(view.at(shown.x(), shown.y()));
                QVERIFY2(found && QLineF(*found, shown).length() < 1e-3,
                    qPrintable(QStringLiteral("%1, %2").arg(shown.x()).arg(shown.y())));
            }
        }
    }

    void seesNothingBeyondAFold()
    {
        // The least barrel leads what lies far off the axis back into the picture.
        const View view({}, {{900, 600}, 12, false}, {0, -0.000005, 0});
        QVERIFY(view.sees(directionOf(0.5, 0)));
        for (double yaw = 1; yaw < M_PI; yaw += 0.001)
            QVERIFY2(!view.sees(directionOf(yaw, 0)), qPrintable(QString::number(yaw)));
    }
};

QTEST_GUILESS_MAIN(tst_View)
#include "tst_View.moc"
