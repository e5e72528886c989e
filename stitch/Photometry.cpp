// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Photometry.h"

#include "stitch/Script.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace {

/// Colours are compared in pictures of about this many pixels across: as means of many pixels,
/// neither noise nor a misfit of the alignment changes them.
constexpr int kComparedWidth = 200;
constexpr int kPointsPerPicture = 40;
/// What is found must make colours agree better by this share, or it is noise.
constexpr double kWorthwhile = 0.03;
/// Stops that a camera may be off what it says.
constexpr double kMostOff = 2;
/// How much darker than the centre a corner may be, or brighter.
constexpr double kDarkestCorner = 0.1;
constexpr double kBrightestCorner = 1.3;

bool isPlausible(const PictureLight &before, const PictureLight &after)
{
    if (!(std::abs(after.exposureValue - before.exposureValue) < kMostOff))
        return false;
    constexpr double kRadii[] = {0.25, 0.5, 0.75, 1};
    return std::all_of(std::begin(kRadii), std::end(kRadii), [&after](double r) {
        const double q = r * r;
        const auto &[b, c, d] = after.vignetting;
        const double left = 1 + q * (b + q * (c + q * d));
        return left > kDarkestCorner && left < kBrightestCorner;
    });
}

} // namespace

PhotometryCall photometryCall(const PtoProject &project, const QVector<PictureLight> &light,
    bool vignettingOnly, const QString &input, const QString &result)
{
    int halvings = 0;
    for (int width = project.pictures.constFirst().lens.size.width(); width > 2 * kComparedWidth;
         width /= 2)
        ++halvings;
    const int points
        = std::min(20000, kPointsPerPicture * static_cast<int>(project.pictures.size()));
    return {photometricScript(project, light, vignettingOnly, 0),
        {QStringLiteral("-v"), QStringLiteral("-p"), QString::number(points), QStringLiteral("-s"),
            QString::number(halvings), QStringLiteral("-o"), result, input}};
}

void PhotometryCheck::readLine(const QByteArray &line)
{
    static const QRegularExpression pattern(
        QStringLiteral("^Iteration: [0-9]+, error: ([0-9.eE+-]+)"));
    const auto match = pattern.match(QString::fromUtf8(line));
    if (!match.hasMatch())
        return;
    m_last = match.captured(1).toDouble();
    if (m_first < 0)
        m_first = m_last;
}

QVector<PictureLight> PhotometryCheck::accepted(
    const QByteArray &text, const QVector<PictureLight> &light, const QString &folder) const
{
    QString problem;
    const auto read = readProject(text, folder, &problem);
    if (!read || read->light.size() != light.size() || m_first <= 0
        || !(m_last < m_first * (1 - kWorthwhile)))
        return light;
    double drift = 0;
    for (int i = 0; i < light.size(); ++i) {
        if (!isPlausible(light.at(i), read->light.at(i)))
            return light;
        drift += read->light.at(i).exposureValue - light.at(i).exposureValue;
    }
    QVector<PictureLight> result = read->light;
    for (PictureLight &found : result)
        found.exposureValue -= drift / light.size();
    return result;
}
