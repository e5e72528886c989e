// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Adjustment.h"
#include "tests/support/Table.h"

#include <QtMath>
#include <QtTest>
#include <random>

using namespace align;

class tst_Adjustment : public QObject {
    Q_OBJECT

private slots:
    void findsPlacesAndLenses_data()
    {
        const Table<int, double, bool, double> row("lenses", "focal", "fisheye", "noise");
        row("one lens", 1, 20, false, 0);
        row("two lenses in turns", 2, 20, false, 0);
        row("fisheye", 1, 15, true, 0);
        row("two fisheyes in turns", 2, 15, true, 0);
        // A longer lens would bring all points nearer to each other.
        row("noise", 1, 60, false, 0.5);
        row("noise, two lenses in turns", 2, 60, false, 0.5);
    }
    /// Two rows of pictures, whose heads and lenses are all a little off, from points alone.
    void findsPlacesAndLenses()
    {
        QFETCH(int, lenses);
        QFETCH(double, focal);
        QFETCH(bool, fisheye);
        QFETCH(double, noise);
        constexpr int kColumns = 5;
        constexpr double kLonger[] = {1.02, 0.99};
        constexpr double kDistortions[] = {-0.02, 0.01};
        const QSize size(900, 600);
        std::mt19937 random(1);
        std::normal_distribution<double> normal(0, 1);
        std::uniform_real_distribution<double> anywhere(0, 1);

        std::vector<Lens> trueLenses;
        AdjustmentTask task;
        for (int i = 0; i < lenses; ++i) {
            const Lens nominal = Lens::of({size, focal * (1 + 0.2 * i), fisheye});
            task.lenses.push_back({nominal, 1});
            trueLenses.push_back(nominal);
            trueLenses.back().focal *= kLonger[i];
            trueLenses.back().distortion = kDistortions[i];
        }
        const double step = 0.5 * qRadiansToDegrees(36 / focal);
        std::vector<Rotation> truth;
        for (int i = 0; i < 2 * kColumns; ++i) {
            const int column = i % kColumns;
            const int row = i / kColumns;
            truth.push_back(rotationOf({column * step, row * 0.6 * step, 0.0}));
            const Vector error(normal(random), normal(random), normal(random));
            task.pictures.push_back(
                {task.places++, i % lenses, turnBy(qDegreesToRadians(0.3) * error) * truth.back()});
            task.trusted.push_back(false);
        }
        const auto lensOf = [&](int picture) { return trueLenses[std::size_t(picture % lenses)]; };
        const auto link = [&](int first, int second) {
            AdjustmentTask::Pair pair{first, second, {}};
            while (pair.matches.size() < 60) {
                const Point here(anywhere(random) * size.width(), anywhere(random) * size.height());
                const auto there = lensOf(second).project(truth[std::size_t(second)].transpose()
                    * truth[std::size_t(first)] * lensOf(first).ray(here));
                if (there && there->x > 0 && there->y > 0 && there->x < size.width()
                    && there->y < size.height())
                    pair.matches.push_back(
                        {here, *there + noise * Point(normal(random), normal(random)), 1});
            }
            task.pairs.push_back(std::move(pair));
        };
        for (int i = 0; i < 2 * kColumns; ++i) {
            if (i % kColumns > 0)
                link(i - 1, i);
            if (i >= kColumns)
                link(i - kColumns, i);
        }

        const AdjustmentResult result = adjust(task, [] { return true; });
        const double precision = noise > 0 ? 0.004 : 0.0005;
        // Degrees.
        const double mostOff = noise > 0 ? 0.05 : 0.005;
        for (int i = 0; i < lenses; ++i) {
            const Lens &found = result.lenses[std::size_t(i)];
            const Lens &sought = trueLenses[std::size_t(i)];
            QVERIFY2(qAbs(found.focal / sought.focal - 1) < precision,
                qPrintable(QString::number(found.focal / sought.focal)));
            QVERIFY2(qAbs(found.distortion - sought.distortion) < precision,
                qPrintable(QString::number(found.distortion)));
        }
        TurnFit whole;
        std::vector<Rotation> places;
        for (std::size_t i = 0; i < truth.size(); ++i) {
            places.emplace_back(result.turns[i] * task.pictures[i].base);
            whole.add(places[i], truth[i]);
        }
        for (std::size_t i = 0; i < truth.size(); ++i) {
            const double off
                = qRadiansToDegrees(angleOf(whole.turn() * places[i] * truth[i].transpose()));
            QVERIFY2(off < mostOff, qPrintable(QString::number(off)));
        }
    }

    void stopsWhenTold()
    {
        AdjustmentTask task;
        task.lenses.push_back({Lens::of({{900, 600}, 20, false}), 1});
        for (int i = 0; i < 2; ++i) {
            task.pictures.push_back({task.places++, 0, Rotation::Identity()});
            task.trusted.push_back(true);
        }
        AdjustmentTask::Pair pair{0, 1, {}};
        for (int i = 0; i < 10; ++i)
            pair.matches.push_back({{10.0 * i, 20.0 * i * i}, {30.0 * i, 15.0 * i * i}, 1});
        task.pairs.push_back(pair);
        QVERIFY(adjust(task, [] { return false; }).isCancelled);
        QVERIFY(!adjust(task, [] { return true; }).isCancelled);
    }
};

QTEST_GUILESS_MAIN(tst_Adjustment)
#include "tst_Adjustment.moc"
