// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/RecordFigures.h"

#include "align/Canvas.h"
#include "align/GridShape.h"
#include "align/Placement.h"
#include "apps/panohost/map/RecordMap.h"
#include "papywizard/ShootingChecks.h"

#include <QLocale>
#include <QSet>
#include <QtMath>
#include <algorithm>
#include <cmath>

namespace {

struct FigureTexts {
    Q_DECLARE_TR_FUNCTIONS(RecordFigures)
};

/// Equivalent focal lengths of lenses that exist, in millimetres, with room at both ends.
constexpr float kShortestFocal = 4;
constexpr float kLongestFocal = 5000;
/// Within fewer degrees everything may well be linked with everything.
constexpr double kNarrowTurn = 150;

QString number(qint64 value)
{
    return QLocale().toString(value);
}

QString angle(double degrees)
{
    return QLocale().toString(std::round(degrees * 10) / 10, 'g', 4) + QChar(0x00B0);
}

QString angles(double across, double down)
{
    return FigureTexts::tr("%1 × %2").arg(angle(across), angle(down));
}

QString millimetres(double focal)
{
    return FigureTexts::tr("%1 mm").arg(QLocale().toString(std::round(focal * 100) / 100, 'g', 6));
}

QString lensName(int lensType)
{
    return lensType == ProjectRecord::Fisheye ? FigureTexts::tr("fisheye")
                                              : FigureTexts::tr("standard");
}

bool isNear(double a, double b)
{
    return std::abs(a - b) <= 1e-3 + 1e-6 * std::abs(b);
}

int pictureCount(const ProjectRecord &record)
{
    int count = 0;
    for (const QStringList &stack : record.groups)
        count += stack.size();
    return count;
}

QString picturesText(const ProjectRecord &record)
{
    const auto [least, most] = std::minmax_element(record.groups.cbegin(), record.groups.cend(),
        [](const QStringList &a, const QStringList &b) { return a.size() < b.size(); });
    QString count = number(pictureCount(record));
    if (most->size() <= 1)
        return count;
    return least->size() == most->size()
        ? FigureTexts::tr("%1, in stacks of %2").arg(count, number(most->size()))
        : FigureTexts::tr("%1, in stacks of %2 to %3")
              .arg(count, number(least->size()), number(most->size()));
}

QString linksText(const ProjectRecord &record)
{
    QMap<int, int> kinds;
    for (const ProjectLink &link : record.links)
        ++kinds[link.kind];
    QStringList parts;
    for (auto kind = kinds.cbegin(); kind != kinds.cend(); ++kind)
        parts
            += FigureTexts::tr("%1 %2").arg(number(kind.value()), RecordMap::linkName(kind.key()));
    return parts.isEmpty() ? FigureTexts::tr("none") : parts.join(QLatin1String(", "));
}

/// What the record's pictures tell, in the record's order.
QVector<PictureLens> lensesOf(const ProjectRecord &record, const PictureTable &pictures)
{
    QVector<PictureLens> lenses;
    for (const QStringList &stack : record.groups) {
        for (const QString &path : stack) {
            const PictureFacts facts = pictures.value(path);
            lenses.append({double(facts.focal), facts.lensType});
        }
    }
    return lenses;
}

void addLens(QVector<RecordFigure> &figures, const ProjectRecord &record,
    const QVector<PictureLens> &lenses, const HeadFile &file)
{
    const QString focalLabel = FigureTexts::tr("Focal length");
    const QString lensLabel = FigureTexts::tr("Lens");
    const QString fromPictures = FigureTexts::tr("%1, from the pictures");
    if (!(record.focal > 0)) {
        const auto [least, most] = std::minmax_element(lenses.cbegin(), lenses.cend(),
            [](const PictureLens &a, const PictureLens &b) { return a.focal < b.focal; });
        const QString range = isNear(least->focal, most->focal)
            ? millimetres(most->focal)
            : FigureTexts::tr("%1 to %2").arg(millimetres(least->focal), millimetres(most->focal));
        figures.append({focalLabel, fromPictures.arg(range)});
        figures.append({lensLabel, fromPictures.arg(lensName(lenses.last().lensType))});
        return;
    }
    const QString fromFile = FigureTexts::tr("%1, from the head's file");
    const QString byHand = FigureTexts::tr("%1, set by hand");
    const PictureLens told = lensOfPictures(lenses);
    const QString focal = millimetres(double(record.focal));
    const QString lens = lensName(record.lensType);
    if (told.focal > 0 && isNear(double(record.focal), told.focal)) {
        figures.append({focalLabel, fromPictures.arg(focal)});
        figures.append(
            {lensLabel, (record.lensType == told.lensType ? fromPictures : byHand).arg(lens)});
    } else if (file.focal > 0 && isNear(double(record.focal), file.focal)) {
        figures.append({focalLabel, fromFile.arg(focal)});
        figures.append({lensLabel,
            ((record.lensType == ProjectRecord::Fisheye) == file.isFisheye ? fromFile : byHand)
                .arg(lens)});
    } else {
        figures.append({focalLabel, byHand.arg(focal)});
        figures.append({lensLabel, lens});
    }
}

void addFieldOfView(
    QVector<RecordFigure> &figures, const ProjectRecord &record, const PictureTable &pictures)
{
    const PictureFacts first = pictures.value(record.groups.first().value(0));
    const auto lens = opticsOf(record, first);
    if (!lens)
        return;
    const bool turned = std::abs(first.uprightTurn()) == 90;
    double across = qRadiansToDegrees(lens->angleAcross(lens->size.width()));
    double down = qRadiansToDegrees(lens->angleAcross(lens->size.height()));
    if (turned)
        std::swap(across, down);
    figures.append({FigureTexts::tr("Field of view"),
        FigureTexts::tr("%1 a picture").arg(angles(across, down))});

    QString problem;
    const auto places = placementsOf(record, *lens, turned, &problem);
    if (!places)
        return;
    Coverage coverage;
    for (Placement place : *places) {
        place.roll += first.uprightTurn();
        coverage.add(place, *lens);
    }
    const Canvas canvas = coverage.canvas();
    const double perPixel = double(canvas.angle) / canvas.size.width();
    figures.last().value = FigureTexts::tr("%1, together %2")
                               .arg(figures.last().value,
                                   angles(std::round(canvas.crop.width() * perPixel),
                                       std::round(canvas.crop.height() * perPixel)));
}

/// Degrees of yaw that hold all locations.
double turnOf(const ProjectRecord &record)
{
    QVector<double> yaws;
    for (const float yaw : record.yaws) {
        if (std::isfinite(yaw))
            yaws.append(std::remainder(qRadiansToDegrees(double(yaw)), 360));
    }
    if (yaws.isEmpty())
        return 0;
    std::sort(yaws.begin(), yaws.end());
    double widestGap = yaws.first() + 360 - yaws.last();
    for (int i = 1; i < yaws.size(); ++i)
        widestGap = std::max(widestGap, yaws[i] - yaws[i - 1]);
    return 360 - widestGap;
}

bool isEverythingLinked(const ProjectRecord &record)
{
    const qint64 count = record.groups.size();
    const qint64 all = count * (count - 1) / 2;
    if (count < 2 || record.links.size() < all || turnOf(record) < kNarrowTurn)
        return false;
    QSet<QPair<int, int>> pairs;
    for (const ProjectLink &link : record.links) {
        if (link.indices.size() == 2 && link.indices[0] != link.indices[1])
            pairs.insert({std::min(link.indices[0], link.indices[1]),
                std::max(link.indices[0], link.indices[1])});
    }
    return pairs.size() >= all;
}

/// Pictures that tell no focal length make the mean of all too short.
void addMeanDoubt(QStringList &doubts, const ProjectRecord &record, const PictureTable &pictures)
{
    const QVector<PictureLens> lenses = lensesOf(record, pictures);
    const auto silent = std::count_if(
        lenses.cbegin(), lenses.cend(), [](const PictureLens &lens) { return !(lens.focal > 0); });
    const double mean = lensOfPictures(lenses).focal;
    if (silent > 0 && mean > 0 && isNear(double(record.focal), mean))
        doubts += FigureTexts::tr("%Ln of %1 pictures do not tell their focal length, so %2, the "
                                  "mean of all, is too short.",
            nullptr, int(silent))
                      .arg(number(lenses.size()), millimetres(mean));
}

void addGridDoubts(QStringList &doubts, const ProjectRecord &record, const PictureTable &pictures)
{
    const auto grid = gridShapeOf(record);
    const PictureFacts first = pictures.value(record.groups.value(0).value(0));
    const auto lens = opticsOf(record, first);
    if (!record.yaws.isEmpty() || !grid || !lens)
        return;
    for (const GridDoubt &doubt : doubtsAbout(*grid, *lens, std::abs(first.uprightTurn()) == 90)) {
        const QString degrees = number(qRound64(doubt.degrees)) + QChar(0x00B0);
        switch (doubt.kind) {
        case GridDoubt::Kind::OnePlace:
            doubts += FigureTexts::tr("With an overlap of %1 % all pictures lie in one place.")
                          .arg(QLocale().toString(grid->overlap));
            break;
        case GridDoubt::Kind::BeyondPoles:
            doubts += FigureTexts::tr("From the lowest to the highest of %Ln rows it would be %1, "
                                      "but straight down to straight up is only 180°.",
                nullptr, grid->rows)
                          .arg(degrees);
            break;
        case GridDoubt::Kind::BeyondTurn:
            doubts += FigureTexts::tr("%Ln columns would take %1, which is more than a full turn.",
                nullptr, grid->columns)
                          .arg(degrees);
            break;
        case GridDoubt::Kind::Gaps:
            doubts += FigureTexts::tr("The pictures of %Ln columns see %1 together, too little to "
                                      "close a full turn.",
                nullptr, grid->columns)
                          .arg(degrees);
            break;
        }
    }
}

} // namespace

