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

    void seesNothingBeyondAFold_data()
    {
        // Barrel leads what lies far off the axis back into the picture, sooner or later.
        const Table<QSize, double> row("size", "b");
        row("the least barrel", {900, 600}, -0.000005);
        row("strong", {1200, 600}, -0.05);
        row("before the corners", {900, 600}, -0.09);
        row("long before the corners", {900, 600}, -0.12);
    }
    void seesNothingBeyondAFold()
    {
        QFETCH(QSize, size);
        QFETCH(double, b);
        const View view({}, {size, 12, false}, {0, b, 0});
        QVERIFY(view.sees(directionOf(0.5, 0)));
        // Once out of the picture, straight up, it stays out.
        bool isSeen = true;
        for (double pitch = 0; pitch < M_PI; pitch += 0.001) {
            const bool isNext = view.sees(directionOf(0, pitch));
            QVERIFY2(isSeen || !isNext, qPrintable(QString::number(pitch)));
            isSeen = isNext;
        }
    }
};

QTEST_GUILESS_MAIN(tst_View)
#include "tst_View.moc"
