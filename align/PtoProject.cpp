// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/PtoProject.h"

#include "align/DisjointSets.h"

#include "geometry/Median.h"

#include <QCoreApplication>
#include <QDir>
#include <QtMath>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

struct ProjectTexts {
    Q_DECLARE_TR_FUNCTIONS(PtoProject)
};

/// \a value with at most \a decimals, no exponent and no trailing zeros.
QByteArray decimal(double value, int decimals = 4)
{
    QByteArray text = QByteArray::number(value, 'f', decimals);
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.'))
        text.chop(1);
    return text == "-0" ? QByteArrayLiteral("0") : text;
}

constexpr int kEquirectangular = 2;

/// What the tools can neither escape nor quote ends a name or a line.
bool canBeNamed(const QString &path)
{
    return std::none_of(path.begin(), path.end(),
        [](QChar c) { return c == QLatin1Char('"') || c.unicode() < 0x20; });
}

QByteArray nameFrom(const QString &folder, const QString &path)
{
    const QString prefix = folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
    return (path.startsWith(prefix) ? path.mid(prefix.size()) : path).toUtf8();
}

/// The first location of every set that the record's links join: it stays where it is while the
/// others are optimised. A record without links counts as one set.
QVector<bool> anchors(const ProjectRecord &record)
{
    const int count = record.groups.size();
    align::DisjointSets sets(count);
    for (const ProjectLink &link : record.links) {
        int previous = -1;
        for (const int location : link.indices) {
            if (location < 0 || location >= count)
                continue; // A grid may link cells that no picture filled.
            if (previous >= 0)
                sets.join(previous, location);
            previous = location;
        }
    }
    QVector<bool> result(count, false);
    for (int location = 0; location < count; ++location)
        result[location]
            = record.links.isEmpty() ? location == 0 : sets.smallest(location) == location;
    return result;
}

/// Exposure value of the output: the middle one of the stacks' reference pictures, 0 when none is
/// known.
double outputExposure(const ProjectRecord &record, const PictureTable &pictures)
{
    QVector<double> values;
    values.reserve(record.groups.size());
    for (const QStringList &stack : record.groups) {
        if (stack.isEmpty())
            continue;
        const double value
            = pictures.value(stack.at(referencePicture(record, stack, pictures))).exposureValue;
        if (value != 0)
            values.append(value);
    }
    return geometry::lowerMedian(std::move(values));
}

class Writer {
public:
    Writer(const PtoProject &project, QString folder)
        : m_project(project)
        , m_folder(std::move(folder))
    {
        for (int i = 0; i < project.pictures.size(); ++i)
            addPicture(i);
    }

    QByteArray text() const
    {
        QByteArray text = QByteArrayLiteral("# hugin project file\n#hugin_ptoversion 2\n");
        text.append(canvasLines(m_project.canvas, kEquirectangular, m_project.outputExposure));
        text.append('\n');
        text.append(m_images).append('\n').append(m_variables).append("v\n\n");
        addPoints(&text);
        text.append(outputChoice());
        return text;
    }

private:
    void addPicture(int index)
    {
        const PtoProject::Picture &picture = m_project.pictures.at(index);
        m_images.append("i w").append(QByteArray::number(picture.lens.size.width()));
        m_images.append(" h").append(QByteArray::number(picture.lens.size.height()));
        m_images.append(picture.lens.fisheye ? " f3" : " f0");
        addLens(picture, index);
        if (picture.positionOwner >= 0)
            addLinks({"r", "p", "y"}, picture.positionOwner);
        else
            addPlace(picture, index);
        m_images.append(" Eev").append(decimal(picture.exposureValue)).append(" Er1 Eb1");
        addStack(index);
        m_images.append(" n\"").append(nameFrom(m_folder, picture.path)).append("\"\n");
    }

