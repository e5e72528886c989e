// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Stitching.h"

#include "align/OutputFile.h"
#include "stitch/BlendProgress.h"
#include "stitch/Outlines.h"
#include "stitch/Photometry.h"
#include "stitch/Radiance.h"
#include "stitch/Script.h"
#include "stitch/StitchProgress.h"
#include "stitch/Tags.h"
#include "stitch/ToolRunner.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace {

struct StitchTexts {
    Q_DECLARE_TR_FUNCTIONS(Stitching)
};

const QString kJpegQuality = QStringLiteral("92");

const char *suffixOf(OutputFormat format)
{
    return format == OutputFormat::Jpeg ? ".jpg" : format == OutputFormat::Tiff ? ".tif" : ".exr";
}

QString unreadable(const QString &path)
{
    return StitchTexts::tr("%1: cannot be read").arg(path);
}

/// The places of the pictures that stand for their locations: those of middle exposure.
QVector<int> representatives(const PtoProject &project)
{
    QMap<int, QVector<int>> stacks;
    for (int i = 0; i < project.pictures.size(); ++i)
        stacks[project.pictures.at(i).location].append(i);
    QVector<int> result;
    for (QVector<int> stack : qAsConst(stacks)) {
        std::stable_sort(stack.begin(), stack.end(), [&project](int a, int b) {
            return project.pictures.at(a).exposureValue > project.pictures.at(b).exposureValue;
        });
        result.append(stack.at((stack.size() - 1) / 2));
    }
    return result;
}

/// One stitch().
class Work {
public:
    Work(PtoProject project, const StitchOptions &options, WorkFolder &folder,
        const Progress &progress)
        : m_project(std::move(project))
        , m_options(options)
        , m_folder(folder)
        , m_progress(progress)
        , m_format(formatOf(options.output))
        , m_jobs(jobsOf(options))
    {
    }

    Stitched go(const QVector<PictureLight> &light)
    {
        m_light = light.size() == m_project.pictures.size() ? light : plainLight(m_project);
        const auto frame = frameOf(m_project, m_options.frame, &m_result.problem.text);
        if (!frame)
            return m_result;
        m_frame = *frame;
        if (m_options.preview)
            simplify();
        m_rendering = renderingOf(m_project);
        m_result.frame = m_frame;
        m_layers = layerRects(m_project, m_frame);
        m_progress.setEffort(effortOf(m_project, m_frame, m_layers, m_options));
        m_result.done = (!m_options.photometric || evenOut()) && remap() && mergeStacks() && blend()
            && writeWeb() && finish();
        return m_result;
    }

private:
    /// Leaves what a preview is made of: few pixels, and of each location one picture as it is.
    void simplify()
    {
        PtoProject project = m_project;
        project.pictures.clear();
        project.outputType = ProjectRecord::HostsChoice;
        QVector<PictureLight> light;
        for (const int place : representatives(m_project)) {
            project.pictures.append(m_project.pictures.at(place));
            light.append(m_light.at(place));
        }
        m_project = project;
        m_light = light;
        m_frame = previewOf(m_frame);
        m_options.photometric = false;
    }

    bool tell(double part) { return m_progress.tell(m_step, part); }

    /// Runs \a calls, whose work is as \a weights (else equal); \a done finishes what a call has
    /// made, or says why it cannot.
    bool run(const QVector<ToolCall> &calls, const std::function<QString(int)> &done,
        const std::function<void(const QByteArray &)> &line = {},
        const QVector<double> &weights = {})
    {
        const double whole = std::accumulate(weights.cbegin(), weights.cend(), 0.0);
        ToolRunner::Settings settings;
        settings.log = m_folder.file(QStringLiteral("log.txt"));
        settings.temporaryFolder = m_folder.path();
        settings.jobs = std::min(m_jobs, std::max(1, int(calls.size())));
        double ended = 0;
        ToolRunner::Listener listener;
        m_part = 0;
        listener.keepOn = [this] { return tell(m_part); };
        listener.line = [&line](int, const QByteArray &text) {
            if (line)
                line(text);
        };
        listener.done = [&](int call) {
            QString problem = done(call);
            ended += whole > 0 ? weights.at(call) / whole : 1.0 / calls.size();
            m_part = ended;
            return problem;
        };
        const ToolOutcome outcome = ToolRunner(settings).run(calls, listener);
        m_result.problem = outcome.problem;
        return outcome.end == ToolOutcome::End::Done;
    }

