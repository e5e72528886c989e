// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Adjustment.h"

#include <ceres/cost_function.h>
#include <ceres/iteration_callback.h>
#include <ceres/jet.h>
#include <ceres/problem.h>
#include <ceres/solver.h>

#include <algorithm>
#include <array>
#include <memory>

namespace align {

namespace {

/// Working pixels a working pixel: the pull of a place to where it began, and to turn as its
/// neighbours do. Five times as much bends partial panoramas.
constexpr double kPull = 0.01;
/// The same for the pictures of one stack, which the head did not move.
constexpr double kStackPull = 0.3;
/// Working pixels a radian that count at most for both: what a head is off by are many pixels of a
/// long lens, and pulled as hard they would change its focal length.
constexpr double kMostPixels = 600;
/// Working pixels beyond which a distance counts less, round by round: at first all count alike,
/// and what fits comes near.
constexpr double kHubers[] = {1e9, 1, 0.25, 0.15};
constexpr int kFirstIterations = 8;
constexpr int kIterations = 2;
/// Working pixels for a focal length of twice the length, or a distortion of 1.
constexpr double kLensPull = 10;

/// A lens's parameters: the logarithm of how much longer its focal length is, and its distortion.
using LensBlock = std::array<double, 2>;
using Turn = std::array<double, 3>;

using LensJet = ceres::Jet<double, 2>;

Lens changed(const Lens &lens, const double *block)
{
    Lens result = lens;
    result.focal *= std::exp(block[0]);
    result.distortion = block[1];
    return result;
}

/// A ray and how it changes with the lens's parameters.
struct LensRay {
    Vector ray;
    Vector change[2];
};

LensRay lensRay(const Lens &lens, const double *block, const Point &point)
{
    const LensJet focal = lens.focal * exp(LensJet(block[0], 0));
    const LensJet distortion(block[1], 1);
    LensJet ray[3];
    rayThrough(point.x - lens.centre.x, point.y - lens.centre.y, focal, distortion, lens.fisheye,
        lens.unit, ray);
    LensRay result;
    for (int i = 0; i < 3; ++i) {
        result.ray[i] = ray[i].a;
        for (int k = 0; k < 2; ++k)
            result.change[k][i] = ray[i].v[k];
    }
    return result;
}

Rotation crossWith(const Vector &v)
{
    Rotation cross;
    cross << 0, -v.z(), v.y(), v.z(), 0, -v.x(), -v.y(), v.x(), 0;
    return cross;
}

/// A turn of the world and how it changes: turn(w + d) is about turnBy(J d) turn(w), J being the
/// left Jacobian of rotations.
struct ChangingTurn {
    Rotation turn;
    Rotation jacobian;

    explicit ChangingTurn(const double *parameters)
    {
        const Vector axis(parameters[0], parameters[1], parameters[2]);
        turn = turnBy(axis);
        const double angle = axis.norm();
        const Rotation cross = crossWith(axis);
        if (angle < 1e-6)
            jacobian = Rotation::Identity() + cross / 2;
        else
            jacobian = Rotation::Identity() + cross * ((1 - std::cos(angle)) / (angle * angle))
                + cross * cross * ((angle - std::sin(angle)) / (angle * angle * angle));
    }
};

using Jacobian = Eigen::Map<Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>>;

/// The distances of a pair's rays, in working pixels of the changed lenses: of the nominal ones,
/// all would come nearer by making the focal length longer. Its blocks: the first place, the
/// second, the first lens, and the second where it is another.
class PairCost : public ceres::CostFunction {
public:
    PairCost(const AdjustmentTask &task, const AdjustmentTask::Pair &pair)
        : m_task(task)
        , m_pair(pair)
        , m_weights(pair.matches.size(), 1)
    {
        set_num_residuals(static_cast<int>(3 * pair.matches.size()));
        mutable_parameter_block_sizes()->assign({3, 3, 2});
        if (picture(pair.first).lens != picture(pair.second).lens)
            mutable_parameter_block_sizes()->push_back(2);
    }

    /// Lets distances beyond \a huber count less from now on: with these weights the sum of squares
    /// falls where Huber's does.
    void reweigh(const double *const *parameters, double huber)
    {
        std::fill(m_weights.begin(), m_weights.end(), 1);
        std::vector<double> residuals(3 * m_weights.size());
        Evaluate(parameters, residuals.data(), nullptr);
        for (std::size_t i = 0; i < m_weights.size(); ++i) {
            const double length = Eigen::Map<Vector>(&residuals[3 * i]).norm();
            if (length > huber)
                m_weights[i] = std::sqrt(huber / length);
        }
    }