    /// The picture's lens: its own values for the first picture of a lens, links to that one after.
    void addLens(const PtoProject::Picture &picture, int index)
    {
        const PictureOptics &lens = picture.lens;
        const auto owner = m_lensOwners.constFind(lens);
        if (owner != m_lensOwners.constEnd()) {
            addLinks({"v", "a", "b", "c", "d", "e", "g", "t", "Ra", "Rb", "Rc", "Rd", "Re", "Va",
                         "Vb", "Vc", "Vd", "Vx", "Vy"},
                *owner);
            return;
        }
        m_lensOwners.insert(lens, index);
        m_images.append(" v").append(
            decimal(qRadiansToDegrees(lens.angleAcross(lens.size.width())), 8));
        m_images.append(" a").append(decimal(picture.distortion.a, 8));
        m_images.append(" b").append(decimal(picture.distortion.b, 8));
        m_images.append(" c").append(decimal(picture.distortion.c, 8));
        m_images.append(" d0 e0 g0 t0 Ra0 Rb0 Rc0 Rd0 Re0 Va1 Vb0 Vc0 Vd0 Vx0 Vy0");
        addVariables({"v", "b"}, index);
    }

    void addPlace(const PtoProject::Picture &picture, int index)
    {
        m_images.append(" r").append(decimal(picture.place.roll, 8));
        m_images.append(" p").append(decimal(picture.place.pitch, 8));
        m_images.append(" y").append(decimal(picture.place.yaw, 8));
        if (!picture.anchored)
            addVariables({"y", "p", "r"}, index);
    }

    void addStack(int index)
    {
        const int location = m_project.pictures.at(index).location;
        const auto isBeside = [&](int other) {
            return other >= 0 && other < m_project.pictures.size()
                && m_project.pictures.at(other).location == location;
        };
        const bool isFirst = !isBeside(index - 1);
        if (isFirst)
            m_stack = index;
        if (isFirst && !isBeside(index + 1))
            return;
        m_images.append(isFirst ? " j" : " j=").append(QByteArray::number(m_stack));
    }

    /// The tools die on a link to a later picture: the owner always comes first.
    void addLinks(std::initializer_list<const char *> names, int owner)
    {
        for (const char *name : names)
            m_images.append(' ').append(name).append('=').append(QByteArray::number(owner));
    }

    void addVariables(std::initializer_list<const char *> names, int index)
    {
        for (const char *name : names)
            m_variables.append("v ").append(name).append(QByteArray::number(index)).append('\n');
    }

    void addPoints(QByteArray *text) const
    {
        for (const ControlPoint &point : m_project.points) {
            text->append("c n").append(QByteArray::number(point.first));
            text->append(" N").append(QByteArray::number(point.second));
            text->append(" x").append(decimal(point.inFirst.x()));
            text->append(" y").append(decimal(point.inFirst.y()));
            text->append(" X").append(decimal(point.inSecond.x()));
            text->append(" Y").append(decimal(point.inSecond.y())).append(" t0\n");
        }
        if (!m_project.points.isEmpty())
            text->append('\n');
    }

    QByteArray outputChoice() const
    {
        switch (m_project.outputType) {
        case 2:
            return QByteArrayLiteral(
                "#hugin_outputLDRBlended false\n#hugin_outputLDRExposureBlended true\n");
        case 3:
            return QByteArrayLiteral("#hugin_outputLDRBlended false\n#hugin_outputHDRBlended true\n"
                                     "#hugin_outputImageTypeHDR exr\n");
        default:
            return {};
        }
    }

    const PtoProject &m_project;
    QString m_folder;
    QHash<PictureOptics, int> m_lensOwners;
    int m_stack = 0;
    QByteArray m_images;
    QByteArray m_variables;
};

/// \a degrees without what radians of 32 bits have added to them: angles that were whole in the
/// head's file are whole again, and no pixel of any picture moves by a tenth of itself.
double cleaned(double degrees)
{
    return std::round(degrees * 1e4) / 1e4;
}

/// The pictures of all locations, at \a places.
QVector<PtoProject::Picture> picturesOf(const ProjectRecord &record, const PictureTable &pictures,
    const QVector<Placement> &places, double unknownExposure)
{
    const QVector<bool> anchored = anchors(record);
    QVector<PtoProject::Picture> result;
    for (int location = 0; location < record.groups.size(); ++location) {
        const int owner = result.size();
        for (const QString &path : record.groups.at(location)) {
            const PictureFacts &facts = *pictures.constFind(path);
            PtoProject::Picture picture;
            picture.path = path;
            picture.lens = *opticsOf(record, facts);
            picture.place = places.at(location);
            picture.place.roll = std::remainder(picture.place.roll + facts.uprightTurn(), 360.0);
            picture.exposureValue
                = facts.exposureValue != 0 ? facts.exposureValue : unknownExposure;
            picture.location = location;
            const bool isOwner = result.size() == owner;
            picture.positionOwner = record.stackLinking == 0 && !isOwner ? owner : -1;
            picture.anchored = isOwner && anchored.at(location);
            result.append(picture);
        }
    }
    return result;
}

