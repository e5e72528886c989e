// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/AlignReport.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

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
    return QString::number(value, 'f', decimals);
}

QString shown(const QStringList &names)
{
    QString text = QStringList(names.mid(0, kShown)).join(QLatin1String(", "));
    if (names.size() > kShown)
        text += QStringLiteral(" and %1 more").arg(names.size() - kShown);
    return text;
}

} // namespace

QString AlignReport::toText() const
{
    QStringList lines;
    lines.append(QStringLiteral("%1 %2, %3 joined")
                     .arg(pictures)
                     .arg(pictures == 1 ? QStringLiteral("picture") : QStringLiteral("pictures"))
                     .arg(joined));
    if (!held.isEmpty())
        lines.last() += QStringLiteral(", %1 held by the head: %2")
                            .arg(held.size())
                            .arg(shown(namesOf(held)));
    if (joined > 0) {
        lines.append(QStringLiteral("points miss each other by %1 pixels, at worst %2 (%3, %4)")
                         .arg(number(residualRms, 2), number(residualWorst, 2),
                             nameOf(worstPair.first), nameOf(worstPair.second)));
        lines.append(QStringLiteral("focal length %1 mm (%2 stated), distortion %3")
                         .arg(number(focal, 2), number(recordedFocal, 2), number(distortion, 4)));
        lines.append(QStringLiteral("the head was %1 degrees off, at worst %2")
                         .arg(number(headErrorRms, 2), number(headErrorWorst, 2)));
    }
    QStringList far;
    QStringList unlike;
    for (const Suspect &suspect : suspects) {
        const QStringList names = namesOf(suspect.pictures);
        if (suspect.pictures.size() == 1)
            far.append(QStringLiteral("%1 (%2)").arg(names.first(), number(suspect.degrees, 1)));
        else
            unlike.append(names.join(QStringLiteral(" and ")));
    }
    if (!far.isEmpty())
        lines.append(QStringLiteral("more degrees off than a head should be: ") + shown(far));
    if (!unlike.isEmpty())
        lines.append(QStringLiteral("should overlap and do not match: ") + shown(unlike));
    QStringList times;
    for (const auto &[step, time] : seconds)
        times.append(QStringLiteral("%1 %2 s").arg(step, number(time, 2)));
    if (!times.isEmpty())
        lines.append(times.join(QLatin1String(", ")));
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
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
