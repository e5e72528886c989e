// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Panorama.h"

#include "align/Alignment.h"
#include "align/OutputFile.h"
#include "align/PtoProject.h"
#include "align/RecordJson.h"
#include "stitch/StitchObstacle.h"
#include "stitch/StitchProgress.h"

#include <QFile>
#include <QFileInfo>

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The record aligned, now or by an earlier run. Nothing when cancelled or, with a sentence in
/// \a panorama, when it cannot be.
std::optional<ReadProject> aligned(const ProjectRecord &record, const PictureTable &pictures,
    WorkFolder &folder, const Progress &progress, Panorama *panorama)
{
    QByteArray recipe = recordToJson(record);
    for (const QStringList &stack : record.groups) {
        for (const QString &path : stack)
            recipe += identityOf(path);
    }
    const QString project = folder.finished("aligned", recipe, ".pto");
    const QString report = folder.finished("report", recipe, ".txt");
    const QString reportJson = folder.finished("report", recipe, ".json");
    if (!folder.has(project)) {
        AlignOptions options;
        options.cacheFolder = folder.file(QStringLiteral("matches"));
        const auto alignment
            = alignRecord(record, pictures, options, progress, &panorama->problem.text);
        if (!alignment)
            return std::nullopt;
        // The project last: where it is, the reports are.
        panorama->problem = writeWhole({{report, alignment->report.toText().toUtf8()},
            {reportJson, alignment->report.toJson()},
            {project, projectText(alignment->project, folder.path())}});
        if (!panorama->problem.isEmpty())
            return std::nullopt;
        forgetMatches(options.cacheFolder);
    }
    panorama->report = QString::fromUtf8(contentOf(report));
    panorama->reportJson = contentOf(reportJson);
    return readProject(contentOf(project), folder.path(), &panorama->problem.text);
}

void finish(const ReadProject &project, const StitchOptions &options, WorkFolder &folder,
    const Progress &progress, Panorama *panorama)
{
    panorama->stitched = stitch(project.project, project.light, options, folder, progress);
    panorama->done = panorama->stitched.done;
    panorama->problem = panorama->stitched.problem;
    if (panorama->done && !options.keep)
        folder.remove();
}

} // namespace

QString workFolderOf(const QString &output)
{
    return QFileInfo(output).absoluteFilePath() + QStringLiteral(".work");
}

Panorama makePanorama(const PtoProject &recorded, const Aligning &aligning,
    const StitchOptions &options, const Progress &progress)
{
    Panorama panorama;
    WorkFolder folder(workFolderOf(options.output));
    panorama.problem = stitchObstacle(recorded, options, folder.size());
    if (panorama.problem.isEmpty())
        panorama.problem = folder.open();
    if (!panorama.problem.isEmpty())
        return panorama;
    const auto [alignment, rendering] = oneBar(recorded, options, progress);
    if (const auto project = aligning(folder, alignment, &panorama))
        finish(*project, options, folder, rendering, &panorama);
    else
        folder.removeUnlessUsed();
    return panorama;
}

Panorama makePanorama(const ProjectRecord &record, const PictureTable &pictures,
    const StitchOptions &options, const Progress &progress)
{
    Panorama panorama;
    const auto recorded = projectOf(record, pictures, &panorama.problem.text);
    if (!recorded)
        return panorama;
    return makePanorama(
        *recorded,
        [&](WorkFolder &folder, const Progress &alignment, Panorama *made) {
            return aligned(record, pictures, folder, alignment, made);
        },
        options, progress);
}

Panorama makePanorama(
    const ReadProject &project, const StitchOptions &options, const Progress &progress)
{
    return makePanorama(
        project.project,
        [&project](WorkFolder &, const Progress &, Panorama *) { return std::optional(project); },
        options, progress);
}
