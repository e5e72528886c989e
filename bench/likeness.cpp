// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The peak signal to noise ratio of two pictures of the whole sphere, in decibels, where the first
// may be turned as a whole as fits best: no alignment can know how the camera truly stood.
// likeness PANORAMA SCENE prints it as they are, turned, and by how many degrees.

#include "align/View.h"
#include "geometry/Angle.h"

#include <QImage>
#include <QTextStream>
#include <cmath>

namespace {

constexpr double kDegree = geometry::kPi / 180;
/// About the axes to the right, up and forward, in degrees.
using Turn = std::array<double, 3>;

Direction turned(Direction d, const Turn &turn)
{
    for (int axis = 0; axis < 3; ++axis) {
        const double angle = turn.at(axis) * kDegree;
        double &a = d.at((axis + 1) % 3);
        double &b = d.at((axis + 2) % 3);
        const double before = a;
        a = a * std::cos(angle) - b * std::sin(angle);
        b = before * std::sin(angle) + b * std::cos(angle);
    }
    return d;
}

/// Red, green and blue at a place between pixels; the sphere closes from right to left.
std::array<double, 3> colourAt(const QImage &sphere, double x, double y)
{
    const int left = int(std::floor(x));
    const int top = int(std::floor(y));
    std::array<double, 3> colour{};
    for (const int column : {left, left + 1}) {
        for (const int row : {top, top + 1}) {
            const double weight = (1 - std::abs(x - column)) * (1 - std::abs(y - row));
            const QRgb pixel = sphere.pixel(
                (column + sphere.width()) % sphere.width(), qBound(0, row, sphere.height() - 1));
            colour[0] += weight * qRed(pixel);
            colour[1] += weight * qGreen(pixel);
            colour[2] += weight * qBlue(pixel);
        }
    }
    return colour;
}

/// Every \a step-th pixel counts.
double decibels(const QImage &panorama, const QImage &scene, const Turn &turn, int step)
{
    double sum = 0;
    qint64 count = 0;
    for (int y = 0; y < panorama.height(); y += step) {
        for (int x = 0; x < panorama.width(); x += step) {
            const Direction d
                = turned(directionOf(((x + 0.5) / panorama.width() - 0.5) * 2 * geometry::kPi,
                             (0.5 - (y + 0.5) / panorama.height()) * geometry::kPi),
                    turn);
            const auto colour = colourAt(scene,
                (std::atan2(d[0], d[2]) / (2 * geometry::kPi) + 0.5) * scene.width() - 0.5,
                (0.5 - std::asin(qBound(-1.0, d[1], 1.0)) / geometry::kPi) * scene.height() - 0.5);
            const QRgb pixel = panorama.pixel(x, y);
            sum += std::pow(colour[0] - qRed(pixel), 2) + std::pow(colour[1] - qGreen(pixel), 2)
                + std::pow(colour[2] - qBlue(pixel), 2);
            count += 3;
        }
    }
    return 10 * std::log10(255.0 * 255 * double(count) / sum);
}

/// Goes up, axis by axis, by ever smaller steps.
Turn bestTurn(const QImage &panorama, const QImage &scene)
{
    constexpr int kStep = 5;
    Turn best{};
    double like = decibels(panorama, scene, best, kStep);
    for (double size = 0.1; size > 0.001; size /= 2) {
        for (bool isBetter = true; isBetter;) {
            isBetter = false;
            for (int axis = 0; axis < 3; ++axis) {
                for (const int sign : {1, -1}) {
                    Turn turn = best;
                    turn.at(axis) += sign * size;
                    const double now = decibels(panorama, scene, turn, kStep);
                    if (now > like) {
                        like = now;
                        best = turn;
                        isBetter = true;
                    }
                }
            }
        }
    }
    return best;
}

} // namespace

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
        out << "Usage: likeness PANORAMA SCENE, two pictures of one size\n";
        return 2;
    }
    const Turn turn = bestTurn(panorama, scene);
    out.setRealNumberNotation(QTextStream::FixedNotation);
    out.setRealNumberPrecision(2);
    out << decibels(panorama, scene, {}, 1) << ' ' << decibels(panorama, scene, turn, 1) << ' ';
    out.setRealNumberPrecision(4);
    out << std::hypot(turn[0], turn[1], turn[2]) << '\n';
    return 0;
}
