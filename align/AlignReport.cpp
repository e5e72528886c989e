// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/AlignReport.h"

#include "align/Progress.h"

#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QSet>
#include <algorithm>

namespace {

struct ReportTexts {
    Q_DECLARE_TR_FUNCTIONS(AlignReport)
};

/// Names and suspects that people are shown; programs get all.
constexpr int kShown = 10;

QString nameOf(const QString &path)
{
    return QFileInfo(path).fileName();
}

QStringList namesOf(const QStringList &paths)
{
    QStringList names;
    for (const QString &path : paths)
        names.append(nameOf(path));
    return names;
}

QString number(double value, int decimals)
{
    return QLocale().toString(value, 'f', decimals);
}

QString shown(const QStringList &names)
{
    QString text = QStringList(names.mid(0, kShown)).join(QLatin1String(", "));
    if (names.size() > kShown)
        text += ReportTexts::tr(" and %Ln more", nullptr, int(names.size()) - kShown);
    return text;
}

QString percent(double value)
{
    return ReportTexts::tr("%1 %").arg(number(value, 0));
}

/// What neighbours share in a row and in a column; 0 is not known.
QString sharedText(double across, double down)
{
    if (across > 0 && down > 0)
        return ReportTexts::tr("%1 in a row and %2 in a column")
            .arg(percent(across), percent(down));
    return across > 0 ? ReportTexts::tr("%1 in a row").arg(percent(across))
                      : ReportTexts::tr("%1 in a column").arg(percent(down));
}

} // namespace

QString AlignReport::toText() const
{
    QStringList lines;
    const auto line = [&lines](const QString &text) { lines.append(text); };
    // The command line, which has no catalogue, has no form of its own for one.
    const QString all = pictures == 1 ? ReportTexts::tr("1 picture")
                                      : ReportTexts::tr("%Ln pictures", nullptr, pictures);
    line(ReportTexts::tr("%1, %Ln joined", nullptr, joined).arg(all));
    if (!isMatched)
        line(ReportTexts::tr(
            "no points were looked for, as asked: positions are the recorded ones"));
    else if (!held.isEmpty())
        lines.last() += ReportTexts::tr(", %Ln held by the head: %1", nullptr, int(held.size()))
                            .arg(shown(namesOf(held)));
    if (parts > 1)
        line(ReportTexts::tr(
            "in %Ln parts that no points join: only the head tells how they lie", nullptr, parts));
    if (joined > 0) {
        line(ReportTexts::tr("points miss each other by %1 pixels, at worst %2 (%3, %4)")
                 .arg(number(residualRms, 2), number(residualWorst, 2), nameOf(worstPair.first),
                     nameOf(worstPair.second)));
        if (isOptimised) {
            line(ReportTexts::tr("focal length %1 mm (%2 stated), distortion %3")
                     .arg(number(focal, 2), number(recordedFocal, 2), number(distortion, 4)));
            const QString off = isGrid
                ? ReportTexts::tr("pictures were %1 degrees off the grid, at worst %2")
                : ReportTexts::tr("the head was %1 degrees off, at worst %2");
            line(off.arg(number(headErrorRms, 2), number(headErrorWorst, 2)));
        } else {
            line(ReportTexts::tr("positions are the recorded ones, as asked"));
        }
    }
    if (overlapAcross > 0 || overlapDown > 0)
        line(ReportTexts::tr("neighbours overlap by %1 (%2 stated)")
                 .arg(sharedText(overlapAcross, overlapDown), percent(recordedOverlap)));
    if (!fits)
        line(isGrid
                ? ReportTexts::tr("the pictures do not fit the grid: wrong rows, order, overlap, "
                                  "focal length or lens type?")
                : ReportTexts::tr("the pictures do not fit what was recorded: a wrong focal length "
                                  "or lens type, or the file of another shooting?"));
    appendSuspects(&lines);
    QStringList times;
    for (const auto &[step, time] : seconds)
        times.append(ReportTexts::tr("%1 %2 s").arg(shownStep(step), number(time, 2)));
    if (!times.isEmpty())
        line(times.join(QLatin1String(", ")));
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

void AlignReport::appendSuspects(QStringList *lines) const
{
    QStringList far;
    // A picture in which nothing was found, though more than one neighbour shows the same.
    QSet<QString> strangers;
    QStringList strangerNames;
    QHash<QString, int> mismatches;
    for (const Suspect &suspect : suspects) {
        if (suspect.pictures.size() == 1)
            far.append(ReportTexts::tr("%1 (%2 degrees)")
                           .arg(nameOf(suspect.pictures.first()), number(suspect.degrees, 1)));
        for (int i = 0; i < suspect.pictures.size() && suspect.pictures.size() > 1; ++i)
            ++mismatches[suspect.pictures.at(i)];
    }
    for (const QString &path : held) {
        if (fits && mismatches.value(path) > 1) {
            strangers.insert(path);
            strangerNames.append(nameOf(path));
        }
    }
    QStringList unlike;
    for (const Suspect &suspect : suspects) {
        const auto isStranger
            = [&strangers](const QString &path) { return strangers.contains(path); };
        if (suspect.pictures.size() > 1
            && std::none_of(suspect.pictures.cbegin(), suspect.pictures.cend(), isStranger))
            unlike.append(namesOf(suspect.pictures).join(ReportTexts::tr(" and ")));
    }
    const auto add = [lines](const QString &text, const QStringList &names) {
        if (!names.isEmpty())
            lines->append(text.arg(shown(names)));
    };
    add(ReportTexts::tr("further off than they should be: %1"), far);
    add(ReportTexts::tr("match none of their neighbours, perhaps the wrong pictures: %1"),
        strangerNames);
    add(ReportTexts::tr("should overlap and do not match: %1"), unlike);
}

QByteArray AlignReport::toJson() const
{
    QJsonArray doubts;
    for (const Suspect &suspect : suspects) {
        QJsonObject doubt{
            {QStringLiteral("pictures"), QJsonArray::fromStringList(namesOf(suspect.pictures))}};
        if (suspect.pictures.size() == 1)
            doubt.insert(QStringLiteral("degrees"), suspect.degrees);
        doubts.append(doubt);
    }
    QJsonObject times;
    for (const auto &[step, time] : seconds)
        times.insert(step, time);
    QJsonArray pair;
    if (!worstPair.first.isEmpty())
        pair = {nameOf(worstPair.first), nameOf(worstPair.second)};
    const QJsonObject residual{{QStringLiteral("rms"), residualRms},
        {QStringLiteral("worst"), residualWorst}, {QStringLiteral("pair"), pair}};
    const QJsonObject headError{
        {QStringLiteral("rms"), headErrorRms}, {QStringLiteral("worst"), headErrorWorst}};
    return QJsonDocument(QJsonObject{
                             {QStringLiteral("pictures"), pictures},
                             {QStringLiteral("joined"), joined},
                             {QStringLiteral("parts"), parts},
                             {QStringLiteral("held"), QJsonArray::fromStringList(namesOf(held))},
                             {QStringLiteral("residual_px"), residual},
                             {QStringLiteral("focal"), focal},
                             {QStringLiteral("distortion"), distortion},
                             {QStringLiteral("head_error_deg"), headError},
                             {QStringLiteral("suspect"), doubts},
                             {QStringLiteral("seconds"), times},
                         })
        .toJson();
}