    bool write(const QString &path, const QByteArray &content)
    {
        m_result.problem = writeWhole({{path, content}});
        return m_result.problem.isEmpty();
    }

    bool evenOut()
    {
        m_step = StitchStep::EvenOut;
        if (m_project.pictures.size() < 2)
            return true;
        // Stacks keep their exposures: fusing wants them, and radiance is reckoned from them.
        const bool vignettingOnly = m_rendering != Rendering::Plain;
        QByteArray recipe = photometricScript(m_project, m_light, vignettingOnly, 0);
        for (const PtoProject::Picture &picture : m_project.pictures)
            recipe += identityOf(picture.path);
        const QString finished = m_folder.finished("light", recipe, ".pto");
        if (!m_folder.has(finished)) {
            const QString result = m_folder.unfinished(finished);
            const QString input = result + QStringLiteral(".in.pto");
            const PhotometryCall call
                = photometryCall(m_project, m_light, vignettingOnly, input, result);
            PhotometryCheck check;
            int loaded = 0;
            const auto readLine = [&](const QByteArray &line) {
                check.readLine(line);
                if (line.startsWith("loading"))
                    m_part = std::min(1.0, double(++loaded) / m_project.pictures.size());
            };
            const auto done = [&](int) {
                QFile file(result);
                if (!file.open(QIODevice::ReadOnly))
                    return unreadable(result);
                const QByteArray accepted = photometricScript(m_project,
                    check.accepted(file.readAll(), m_light, m_folder.path()), vignettingOnly, 0);
                file.close();
                const QString problem = writeWhole({{result, accepted}});
                return problem.isEmpty() ? WorkFolder::finish(result, finished) : problem;
            };
            if (!write(input, call.script)
                || !run({{QStringLiteral("vig_optimize"), call.arguments, result}}, done, readLine))
                return false;
            QFile::remove(input);
        }
        QFile file(finished);
        QString problem;
        const auto read = file.open(QIODevice::ReadOnly)
            ? readProject(file.readAll(), m_folder.path(), &problem)
            : std::nullopt;
        if (!read || read->light.size() != m_light.size()) {
            m_result.problem = unreadable(finished);
            return false;
        }
        for (int i = 0; i < m_light.size(); ++i)
            m_result.evenedOut
                |= std::abs(read->light.at(i).exposureValue - m_light.at(i).exposureValue) > 1e-6
                || read->light.at(i).vignetting != m_light.at(i).vignetting;
        m_light = read->light;
        return true;
    }

    bool remap()
    {
        m_step = StitchStep::Remap;
        const bool isRadiance = m_rendering == Rendering::Radiance;
        const QString suffix = isRadiance ? QStringLiteral(".exr") : QStringLiteral(".tif");
        QVector<ToolCall> calls;
        QStringList scripts;
        QStringList wanted;
        QVector<double> weights;
        for (int i = 0; i < m_project.pictures.size(); ++i) {
            const PtoProject::Picture &picture = m_project.pictures.at(i);
            m_remapped.append(QString());
            if (m_layers.at(i).isEmpty())
                continue;
            const QByteArray script = remapScript(
                m_frame, picture, m_light.at(i), m_project.outputExposure, isRadiance);
            QStringList arguments{QStringLiteral("-v"), QStringLiteral("-r"),
                isRadiance ? QStringLiteral("hdr") : QStringLiteral("ldr"), QStringLiteral("-m"),
                isRadiance ? QStringLiteral("EXR_m") : QStringLiteral("TIFF_m"),
                QStringLiteral("-z"), QStringLiteral("LZW")};
            if (m_rendering == Rendering::Fused)
                arguments.append(QStringLiteral("--ignore-exposure"));
            const QString finished = m_folder.finished("layer",
                arguments.join(QLatin1Char(' ')).toUtf8() + script + identityOf(picture.path),
                isRadiance ? ".exr" : ".tif");
            m_remapped.last() = finished;
            if (m_folder.has(finished))
                continue;
            const QString prefix = m_folder.unfinished(finished);
            const QString scriptFile = prefix + QStringLiteral(".pto");
            if (!write(scriptFile, script))
                return false;
            arguments << QStringLiteral("-o") << prefix + QLatin1Char('-') << scriptFile;
            calls.append(
                {QStringLiteral("nona"), arguments, prefix + QStringLiteral("-0000") + suffix});
            scripts.append(scriptFile);
            wanted.append(finished);
            weights.append(remappingEffort(m_layers.at(i), m_rendering));
        }
        const auto done = [&](int call) {
            QFile::remove(scripts.at(call));
            const QString made = calls.at(call).result;
            if (isRadiance) {
                // The tool that merges looks for these beside the picture, by its name.
                QString problem = WorkFolder::finish(grayOf(made), grayOf(wanted.at(call)));
                if (!problem.isEmpty())
                    return problem;
            }
            return WorkFolder::finish(made, wanted.at(call));
        };
        return run(calls, done, {}, weights);
    }

