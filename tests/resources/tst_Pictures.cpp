// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/Table.h"

#include <QImage>
#include <algorithm>
#include <cmath>

namespace {
QString inFolder(const char *identifierEnd, const char *name)
{
    return QStringLiteral(":/5A6F7276-696B-2020-2020-%1/Resources/%2")
        .arg(QLatin1String(identifierEnd), QLatin1String(name));
}

QStringList icons()
{
    return {inFolder("D6D081182F97", "ZClauss.png"), inFolder("6028D47773DF", "ZGigapan.png"),
        inFolder("483181480AB7", "Papywizard.png"), inFolder("B662C695C918", "VRDrive2.png"),
        QStringLiteral(":/panohost/panohost.png")};
}

QImage atSixteenPixels(const QString &path)
{
    return QImage(path)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied)
        .scaled(16, 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// Relative luminance, 0 to 1 (W3C, Web Content Accessibility Guidelines 2.1).
double luminance(QRgb colour)
{
    const auto linear = [](int channel) {
        const double value = channel / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour))
        + 0.0722 * linear(qBlue(colour));
}

/// Contrast ratio, 1 to 21 (same source).
double contrast(QRgb a, QRgb b)
{
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}
} // namespace

class tst_Pictures : public QObject {
    Q_OBJECT

private slots:
    void pictureComesInTwoDensities_data()
    {
        QTest::addColumn<QString>("path");
        const auto row = [](const QString &path) { QTest::newRow(qPrintable(path)) << path; };
        row(inFolder("2D91D0DDB961", "ZGigapan.png"));
        row(inFolder("D6D081182F97", "Clauss_wp.png"));
        for (const QString &icon : icons())
            row(icon);
        for (const char *mode :
            {"gigapan-mode0.png", "gigapan-mode1.png", "gigapan-mode2.png", "gigapan-mode3.png"})
            row(inFolder("6028D47773DF", mode));
        for (const char *turn : {"rot90left.png", "rot90right.png"}) {
            row(inFolder("483181480AB7", turn));
            row(inFolder("B662C695C918", turn));
        }
        row(QStringLiteral(":/panohost/gigapan-mode4.png"));
    }
    void pictureComesInTwoDensities()
    {
        QFETCH(QString, path);
        const QImage normal(path);
        const QImage dense(QString(path).replace(QLatin1String(".png"), QLatin1String("@2x.png")));
        QVERIFY(!normal.isNull());
        QCOMPARE(dense.size(), normal.size() * 2);
        QVERIFY(normal.hasAlphaChannel());
    }

    void iconShowsOnBackground_data()
    {
        const Table<QString, QRgb> row("path", "background");
        for (const QString &icon : icons()) {
            row(qPrintable(icon + QLatin1String(" on white")), icon, qRgb(255, 255, 255));
            row(qPrintable(icon + QLatin1String(" on dark")), icon, qRgb(34, 34, 34));
        }
    }
    void iconShowsOnBackground()
    {
        QFETCH(QString, path);
        QFETCH(QRgb, background);
        const QImage icon = atSixteenPixels(path);
        int drawn = 0;
        int seen = 0;
        for (int y = 0; y < 16; ++y) {
            for (int x = 0; x < 16; ++x) {
                const QColor colour = icon.pixelColor(x, y);
                if (colour.alpha() < 200)
                    continue;
                ++drawn;
                seen += contrast(colour.rgb(), background) >= 2.0 ? 1 : 0;
            }
        }
        QVERIFY2(drawn > 60, qPrintable(QString::number(drawn)));
        QVERIFY2(
            seen * 4 >= drawn * 3, qPrintable(QStringLiteral("%1 of %2").arg(seen).arg(drawn)));
    }

    void iconsDifferAtSixteenPixels()
    {
        const QStringList paths = icons();
        for (int i = 0; i < paths.size(); ++i) {
            for (int j = 0; j < i; ++j) {
                const QImage a = atSixteenPixels(paths[i]);
                const QImage b = atSixteenPixels(paths[j]);
                int different = 0;
                for (int y = 0; y < 16; ++y) {
                    for (int x = 0; x < 16; ++x) {
                        const QRgb p = a.pixel(x, y);
                        const QRgb q = b.pixel(x, y);
                        const int apart = std::max(
                            {std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                std::abs(qBlue(p) - qBlue(q)), std::abs(qAlpha(p) - qAlpha(q))});
                        different += apart > 64 ? 1 : 0;
                    }
                }
                QVERIFY2(different > 64,
                    qPrintable(QStringLiteral("%1 and %2: %3 pixels")
                                   .arg(paths[i], paths[j])
                                   .arg(different)));
            }
        }
    }

    void turnsMirrorEachOther()
    {
        const QImage left(inFolder("483181480AB7", "rot90left.png"));
        const QImage right(inFolder("483181480AB7", "rot90right.png"));
        QVERIFY(left != right);
        // The colours of antialiased edges may round differently, the shapes may not.
        const QImage mirrored = right.mirrored(true, false);
        for (int y = 0; y < left.height(); ++y) {
            for (int x = 0; x < left.width(); ++x)
                QVERIFY(std::abs(qAlpha(left.pixel(x, y)) - qAlpha(mirrored.pixel(x, y))) < 8);
        }
    }

    void ordersDiffer()
    {
        QVector<QImage> orders{QImage(QStringLiteral(":/panohost/gigapan-mode4.png"))};
        for (const char *mode :
            {"gigapan-mode0.png", "gigapan-mode1.png", "gigapan-mode2.png", "gigapan-mode3.png"}) {
            const QImage order(inFolder("6028D47773DF", mode));
            QVERIFY(!orders.contains(order));
            orders.append(order);
        }
    }
};

QTEST_GUILESS_MAIN(tst_Pictures)
#include "tst_Pictures.moc"
