// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/heads/Head.h"

#include "apps/panohost/heads/Heads.h"

#include <algorithm>

bool HeadEntry::has(const char *option) const
{
    return std::any_of(options.begin(), options.end(),
        [option](const OptionText &text) { return qstrcmp(text.name, option) == 0; });
}

const std::vector<HeadEntry> &headEntries()
{
    // In the order of the imports in the plug-in library.
    static const std::vector<HeadEntry> entries{
        claussEntry(), gigapanEntry(), papywizardEntry(), vrDrive2Entry()};
    return entries;
}

const HeadEntry *findHead(const QString &name)
{
    for (const HeadEntry &entry : headEntries()) {
        if (name == QLatin1String(entry.name))
            return &entry;
    }
    return nullptr;
}

QStringList linkObstacles(const geometry::LinkEstimate &estimate)
{
    if (!estimate.isTooMany())
        return {};
    const auto millions
        = [](qint64 links) { return QString::number(qRound64(double(links) / 1e6)); };
    return {QStringLiteral("a focal length of %1 mm makes about %2 million links between the "
                           "pictures, more than %3 million; --focal MM gives another")
                .arg(QString::number(double(estimate.focal)), millions(estimate.links),
                    millions(geometry::kMostLinks))};
}

double boxedFocal(double focal)
{
    return std::clamp(QString::number(focal, 'f', 3).toDouble(), 1.0, 10'000.0);
}

QStringList focalObstacles(
    const PictureList &pictures, const ImportOptions &options, const UsedPictures &used)
{
    if (options.focal)
        return {};
    QStringList sentences;
    const int end = std::min(used.end, static_cast<int>(pictures.facts.size()));
    for (int i = used.first; i < end; ++i) {
        const PictureFacts &facts = pictures.facts.at(i);
        if (facts.readable && !(facts.focal > 0))
            sentences.append(
                QStringLiteral("%1: its focal length is not known; --focal MM gives one to "
                               "all pictures")
                    .arg(pictures.paths.at(i)));
    }
    return sentences;
}

void takeFocal(const PictureList &pictures, const ImportOptions &options, ProjectRecord *record)
{
    if (!options.focal)
        return;
    record->focal = static_cast<float>(*options.focal);
    record->lensType = options.lensType.value_or(pictures.facts.constLast().lensType);
}