    static QString grayOf(const QString &exr)
    {
        return exr.left(exr.size() - 4) + QStringLiteral("_gray.pgm");
    }

    /// Leaves what is to be blended in m_remapped.
    bool mergeStacks()
    {
        m_step = StitchStep::MergeStacks;
        if (m_rendering == Rendering::Plain)
            return true;
        QMap<int, QStringList> stacks;
        for (int i = 0; i < m_remapped.size(); ++i) {
            if (!m_remapped.at(i).isEmpty())
                stacks[m_project.pictures.at(i).location].append(m_remapped.at(i));
        }
        const bool isRadiance = m_rendering == Rendering::Radiance;
        QVector<ToolCall> calls;
        QStringList wanted;
        QStringList merged;
        for (const QStringList &stack : qAsConst(stacks)) {
            if (stack.size() == 1 && !isRadiance) {
                merged.append(stack);
                continue;
            }
            QStringList arguments{QStringLiteral("-v")};
            if (!isRadiance) {
                arguments
                    << QStringLiteral("--compression=lzw")
                    << QStringLiteral("--depth=%1").arg(m_format == OutputFormat::Tiff ? 16 : 8);
                if (m_frame.isFullTurn())
                    arguments << QStringLiteral("-w");
            }
            const QString finished = m_folder.finished("stack",
                arguments.join(QLatin1Char(' ')).toUtf8() + stack.join(QLatin1Char('\n')).toUtf8(),
                isRadiance ? ".exr" : ".tif");
            merged.append(finished);
            if (m_folder.has(finished))
                continue;
            const QString result = m_folder.unfinished(finished);
            calls.append({isRadiance ? QStringLiteral("hugin_hdrmerge") : QStringLiteral("enfuse"),
                arguments << QStringLiteral("-o") << result << QStringLiteral("--") << stack,
                result});
            wanted.append(finished);
        }
        m_remapped = merged;
        return run(calls,
            [&](int call) { return WorkFolder::finish(calls.at(call).result, wanted.at(call)); });
    }

    bool blend()
    {
        m_step = StitchStep::Blend;
        QStringList layers = m_remapped;
        layers.removeAll(QString());
        if (layers.isEmpty()) {
            m_result.problem
                = {QStringLiteral("no picture lies within the crop"), Remedy::OtherCrop};
            return false;
        }
        const QRect &crop = m_frame.crop;
        // Seams in the middle of overlaps. enblend's usual way, by graph cut, leaves black holes
        // where rows meet, and so do its coarse masks, which it takes for large pictures;
        // optimising seams takes ten times as long as all the rest.
        QStringList arguments{QStringLiteral("-v"),
            QStringLiteral("--primary-seam-generator=nearest-feature-transform"),
            QStringLiteral("--fine-mask"), QStringLiteral("--no-optimize"), QStringLiteral("-f"),
            QStringLiteral("%1x%2+%3+%4")
                .arg(crop.width())
                .arg(crop.height())
                .arg(crop.left())
                .arg(crop.top())};
        if (m_frame.isFullTurn())
            arguments << QStringLiteral("-w");
        if (m_format == OutputFormat::Jpeg)
            arguments << QStringLiteral("--compression=") + kJpegQuality << QStringLiteral("-d8");
        else if (m_format == OutputFormat::Tiff)
            arguments << QStringLiteral("--compression=lzw") << QStringLiteral("-d16");
        m_blended = m_folder.finished("blended",
            arguments.join(QLatin1Char(' ')).toUtf8() + layers.join(QLatin1Char('\n')).toUtf8(),
            suffixOf(m_format));
        m_folder.prune(); // Only now all names are known that this run needs.
        if (m_folder.has(m_blended))
            return true;
        if (m_options.seams) {
            QString masks = m_folder.unfinished(QStringLiteral("mask-"));
            masks.replace(QLatin1Char('%'), QLatin1String("%%"));
            arguments << QStringLiteral("--save-masks=") + masks + QStringLiteral("%n.png");
        }
        // It gives up where hardly a pixel of a picture is left; blended one by one, which takes
        // longer, there is as a rule more left of each.
        const QStringList together = QStringList(QStringLiteral("--pre-assemble")) + arguments;
        bool mayRetry = true;
        bool isDone = blendLayers(together, layers, &mayRetry);
        for (int attempt = 0; attempt < 2 && !isDone && mayRetry; ++attempt) {
            m_result.problem = {};
            isDone = blendLayers(arguments, layers, &mayRetry);
            std::reverse(layers.begin(), layers.end());
        }
        return isDone;
    }