/// Why \a path cannot stand in a project; empty when it can.
QString obstacle(const ProjectRecord &record, const PictureTable &pictures, const QString &path)
{
    const auto facts = pictures.constFind(path);
    if (!canBeNamed(path))
        return ProjectTexts::tr(
            "%1: a project cannot name a file with a quotation mark or a control "
            "character in its path")
            .arg(path);
    if (facts == pictures.constEnd())
        return ProjectTexts::tr("%1: has not been read").arg(path);
    if (!facts->readable)
        return QStringLiteral("%1: %2").arg(path, facts->reason);
    if (!opticsOf(record, *facts))
        return ProjectTexts::tr("%1: no usable focal length is known").arg(path);
    return {};
}

} // namespace

int referencePicture(
    const ProjectRecord &record, const QStringList &stack, const PictureTable &pictures)
{
    if (record.outputType != ProjectRecord::HostsChoice || stack.isEmpty())
        return 0;
    QVector<int> order(stack.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return pictures.value(stack.at(a)).brightness() < pictures.value(stack.at(b)).brightness();
    });
    return order.at((order.size() - 1) / 2);
}

std::optional<PtoProject> projectOf(
    const ProjectRecord &record, const PictureTable &pictures, QString *problem)
{
    const QString *first = nullptr;
    for (const QStringList &stack : record.groups) {
        for (const QString &path : stack) {
            *problem = obstacle(record, pictures, path);
            if (!problem->isEmpty())
                return std::nullopt;
            if (!first)
                first = &path;
        }
    }
    if (!first) {
        *problem = ProjectTexts::tr("there is no picture");
        return std::nullopt;
    }
    const PictureFacts &facts = *pictures.constFind(*first);
    const auto places
        = placementsOf(record, *opticsOf(record, facts), facts.uprightTurn() % 180 != 0, problem);
    if (!places)
        return std::nullopt;

    PtoProject project;
    project.outputType = record.outputType;
    project.outputExposure = outputExposure(record, pictures);
    // A picture of unknown exposure is left as bright as it is.
    project.pictures = picturesOf(record, pictures, *places, project.outputExposure);
    project.canvas = canvasOf(project.pictures);
    for (PtoProject::Picture &picture : project.pictures) {
        Placement &place = picture.place;
        place = {cleaned(place.yaw), cleaned(place.pitch), cleaned(place.roll)};
    }
    return project;
}

Canvas canvasOf(const QVector<PtoProject::Picture> &pictures)
{
    Coverage coverage;
    for (const PtoProject::Picture &picture : pictures)
        coverage.add(picture.place, picture.lens);
    return coverage.canvas();
}

QByteArray canvasLines(const Canvas &canvas, int projection, double exposure, bool radiance)
{
    QByteArray text = "p f" + QByteArray::number(projection);
    text += " w" + QByteArray::number(canvas.size.width());
    text += " h" + QByteArray::number(canvas.size.height());
    text += " v" + QByteArray::number(canvas.angle);
    text += " E" + decimal(exposure) + (radiance ? " R1" : " R0");
    if (canvas.crop.size() != canvas.size) {
        const QRect &crop = canvas.crop;
        text += " S" + QByteArray::number(crop.left());
        for (const int edge : {crop.left() + crop.width(), crop.top(), crop.top() + crop.height()})
            text += ',' + QByteArray::number(edge);
    }
    return text + " n\"TIFF_m c:LZW r:CROP\"\nm g1 i0 f0 m2 p0.00784314\n";
}

QByteArray projectText(const PtoProject &project, const QString &folder)
{
    return Writer(project, QDir::cleanPath(folder)).text();
}