QVector<RecordFigure> figuresOf(
    const ProjectRecord &record, const PictureTable &pictures, const HeadFile &file)
{
    if (pictureCount(record) == 0)
        return {};
    QVector<RecordFigure> figures{
        {FigureTexts::tr("Locations"), number(record.groups.size())},
        {FigureTexts::tr("Pictures"), picturesText(record)},
        {FigureTexts::tr("Links"), linksText(record)},
    };
    addLens(figures, record, lensesOf(record, pictures), file);
    addFieldOfView(figures, record, pictures);
    return figures;
}

QStringList doubtsAbout(const ProjectRecord &record, const PictureTable &pictures)
{
    QStringList doubts;
    const bool isFisheye = record.lensType == ProjectRecord::Fisheye;
    const QString focal = millimetres(double(record.focal));
    if (record.focal > 0 && (record.focal < kShortestFocal || record.focal > kLongestFocal))
        doubts += FigureTexts::tr("No lens has a focal length of %1.").arg(focal);
    // Links of a fisheye are left to the stitcher.
    if (record.groups.size() > 1 && record.links.isEmpty() && !isFisheye)
        doubts += FigureTexts::tr("No location is linked with another: at this focal length the "
                                  "pictures do not seem to overlap.");
    if (isEverythingLinked(record))
        doubts += FigureTexts::tr("Every location is linked with every other: the focal length "
                                  "seems to be too short for this shooting.");
    addMeanDoubt(doubts, record, pictures);
    addGridDoubts(doubts, record, pictures);
    return doubts;
}