    /// False when it fails; \a mayRetry whether another order may help.
    bool blendLayers(QStringList arguments, const QStringList &layers, bool *mayRetry)
    {
        const QString result = m_folder.unfinished(m_blended);
        BlendProgress blending(layers.size(), m_folder.file(QStringLiteral("done-")).toUtf8());
        const bool isDone = run(
            {{QStringLiteral("enblend"),
                arguments << QStringLiteral("-o") << result << QStringLiteral("--") << layers,
                result}},
            [&](int) { return WorkFolder::finish(result, m_blended); },
            [&](const QByteArray &line) { m_part = blending.readLine(line); });
        const QStringList masks = m_folder.allUnfinished(QStringLiteral("mask-*.png"));
        if (isDone)
            m_result.seams = seamsOf(m_project, m_frame, masks);
        for (const QString &mask : masks)
            QFile::remove(mask);
        *mayRetry = blending.isDegenerate();
        return isDone;
    }

    bool writeWeb()
    {
        if (m_options.web.path.isEmpty())
            return true;
        m_step = StitchStep::WriteWeb;
        QString shown = m_blended;
        if (m_format != OutputFormat::Jpeg) {
            shown = m_folder.finished("shown", m_blended.toUtf8(), ".jpg");
            const QString result = m_folder.unfinished(shown);
            // Of a single picture enblend makes a copy with another depth.
            if (!m_folder.has(shown)
                && !run({{QStringLiteral("enblend"),
                            {QStringLiteral("-d8"), QStringLiteral("--compression=") + kJpegQuality,
                                QStringLiteral("-o"), result, QStringLiteral("--"), m_blended},
                            result}},
                    [&](int) { return WorkFolder::finish(result, shown); }))
                return false;
        }
        WebFolder folder = m_options.web;
        folder.jobs = m_jobs;
        bool isCancelled = false;
        const auto progress
            = [this](const QString &, int done, int count) { return tell(double(done) / count); };
        m_result.problem = writeWebFolder(folder, shown, m_frame,
            QFileInfo(m_options.output).completeBaseName(), progress, &isCancelled);
        return m_result.problem.isEmpty() && !isCancelled;
    }

    /// Gives the panorama its tags and its name.
    bool finish()
    {
        const QString whole = m_folder.unfinished(m_blended);
        const QString first = m_project.pictures.at(representatives(m_project).constFirst()).path;
        QString problem;
        if (m_format == OutputFormat::Exr) {
            problem = writeRadiance(m_blended, whole, first, m_frame);
        } else {
            QFile blended(m_blended);
            if (!m_options.keep)
                problem = WorkFolder::finish(m_blended, whole);
            else if (!blended.copy(whole))
                problem = unwritable(whole, blended.errorString());
            if (problem.isEmpty())
                problem = writeTags(whole, first, m_frame);
        }
        if (problem.isEmpty())
            problem = WorkFolder::finish(whole, m_options.output);
        m_result.problem = problem;
        return problem.isEmpty();
    }

    PtoProject m_project;
    StitchOptions m_options;
    WorkFolder &m_folder;
    StitchProgress m_progress;
    Rendering m_rendering = Rendering::Plain;
    OutputFormat m_format;
    int m_jobs;
    QVector<PictureLight> m_light;
    Frame m_frame;
    QVector<QRect> m_layers;
    /// A file a picture, later a stack; empty for what lies outside.
    QStringList m_remapped;
    QString m_blended;
    StitchStep m_step = StitchStep::EvenOut;
    double m_part = 0;
    Stitched m_result;
};

} // namespace

Stitched stitch(const PtoProject &project, const QVector<PictureLight> &light,
    const StitchOptions &options, WorkFolder &folder, const Progress &progress)
{
    return Work(project, options, folder, progress).go(light);
}