    bool Evaluate(
        const double *const *parameters, double *residuals, double **jacobians) const override
    {
        const AdjustmentTask::Picture &first = picture(m_pair.first);
        const AdjustmentTask::Picture &second = picture(m_pair.second);
        const bool ownLens = first.lens != second.lens;
        const AdjustmentTask::SharedLens &firstLens = lens(first);
        const AdjustmentTask::SharedLens &secondLens = lens(second);
        const ChangingTurn firstTurn(parameters[0]);
        const ChangingTurn secondTurn(parameters[1]);
        const Rotation firstAxes = firstTurn.turn * first.base;
        const Rotation secondAxes = secondTurn.turn * second.base;
        const double *zooms[] = {parameters[2], parameters[ownLens ? 3 : 2]};
        const double pixels
            = firstLens.lens.focal / firstLens.scale * std::exp((zooms[0][0] + zooms[1][0]) / 2);

        if (!jacobians) {
            const Lens lenses[]
                = {changed(firstLens.lens, zooms[0]), changed(secondLens.lens, zooms[1])};
            for (std::size_t i = 0; i < m_pair.matches.size(); ++i) {
                const Match &match = m_pair.matches[i];
                Eigen::Map<Vector>(residuals + 3 * i) = pixels * match.weight * m_weights[i]
                    * (firstAxes * lenses[0].ray(match.inFirst)
                        - secondAxes * lenses[1].ray(match.inSecond));
            }
            return true;
        }
        for (std::size_t i = 0; i < m_pair.matches.size(); ++i) {
            const Match &match = m_pair.matches[i];
            const LensRay a = lensRay(firstLens.lens, zooms[0], match.inFirst);
            const LensRay b = lensRay(secondLens.lens, zooms[1], match.inSecond);
            const Vector firstRay = firstAxes * a.ray;
            const Vector secondRay = secondAxes * b.ray;
            const double weight = pixels * match.weight * m_weights[i];
            const auto row = static_cast<Eigen::Index>(3 * i);
            const Vector distance = weight * (firstRay - secondRay);
            Eigen::Map<Vector>(residuals + row) = distance;
            const auto rows = [&](int block, int columns) {
                return Jacobian(jacobians[block] + row * columns, 3, columns);
            };
            if (jacobians[0])
                rows(0, 3) = -weight * crossWith(firstRay) * firstTurn.jacobian;
            if (jacobians[1])
                rows(1, 3) = weight * crossWith(secondRay) * secondTurn.jacobian;
            for (int k = 0; k < 2; ++k) {
                Vector change = weight * (firstAxes * a.change[k]);
                Vector otherChange = weight * (secondAxes * b.change[k]);
                if (k == 0) {
                    change += distance / 2;
                    otherChange -= distance / 2;
                }
                if (jacobians[2])
                    rows(2, 2).col(k) = ownLens ? change : Vector(change - otherChange);
                if (ownLens && jacobians[3])
                    rows(3, 2).col(k) = -otherChange;
            }
        }
        return true;
    }

private:
    const AdjustmentTask::Picture &picture(int index) const
    {
        return m_task.pictures[static_cast<std::size_t>(index)];
    }
    const AdjustmentTask::SharedLens &lens(const AdjustmentTask::Picture &picture) const
    {
        return m_task.lenses[static_cast<std::size_t>(picture.lens)];
    }

