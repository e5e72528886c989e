// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Stitching.h"

#include "align/OutputFile.h"
#include "stitch/Outlines.h"
#include "stitch/Photometry.h"
#include "stitch/Radiance.h"
#include "stitch/Script.h"
#include "stitch/Tags.h"
#include "stitch/ToolRunner.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QMap>
#include <QSet>
#include <QThread>
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numeric>
#include <utility>

namespace {

struct StitchTexts {
    Q_DECLARE_TR_FUNCTIONS(Stitching)
};

constexpr int kPreviewWidth = 1500;
/// What JPEG can hold.
constexpr int kLongestJpegSide = 65000;
const QString kJpegQuality = QStringLiteral("92");
constexpr double kMegapixel = 1e6;
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
/// Evening out, remapping, merging, blending, web folder.
constexpr int kSteps = 5;
constexpr const char *kStepNames[kSteps] = {
    QT_TRANSLATE_NOOP("Progress", "Evening out brightness"),
    QT_TRANSLATE_NOOP("Progress", "Remapping"),
    QT_TRANSLATE_NOOP("Progress", "Merging exposures"),
    QT_TRANSLATE_NOOP("Progress", "Blending"),
    QT_TRANSLATE_NOOP("Progress", "Making tiles"),
};

enum class Format { Jpeg, Tiff, Exr, Unknown };

Format formatOf(const QString &output)
{
    const QString suffix = QFileInfo(output).suffix().toLower();
    if (suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg"))
        return Format::Jpeg;
    if (suffix == QLatin1String("tif") || suffix == QLatin1String("tiff"))
        return Format::Tiff;
    return suffix == QLatin1String("exr") ? Format::Exr : Format::Unknown;
}

const char *suffixOf(Format format)
{
    return format == Format::Jpeg ? ".jpg" : format == Format::Tiff ? ".tif" : ".exr";
}

int jobsOf(const StitchWishes &wishes)
{
    return wishes.jobs > 0 ? wishes.jobs : std::max(1, QThread::idealThreadCount());
}

QVector<QRect> layersOf(const PtoProject &project, const Frame &frame)
{
    const QVector<View> views = viewsOf(project);
    QVector<QRect> layers;
    for (int i = 0; i < views.size(); ++i)
        layers.append(layerRect(frame, views.at(i), project.pictures.at(i).lens.size));
    return layers;
}

Frame previewOf(const Frame &frame)
{
    return frame.scaledTo(std::min(kPreviewWidth, frame.crop.width()));
}

double areaOf(const QRect &rect)
{
    return double(rect.width()) * rect.height();
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

/// How much each step has to do, in remapped megapixels.
std::array<double, kSteps> workOf(const PtoProject &project, const Frame &frame,
    const QVector<QRect> &layers, const StitchWishes &wishes)
{
    const Rendering rendering = renderingOf(project);
    const int kind = rendering == Rendering::Radiance ? 1 : 0;
    double remapped = 0;
    QMap<int, QRect> blended;
    for (int i = 0; i < layers.size(); ++i) {
        remapped += areaOf(layers.at(i));
        blended[project.pictures.at(i).location] |= layers.at(i);
    }
    double merged = 0;
    for (const QRect &layer : qAsConst(blended))
        merged += areaOf(layer);
    const double pictures = project.pictures.size();
    return {wishes.photometric ? kComparison * pictures : 0,
        kStart * pictures + kRemapping[kind] * remapped / kMegapixel,
        rendering == Rendering::Plain ? 0 : kMerging[kind] * remapped / kMegapixel,
        kBlending[kind] * merged / kMegapixel,
        wishes.web.path.isEmpty() ? 0 : kTiling * areaOf(frame.crop) / kMegapixel};
}

/// Why nona cannot read a picture of \a project; empty when it can read all. It goes by the first
/// bytes, and of a RAW that begins like a TIFF it would take the thumbnail for the picture.
QString foreignPicture(const PtoProject &project)
{
    const auto isForeign = [](const PtoProject::Picture &picture) {
        QFile file(picture.path);
        if (!file.open(QIODevice::ReadOnly))
            return false; // Told elsewhere.
        const QByteArray start = file.read(10);
        const QString suffix = QFileInfo(picture.path).suffix().toLower();
        const bool isTiff
            = start.startsWith(QByteArray("II*\0", 4)) || start.startsWith(QByteArray("MM\0*", 4));
        if (isTiff)
            return suffix != QLatin1String("tif") && suffix != QLatin1String("tiff");
        constexpr const char *kStarts[]
            = {"\xff\xd8\xff", "\x89PNG", "BM", "GIF8", "P5", "P6", "\x76\x2f\x31\x01", "#?"};
        return std::none_of(std::begin(kStarts), std::end(kStarts),
            [&start](const char *known) { return start.startsWith(known); });
    };
    const auto begin = project.pictures.cbegin();
    const auto end = project.pictures.cend();
    const auto first = std::find_if(begin, end, isForeign);
    if (first == end)
        return {};
    const auto others = std::count_if(first + 1, end, isForeign);
    return (others == 0
            ? StitchTexts::tr("%1: Hugin's tools cannot read such a file; develop or convert it to "
                              ".tif or .jpg and import that")
            : StitchTexts::tr("%1: Hugin's tools cannot read such a file; develop or convert it "
                              "and %Ln more to .tif or .jpg and import that",
                nullptr, int(others)))
        .arg(first->path);
}

/// Hears from enblend's lines how far it is. It blends groups of pictures that do not overlap, one
/// after the other.
class BlendingEar {
public:
    /// \a pictures are blended, their paths all beginning with \a prefix.
    BlendingEar(int pictures, QByteArray prefix)
        : m_pictures(pictures)
        , m_prefix(std::move(prefix))
    {
    }

    /// The part that is done when \a line has been said.
    double hear(const QByteArray &line)
    {
        m_isDegenerate |= line.contains("degenerate image/mask geometry");
        if (line.contains("combining non-overlapping images:")
            || line.contains("loading next image:")) {
            m_before = m_named;
            m_named += line.count(m_prefix);
            m_lines = 0;
        } else if (m_lines < kLines) {
            ++m_lines;
        }
        const double done = m_before + (m_named - m_before) * double(m_lines) / kLines;
        return std::min(0.99, done / m_pictures);
    }

    /// Whether it gave up for a picture of which hardly a pixel was left.
    bool isDegenerate() const { return m_isDegenerate; }

private:
    /// That it says of a group.
    static constexpr int kLines = 9;
    int m_pictures;
    QByteArray m_prefix;
    int m_before = 0;
    int m_named = 0;
    int m_lines = 0;
    bool m_isDegenerate = false;
};

/// One stitch().
class Work {
public:
    Work(PtoProject project, const StitchWishes &wishes, WorkFolder &folder,
        const Progress &progress)
        : m_project(std::move(project))
        , m_wishes(wishes)
        , m_folder(folder)
        , m_progress(progress)
        , m_format(formatOf(wishes.output))
        , m_jobs(jobsOf(wishes))
    {
    }

    Stitched go(const QVector<PictureLight> &light)
    {
        m_light = light.size() == m_project.pictures.size() ? light : plainLight(m_project);
        const auto frame = frameOf(m_project, m_wishes.frame, &m_result.problem);
        if (!frame)
            return m_result;
        m_frame = *frame;
        if (m_wishes.preview)
            simplify();
        m_rendering = renderingOf(m_project);
        m_result.frame = m_frame;
        m_layers = layersOf(m_project, m_frame);
        m_share = workOf(m_project, m_frame, m_layers, m_wishes);
        m_whole = std::accumulate(m_share.begin(), m_share.end(), 0.0);
        m_result.done = (!m_wishes.photometric || evenOut()) && remap() && mergeStacks() && blend()
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
        m_wishes.photometric = false;
    }

    /// Tells that \a part of the step is done; false when the user has had enough.
    bool tell(double part)
    {
        if (!m_progress)
            return true;
        const double before = std::accumulate(m_share.begin(), m_share.begin() + m_step, 0.0);
        m_told = std::max(m_told, before + m_share[m_step] * part);
        return m_progress(
            QLatin1String(kStepNames[m_step]), int(m_told / m_whole * kParts), kParts);
    }

    /// Runs \a calls, whose work is as \a weights (else equal); \a done finishes what a call has
    /// made, false when it cannot.
    bool run(const QVector<ToolCall> &calls, const std::function<bool(int)> &done,
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
            if (!done(call))
                return StitchTexts::tr("%1: cannot be written to").arg(m_folder.path());
            ended += whole > 0 ? weights.at(call) / whole : 1.0 / calls.size();
            m_part = ended;
            return QString();
        };
        const ToolOutcome outcome = ToolRunner(settings).run(calls, listener);
        m_result.problem = outcome.problem;
        return outcome.end == ToolOutcome::End::Done;
    }

    bool write(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size()
            && file.flush())
            return true;
        m_result.problem = unwritable(path, file.errorString());
        return false;
    }

    bool evenOut()
    {
        m_step = 0;
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
            PhotometryJudge judge;
            int loaded = 0;
            const auto hear = [&](const QByteArray &line) {
                judge.hear(line);
                if (line.startsWith("loading"))
                    m_part = std::min(1.0, double(++loaded) / m_project.pictures.size());
            };
            const auto done = [&](int) {
                QFile file(result);
                if (!file.open(QIODevice::ReadOnly))
                    return false;
                const QByteArray judged = photometricScript(m_project,
                    judge.judge(file.readAll(), m_light, m_folder.path()), vignettingOnly, 0);
                file.close();
                return write(result, judged) && WorkFolder::finish(result, finished);
            };
            if (!write(input, call.script)
                || !run({{QStringLiteral("vig_optimize"), call.arguments, result}}, done, hear))
                return false;
            QFile::remove(input);
        }
        QFile file(finished);
        QString problem;
        const auto read = file.open(QIODevice::ReadOnly)
            ? readProject(file.readAll(), m_folder.path(), &problem)
            : std::nullopt;
        if (!read || read->light.size() != m_light.size()) {
            m_result.problem = StitchTexts::tr("%1: cannot be read").arg(finished);
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
        m_step = 1;
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
            weights.append(kStart + areaOf(m_layers.at(i)) / kMegapixel);
        }
        const auto done = [&](int call) {
            QFile::remove(scripts.at(call));
            const QString made = calls.at(call).result;
            if (isRadiance) {
                // The tool that merges looks for these beside the picture, by its name.
                if (!WorkFolder::finish(grayOf(made), grayOf(wanted.at(call))))
                    return false;
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
        m_step = 2;
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
                arguments << QStringLiteral("--compression=lzw")
                          << QStringLiteral("--depth=%1").arg(m_format == Format::Tiff ? 16 : 8);
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
        m_step = 3;
        QStringList layers = m_remapped;
        layers.removeAll(QString());
        if (layers.isEmpty()) {
            m_result.problem = QStringLiteral("no picture lies in what --crop leaves");
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
        if (m_format == Format::Jpeg)
            arguments << QStringLiteral("--compression=") + kJpegQuality << QStringLiteral("-d8");
        else if (m_format == Format::Tiff)
            arguments << QStringLiteral("--compression=lzw") << QStringLiteral("-d16");
        m_blended = m_folder.finished("blended",
            arguments.join(QLatin1Char(' ')).toUtf8() + layers.join(QLatin1Char('\n')).toUtf8(),
            suffixOf(m_format));
        m_folder.prune(); // Only now all names are known that this run needs.
        if (m_folder.has(m_blended))
            return true;
        if (m_wishes.seams) {
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
            m_result.problem.clear();
            isDone = blendLayers(arguments, layers, &mayRetry);
            std::reverse(layers.begin(), layers.end());
        }
        return isDone;
    }

    /// False when it fails; \a mayRetry whether another order may help.
    bool blendLayers(QStringList arguments, const QStringList &layers, bool *mayRetry)
    {
        const QString result = m_folder.unfinished(m_blended);
        BlendingEar ear(layers.size(), m_folder.file(QStringLiteral("done-")).toUtf8());
        const bool isDone = run(
            {{QStringLiteral("enblend"),
                arguments << QStringLiteral("-o") << result << QStringLiteral("--") << layers,
                result}},
            [&](int) { return WorkFolder::finish(result, m_blended); },
            [&](const QByteArray &line) { m_part = ear.hear(line); });
        const QStringList masks = m_folder.allUnfinished(QStringLiteral("mask-*.png"));
        if (isDone)
            m_result.seams = seamsOf(m_project, m_frame, masks);
        for (const QString &mask : masks)
            QFile::remove(mask);
        *mayRetry = ear.isDegenerate();
        return isDone;
    }

    bool writeWeb()
    {
        if (m_wishes.web.path.isEmpty())
            return true;
        m_step = 4;
        QString shown = m_blended;
        if (m_format != Format::Jpeg) {
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
        WebFolder folder = m_wishes.web;
        folder.jobs = m_jobs;
        bool isCancelled = false;
        const auto progress
            = [this](const QString &, int done, int count) { return tell(double(done) / count); };
        m_result.problem = writeWebFolder(folder, shown, m_frame,
            QFileInfo(m_wishes.output).completeBaseName(), progress, &isCancelled);
        return m_result.problem.isEmpty() && !isCancelled;
    }

    /// Gives the panorama its tags and its name.
    bool finish()
    {
        m_step = 3;
        const QString whole = m_folder.unfinished(m_blended);
        const QString first = m_project.pictures.at(representatives(m_project).constFirst()).path;
        if (m_format == Format::Exr) {
            m_result.problem = writeRadiance(m_blended, whole, first, m_frame);
        } else if (m_wishes.keep ? QFile::copy(m_blended, whole)
                                 : WorkFolder::finish(m_blended, whole)) {
            m_result.problem = writeTags(whole, first, m_frame);
        } else {
            m_result.problem = unwritable(whole);
        }
        if (m_result.problem.isEmpty() && !WorkFolder::finish(whole, m_wishes.output))
            m_result.problem = unwritable(m_wishes.output);
        return m_result.problem.isEmpty();
    }

    PtoProject m_project;
    StitchWishes m_wishes;
    WorkFolder &m_folder;
    const Progress &m_progress;
    Rendering m_rendering = Rendering::Plain;
    Format m_format;
    int m_jobs;
    QVector<PictureLight> m_light;
    Frame m_frame;
    QVector<QRect> m_layers;
    /// A file a picture, later a stack; empty for what lies outside.
    QStringList m_remapped;
    QString m_blended;
    int m_step = 0;
    double m_part = 0;
    std::array<double, kSteps> m_share{};
    double m_whole = 1;
    double m_told = 0;
    Stitched m_result;
};

/// Why there can be no web folder; empty when there can, or none is wanted.
QString webMisfit(Rendering rendering, const Frame &frame, const StitchWishes &wishes)
{
    if (wishes.web.path.isEmpty())
        return {};
    if (rendering == Rendering::Radiance)
        return QStringLiteral("%1: browsers do not show radiance").arg(wishes.web.path);
    if (wishes.preview)
        return QStringLiteral("%1: a preview has no web folder").arg(wishes.web.path);
    if (frame.projection != Projection::Equirectangular)
        return QStringLiteral("%1: only an equirectangular panorama can be turned")
            .arg(wishes.web.path);
    return webObstacle(wishes.web);
}

/// Why the output's name does not fit what comes out.
QString nameMisfit(Rendering rendering, const StitchWishes &wishes)
{
    const Format format = formatOf(wishes.output);
    if (wishes.preview)
        return format == Format::Jpeg
            ? QString()
            : QStringLiteral("%1: a preview is a .jpg").arg(wishes.output);
    if (rendering == Rendering::Radiance)
        return format == Format::Exr
            ? QString()
            : StitchTexts::tr("%1: radiance needs the name of an .exr").arg(wishes.output);
    if (format == Format::Jpeg || format == Format::Tiff)
        return {};
    return format == Format::Exr
        ? StitchTexts::tr("%1: only radiance is written as .exr; .jpg and .tif are for the rest")
              .arg(wishes.output)
        : StitchTexts::tr("%1: a panorama is a .jpg, a .tif, or for radiance an .exr")
              .arg(wishes.output);
}

QStringList toolsFor(Rendering rendering, const StitchWishes &wishes)
{
    QStringList tools{QStringLiteral("nona"), QStringLiteral("enblend")};
    if (wishes.preview)
        return tools;
    if (wishes.photometric)
        tools.append(QStringLiteral("vig_optimize"));
    if (rendering == Rendering::Fused)
        tools.append(QStringLiteral("enfuse"));
    if (rendering == Rendering::Radiance)
        tools.append(QStringLiteral("hugin_hdrmerge"));
    return tools;
}

} // namespace

Rendering renderingOf(const PtoProject &project)
{
    if (project.outputType == ProjectRecord::HdrRadiance)
        return Rendering::Radiance;
    QSet<int> locations;
    for (const PtoProject::Picture &picture : project.pictures)
        locations.insert(picture.location);
    return locations.size() < project.pictures.size() ? Rendering::Fused : Rendering::Plain;
}

QString stitchObstacle(const PtoProject &project, const StitchWishes &wishes, qint64 kept)
{
    const Rendering rendering = renderingOf(project);
    QString problem = nameMisfit(rendering, wishes);
    if (problem.isEmpty())
        problem = missingTools(toolsFor(rendering, wishes));
    if (problem.isEmpty())
        problem = foreignPicture(project);
    if (!problem.isEmpty())
        return problem;
    const auto frame = frameOf(project, wishes.frame, &problem);
    if (!frame)
        return problem;
    problem = webMisfit(rendering, *frame, wishes);
    if (!problem.isEmpty() || wishes.preview)
        return problem;
    const Format format = formatOf(wishes.output);
    const int longest = std::max(frame->crop.width(), frame->crop.height());
    if (format == Format::Jpeg && longest > kLongestJpegSide)
        return StitchTexts::tr("%1: would have %2 pixels a side, and a JPEG has at most %3; a .tif "
                               "or --width %4 would do")
            .arg(wishes.output, QLocale().toString(longest), QLocale().toString(kLongestJpegSide),
                QString::number(kLongestJpegSide));
    const Need need = needOf(project, *frame, layersOf(project, *frame), rendering,
        format == Format::Tiff, jobsOf(wishes));
    return excess(need, wishes.memory, QFileInfo(wishes.output).absolutePath(), kept);
}

std::pair<Progress, Progress> oneBar(
    const PtoProject &project, const StitchWishes &wishes, const Progress &progress)
{
    QString problem;
    const auto frame = frameOf(project, wishes.frame, &problem);
    if (!frame || !progress)
        return {progress, progress};
    const Frame shown = wishes.preview ? previewOf(*frame) : *frame;
    const auto work = workOf(project, shown, layersOf(project, shown), wishes);
    const double aligning = kAlignment * project.pictures.size();
    const double share = aligning / std::accumulate(work.begin(), work.end(), aligning);
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

Stitched stitch(const PtoProject &project, const QVector<PictureLight> &light,
    const StitchWishes &wishes, WorkFolder &folder, const Progress &progress)
{
    return Work(project, wishes, folder, progress).go(light);
}
