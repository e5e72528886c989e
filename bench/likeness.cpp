// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// likeness PICTURE SCENE prints the peak signal to noise ratio of two pictures of one size, in
// decibels.

#include <QImage>
#include <QTextStream>
#include <cmath>

int main(int argc, char **argv)
{
    const auto picture = [&](int place) {
        return QImage(QString::fromLocal8Bit(argc > place ? argv[place] : ""))
            .convertToFormat(QImage::Format_RGB32);
    };
    const QImage panorama = picture(1);
    const QImage scene = picture(2);
    QTextStream out(stdout);
    if (panorama.isNull() || panorama.size() != scene.size()) {
        out << "Usage: likeness PICTURE SCENE, two pictures of one size\n";
        return 2;
    }
    double sum = 0;
    for (int y = 0; y < panorama.height(); ++y) {
        for (int x = 0; x < panorama.width(); ++x) {
            const QRgb a = panorama.pixel(x, y);
            const QRgb b = scene.pixel(x, y);
            sum += std::pow(qRed(a) - qRed(b), 2) + std::pow(qGreen(a) - qGreen(b), 2)
                + std::pow(qBlue(a) - qBlue(b), 2);
        }
    }
    const double mean = sum / (3.0 * panorama.width() * panorama.height());
    out << QString::number(10 * std::log10(255.0 * 255 / mean), 'f', 2) << '\n';
    return 0;
}
