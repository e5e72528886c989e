// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// align_adjustment PICTURES adjusts a made-up grid of so many pictures, ten points for each right
// and lower neighbour, and prints pictures, points, seconds, megabytes at most and the error left
// in pixels.

#include "align/Adjustment.h"

#include <QTextStream>
#include <QtMath>
#include <ctime>
#include <random>
#include <sys/resource.h>

namespace {

constexpr int kPoints = 10;
/// Pixels about each axis.
constexpr double kHeadError = 10;

struct Grid {
    int columns;
    int rows;
    std::vector<align::Rotation> truth;
    align::AdjustmentTask task;
};

Grid gridOf(int pictures)
{
    using namespace align;
    Grid grid;
    grid.columns = static_cast<int>(std::sqrt(2.0 * pictures));
    grid.rows = pictures / grid.columns;
    std::mt19937 random(1);
    std::normal_distribution<double> pixelError(0, 0.1);
    std::uniform_real_distribution<double> anywhere(-1, 1);

    // As many columns as make a turn of 120 degrees, each picture 1.4 steps wide.
    const double step = 120.0 / grid.columns;
    const PictureOptics optics{{900, 600}, 18 / std::tan(qDegreesToRadians(0.7 * step)), false};
    const Lens nominal = Lens::of(optics);
    Lens lens = nominal;
    lens.focal *= 1.01;
    lens.distortion = -0.01;
    grid.task.lenses.push_back({nominal, 1});
    std::normal_distribution<double> headError(0, kHeadError / nominal.focal);
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const Placement place{
                (column - grid.columns / 2.0) * step, (grid.rows / 2.0 - row) * step * 2 / 3, 0};
            grid.truth.push_back(rotationOf(place));
            const Vector error(headError(random), headError(random), headError(random));
            grid.task.pictures.push_back(
                {grid.task.places++, 0, turnBy(error) * grid.truth.back()});
            grid.task.trusted.push_back(true);
        }
    }
    const auto link = [&](int first, int second, double x, double y) {
        AdjustmentTask::Pair pair;
        pair.first = first;
        pair.second = second;
        const Rotation turn
            = grid.truth[std::size_t(second)].transpose() * grid.truth[std::size_t(first)];
        for (int i = 0; i < kPoints; ++i) {
            const Point point = lens.centre
                + Point(x > 0 ? 300 + 120 * anywhere(random) : 420 * anywhere(random),
                    y > 0 ? 200 + 80 * anywhere(random) : 280 * anywhere(random));
            if (const auto seen = lens.project(turn * lens.ray(point)))
                pair.matches.push_back(
                    {point, *seen + Point(pixelError(random), pixelError(random)), 1});
        }
        grid.task.neighbours.push_back({first, second, false});
        grid.task.pairs.push_back(std::move(pair));
    };
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const int here = row * grid.columns + column;
            if (column + 1 < grid.columns)
                link(here, here + 1, 1, 0);
            if (row + 1 < grid.rows)
                link(here, here + grid.columns, 0, 1);
        }
    }
    return grid;
}

} // namespace

int main(int argc, char **argv)
{
    const int pictures = argc > 1 ? std::atoi(argv[1]) : 0;
    if (pictures < 4)
        return 2;
    const Grid grid = gridOf(pictures);
    const std::clock_t start = std::clock();
    const align::AdjustmentResult result = align::adjust(grid.task, [] { return true; });
    const double seconds = double(std::clock() - start) / CLOCKS_PER_SEC;

    align::TurnFit fit;
    std::size_t points = 0;
    for (const auto &pair : grid.task.pairs)
        points += pair.matches.size();
    for (std::size_t i = 0; i < grid.truth.size(); ++i)
        fit.add(result.turns[i] * grid.task.pictures[i].base, grid.truth[i]);
    double squares = 0;
    for (std::size_t i = 0; i < grid.truth.size(); ++i) {
        const double off = align::angleOf(
            fit.turn() * result.turns[i] * grid.task.pictures[i].base * grid.truth[i].transpose());
        squares += off * off / double(grid.truth.size());
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    QTextStream(stdout) << grid.truth.size() << ' ' << points << ' ' << seconds << ' '
                        << usage.ru_maxrss / 1024 << ' '
                        << std::sqrt(squares) * result.lenses[0].focal << '\n';
    return 0;
}
