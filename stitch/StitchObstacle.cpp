// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/StitchObstacle.h"

#include "stitch/Need.h"
#include "stitch/ToolRunner.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <algorithm>

namespace {

struct ObstacleTexts {
    Q_DECLARE_TR_FUNCTIONS(StitchObstacle)
};

/// What JPEG can hold.
constexpr int kLongestJpegSide = 65000;

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
            ? ObstacleTexts::tr(
                "%1: Hugin's tools cannot read such a file; develop or convert it to "
                ".tif or .jpg and import that")
            : ObstacleTexts::tr("%1: Hugin's tools cannot read such a file; develop or convert it "
                                "and %Ln more to .tif or .jpg and import that",
                nullptr, int(others)))
        .arg(first->path);
}

/// Why there can be no web folder; empty when there can, or none is wanted.
Problem webMisfit(Rendering rendering, const Frame &frame, const StitchOptions &options)
{
    if (options.web.path.isEmpty())
        return {};
    if (rendering == Rendering::Radiance)
        return QStringLiteral("%1: browsers do not show radiance").arg(options.web.path);
    if (options.preview)
        return QStringLiteral("%1: a preview has no web folder").arg(options.web.path);
    if (frame.projection != Projection::Equirectangular)
        return QStringLiteral("%1: only an equirectangular panorama can be turned")
            .arg(options.web.path);
    return webObstacle(options.web);
}

/// Why the output's name does not fit what comes out.
QString nameMisfit(Rendering rendering, const StitchOptions &options)
{
    const OutputFormat format = formatOf(options.output);
    if (options.preview)
        return format == OutputFormat::Jpeg
            ? QString()
            : QStringLiteral("%1: a preview is a .jpg").arg(options.output);
    if (rendering == Rendering::Radiance)
        return format == OutputFormat::Exr
            ? QString()
            : ObstacleTexts::tr("%1: radiance needs the name of an .exr").arg(options.output);
    if (format == OutputFormat::Jpeg || format == OutputFormat::Tiff)
        return {};
    return format == OutputFormat::Exr
        ? ObstacleTexts::tr("%1: only radiance is written as .exr; .jpg and .tif are for the rest")
              .arg(options.output)
        : ObstacleTexts::tr("%1: a panorama is a .jpg, a .tif, or for radiance an .exr")
              .arg(options.output);
}

QStringList toolsFor(Rendering rendering, const StitchOptions &options)
{
    QStringList tools{QStringLiteral("nona"), QStringLiteral("enblend")};
    if (options.preview)
        return tools;
    if (options.photometric)
        tools.append(QStringLiteral("vig_optimize"));
    if (rendering == Rendering::Fused)
        tools.append(QStringLiteral("enfuse"));
    if (rendering == Rendering::Radiance)
        tools.append(QStringLiteral("hugin_hdrmerge"));
    return tools;
}

} // namespace

Problem stitchObstacle(const PtoProject &project, const StitchOptions &options, qint64 kept)
{
    const Rendering rendering = renderingOf(project);
    Problem problem = nameMisfit(rendering, options);
    if (problem.isEmpty())
        problem = missingTools(toolsFor(rendering, options));
    if (problem.isEmpty())
        problem = foreignPicture(project);
    if (!problem.isEmpty())
        return problem;
    const auto frame = frameOf(project, options.frame, &problem.text);
    if (!frame)
        return problem;
    problem = webMisfit(rendering, *frame, options);
    if (!problem.isEmpty() || options.preview)
        return problem;
    const OutputFormat format = formatOf(options.output);
    const int longest = std::max(frame->crop.width(), frame->crop.height());
    if (format == OutputFormat::Jpeg && longest > kLongestJpegSide)
        return {ObstacleTexts::tr("%1: would have %2 pixels a side, and a JPEG has at most %3; a "
                                  ".tif or a narrower panorama would do")
                    .arg(options.output, QLocale().toString(longest),
                        QLocale().toString(kLongestJpegSide)),
            Remedy::NarrowerPanorama};
    const Need need = needOf(project, *frame, layerRects(project, *frame), rendering,
        format == OutputFormat::Tiff, jobsOf(options));
    return excess(need, options.memory, QFileInfo(options.output).absolutePath(), kept);
}
