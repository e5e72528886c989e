// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/Alignment.h"

#include "align/Aligner.h"

std::optional<Alignment> alignRecord(const ProjectRecord &record, const PictureTable &pictures,
    const AlignOptions &options, const Progress &progress, QString *problem)
{
    problem->clear();
    auto project = projectOf(record, pictures, problem);
    if (!project)
        return std::nullopt;
    align::Aligner aligner(record, pictures, std::move(*project), options, progress);
    if (!aligner.run())
        return std::nullopt;
    return Alignment{aligner.project(), aligner.report()};
}

void forgetMatches(const QString &cacheFolder)
{
    align::MatchCache::remove(cacheFolder);
}
