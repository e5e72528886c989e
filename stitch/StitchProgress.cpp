// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/StitchProgress.h"

#include <QCoreApplication>
#include <QMap>
#include <algorithm>
#include <memory>
#include <numeric>

namespace {

/// Megapixels that are remapped while a picture is aligned, or its light compared, or while the
/// tool that remaps it starts. All that is reckoned as work was measured on two cores.
constexpr double kAlignment = 0.2;
constexpr double kComparison = 0.75;
constexpr double kStart = 0.8;
/// Work of a megapixel in a step: as a picture, and as radiance.
constexpr double kRemapping[] = {1, 1.85};
constexpr double kMerging[] = {0.3, 0.15};
constexpr double kBlending[] = {1, 1.5};
constexpr double kTiling = 0.7;
/// Parts of the whole that progress tells of.
constexpr int kParts = 1000;
constexpr const char *kStepNames[kStitchSteps] = {
    QT_TRANSLATE_NOOP("Progress", "Evening out brightness"),
    QT_TRANSLATE_NOOP("Progress", "Remapping"),
    QT_TRANSLATE_NOOP("Progress", "Merging exposures"),
    QT_TRANSLATE_NOOP("Progress", "Blending"),
    QT_TRANSLATE_NOOP("Progress", "Making tiles"),
};

double megapixelsOf(const QRect &rect)
{
    return double(areaOf(rect.size())) / 1e6;
}

int kindOf(Rendering rendering)
{
    return rendering == Rendering::Radiance ? 1 : 0;
}

} // namespace

double remappingEffort(const QRect &layer, Rendering rendering)
{
    return kStart + kRemapping[kindOf(rendering)] * megapixelsOf(layer);
}

StitchEffort effortOf(const PtoProject &project, const Frame &frame, const QVector<QRect> &layers,
    const StitchOptions &options)
{
    const Rendering rendering = renderingOf(project);
    const int kind = kindOf(rendering);
    double remapped = 0;
    double remapping = 0;
    QMap<int, QRect> blended;
    for (int i = 0; i < layers.size(); ++i) {
        remapped += megapixelsOf(layers.at(i));
        remapping += remappingEffort(layers.at(i), rendering);
        blended[project.pictures.at(i).location] |= layers.at(i);
    }
    double merged = 0;
    for (const QRect &layer : qAsConst(blended))
        merged += megapixelsOf(layer);
    return {options.photometric ? kComparison * project.pictures.size() : 0, remapping,
        rendering == Rendering::Plain ? 0 : kMerging[kind] * remapped, kBlending[kind] * merged,
        options.web.path.isEmpty() ? 0 : kTiling * megapixelsOf(frame.crop)};
}

bool StitchProgress::tell(StitchStep step, double part)
{
    if (!m_progress)
        return true;
    const auto index = static_cast<std::size_t>(step);
    const double before = std::accumulate(m_effort.begin(), m_effort.begin() + index, 0.0);
    const double whole = std::accumulate(m_effort.begin(), m_effort.end(), 0.0);
    m_told = std::max(m_told, before + m_effort[index] * part);
    return m_progress(QLatin1String(kStepNames[index]), int(m_told / whole * kParts), kParts);
}

std::pair<Progress, Progress> oneBar(
    const PtoProject &project, const StitchOptions &options, const Progress &progress)
{
    QString problem;
    const auto frame = frameOf(project, options.frame, &problem);
    if (!frame || !progress)
        return {progress, progress};
    const Frame shown = options.preview ? previewOf(*frame) : *frame;
    const StitchEffort effort = effortOf(project, shown, layerRects(project, shown), options);
    const double aligning = kAlignment * project.pictures.size();
    const double share = aligning / std::accumulate(effort.begin(), effort.end(), aligning);
    // What was aligned before is not told of.
    const auto before = std::make_shared<double>(0);
    const Progress alignment = [before, share, tell = asOneBar(progress, share)](
                                   const QString &step, int done, int total) {
        *before = share;
        return tell(step, done, total);
    };
    const Progress rendering = [before, progress](const QString &step, int done, int total) {
        const double part = *before + (1 - *before) * done / total;
        return progress(step, int(part * kParts), kParts);
    };
    return {alignment, rendering};
}

Progress asOneBar(const Progress &progress, double share)
{
    if (!progress)
        return {};
    struct State {
        QString step;
        double before = 0;
        double told = 0;
    };
    return [progress, share, state = std::make_shared<State>()](
               const QString &step, int done, int total) {
        if (step != state->step) {
            state->step = step;
            state->before = state->told;
        }
        // Most of what is left: nobody knows what comes after it.
        constexpr double kMost = 0.8;
        if (total > 0)
            state->told = std::max(
                state->told, state->before + kMost * (1 - state->before) * double(done) / total);
        return progress(step, int(state->told * share * kParts), kParts);
    };
}