    const AdjustmentTask &m_task;
    const AdjustmentTask::Pair &m_pair;
    /// By how much each distance is shortened.
    std::vector<double> m_weights;
};

/// Pulls a block to zero, or two blocks to each other.
template <int Size> class Pull : public ceres::CostFunction {
public:
    Pull(double weight, bool isPair)
        : m_weight(weight)
    {
        set_num_residuals(Size);
        mutable_parameter_block_sizes()->assign(isPair ? 2 : 1, Size);
    }

    bool Evaluate(
        const double *const *parameters, double *residuals, double **jacobians) const override
    {
        const std::size_t blocks = parameter_block_sizes().size();
        for (int i = 0; i < Size; ++i)
            residuals[i] = m_weight * (parameters[0][i] - (blocks > 1 ? parameters[1][i] : 0.0));
        for (std::size_t block = 0; jacobians && block < blocks; ++block) {
            if (jacobians[block])
                Jacobian(jacobians[block], Size, Size)
                    = (block == 0 ? m_weight : -m_weight) * Eigen::MatrixXd::Identity(Size, Size);
        }
        return true;
    }

private:
    double m_weight;
};

class Canceller : public ceres::IterationCallback {
public:
    explicit Canceller(const std::function<bool()> &goOn)
        : m_goOn(goOn)
    {
    }
    ceres::CallbackReturnType operator()(const ceres::IterationSummary &) override
    {
        return m_goOn() ? ceres::SOLVER_CONTINUE : ceres::SOLVER_ABORT;
    }

private:
    const std::function<bool()> &m_goOn;
};

} // namespace

AdjustmentResult adjust(const AdjustmentTask &task, const std::function<bool()> &goOn)
{
    std::vector<Turn> turns(static_cast<std::size_t>(task.places), Turn{});
    std::vector<LensBlock> lenses;
    for (const auto &lens : task.lenses)
        lenses.push_back({0, lens.lens.distortion});
    const auto turnOf = [&](int place) { return turns[static_cast<std::size_t>(place)].data(); };

    ceres::Problem::Options problemOptions;
    // One object serves all.
    problemOptions.cost_function_ownership = ceres::DO_NOT_TAKE_OWNERSHIP;
    problemOptions.disable_all_safety_checks = true;
    ceres::Problem problem(problemOptions);
    std::vector<std::vector<double *>> costBlocks;
    std::vector<std::unique_ptr<PairCost>> costs;
    costs.reserve(task.pairs.size());
    for (const AdjustmentTask::Pair &pair : task.pairs) {
        if (pair.matches.empty())
            continue;
        const auto &first = task.pictures[static_cast<std::size_t>(pair.first)];
        const auto &second = task.pictures[static_cast<std::size_t>(pair.second)];
        costs.push_back(std::make_unique<PairCost>(task, pair));
        std::vector<double *> blocks{turnOf(first.place), turnOf(second.place),
            lenses[static_cast<std::size_t>(first.lens)].data()};
        if (first.lens != second.lens)
            blocks.push_back(lenses[static_cast<std::size_t>(second.lens)].data());
        problem.AddResidualBlock(costs.back().get(), nullptr, blocks);
        costBlocks.push_back(std::move(blocks));
    }

    double pixels = 1;
    for (const auto &lens : task.lenses)
        pixels = std::max(pixels, std::min(lens.lens.focal / lens.scale, kMostPixels));
    Pull<3> pull(kPull * pixels, false);
    // What holds the whole where nothing else does: next to nothing.
    Pull<3> breath(kPull * pixels * 1e-3, false);
    Pull<3> pairPull(kPull * pixels, true);
    Pull<2> lensPull(kLensPull, false);
    for (int place = 0; place < task.places; ++place)
        problem.AddResidualBlock(task.trusted[static_cast<std::size_t>(place)] ? &pull : &breath,
            nullptr, turnOf(place));
    Pull<3> stackPull(kStackPull * pixels, true);
    for (const auto &[first, second, isStack] : task.neighbours)
        problem.AddResidualBlock(
            isStack ? &stackPull : &pairPull, nullptr, turnOf(first), turnOf(second));
    for (LensBlock &lens : lenses)
        problem.AddResidualBlock(&lensPull, nullptr, lens.data());

    ceres::Solver::Options options;
    options.linear_solver_type = ceres::SPARSE_NORMAL_CHOLESKY;
    options.function_tolerance = 1e-5;
    options.logging_type = ceres::SILENT;
    Canceller canceller(goOn);
    options.callbacks.push_back(&canceller);
    ceres::Solver::Summary summary;
    options.max_num_iterations = kFirstIterations;
    for (const double huber : kHubers) {
        for (std::size_t i = 0; i < costs.size(); ++i)
            costs[i]->reweigh(costBlocks[i].data(), huber);
        ceres::Solve(options, &problem, &summary);
        if (summary.termination_type == ceres::USER_FAILURE)
            break;
        options.max_num_iterations = kIterations;
    }

    AdjustmentResult result;
    result.isCancelled = summary.termination_type == ceres::USER_FAILURE;
    for (const Turn &turn : turns)
        result.turns.push_back(turnBy({turn[0], turn[1], turn[2]}));
    for (std::size_t i = 0; i < lenses.size(); ++i)
        result.lenses.push_back(changed(task.lenses[i].lens, lenses[i].data()));
    return result;
}

} // namespace align
