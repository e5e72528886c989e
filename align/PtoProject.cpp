// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/PtoProject.h"

#include "align/Canvas.h"
#include "align/Placement.h"
#include "geometry/Angle.h"

#include <QDir>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

/// \a value with at most \a decimals, no exponent and no trailing zeros. Four make degrees that
/// were whole in the head's file whole again, and are less than a tenth of a pixel of any picture.
QByteArray decimal(double value, int decimals = 4)
{
    QByteArray text = QByteArray::number(value, 'f', decimals);
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.'))
        text.chop(1);
    return text == "-0" ? QByteArrayLiteral("0") : text;
}

double degrees(double radians)
{
    return radians * 180 / geometry::kPi;
}

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
    QVector<int> parent(count);
    std::iota(parent.begin(), parent.end(), 0);
    const auto rootOf = [&parent](int location) {
        while (parent[location] != location)
            location = parent[location] = parent[parent[location]];
        return location;
    };
    for (const ProjectLink &link : record.links) {
        int previous = -1;
        for (const int location : link.indices) {
            if (location < 0 || location >= count)
                continue; // A grid may link cells that no picture filled.
            if (previous >= 0) {
                const int a = rootOf(previous);
                const int b = rootOf(location);
                parent[std::max(a, b)] = std::min(a, b);
            }
            previous = location;
        }
    }
    QVector<bool> result(count, false);
    for (int location = 0; location < count; ++location)
        result[location] = record.links.isEmpty() ? location == 0 : rootOf(location) == location;
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
    if (values.isEmpty())
        return 0;
    const auto middle = values.begin() + (values.size() - 1) / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

class Project {
public:
    Project(const ProjectRecord &record, const PictureTable &pictures, QString folder)
        : m_record(record)
        , m_pictures(pictures)
        , m_folder(std::move(folder))
        , m_anchors(anchors(record))
        , m_outputExposure(outputExposure(record, pictures))
    {
    }

    void addLocation(int location, const Placement &place)
    {
        const bool hard = m_record.stackLinking == 0;
        const int owner = m_count;
        for (const QString &path : m_record.groups.at(location)) {
            const PictureFacts &facts = *m_pictures.constFind(path);
            const PictureOptics lens = *opticsOf(m_record, facts);
            Placement turned = place;
            turned.roll = std::remainder(place.roll + facts.uprightTurn(), 360.0);

            m_images.append("i w").append(QByteArray::number(lens.size.width()));
            m_images.append(" h").append(QByteArray::number(lens.size.height()));
            m_images.append(lens.fisheye ? " f3" : " f0");
            addLens(lens);
            if (hard && m_count != owner)
                addLinks({"r", "p", "y"}, owner);
            else
                addPlace(turned, !(m_anchors.at(location) && m_count == owner));
            // A picture of unknown exposure is left as bright as it is.
            const double exposure
                = facts.exposureValue != 0 ? facts.exposureValue : m_outputExposure;
            m_images.append(" Eev").append(decimal(exposure)).append(" Er1 Eb1");
            if (m_record.groups.at(location).size() > 1) {
                m_images.append(m_count == owner ? " j" : " j=");
                m_images.append(QByteArray::number(owner));
            }
            m_images.append(" n\"").append(nameFrom(m_folder, path)).append("\"\n");

            m_coverage.add(turned, lens);
            ++m_count;
        }
    }

    QByteArray text() const
    {
        const Canvas canvas = m_coverage.canvas();
        QByteArray text = QByteArrayLiteral("# hugin project file\n#hugin_ptoversion 2\np f2 w");
        text.append(QByteArray::number(canvas.size.width()));
        text.append(" h").append(QByteArray::number(canvas.size.height()));
        text.append(" v").append(QByteArray::number(canvas.angle));
        text.append(" E").append(decimal(m_outputExposure)).append(" R0");
        if (canvas.crop.size() != canvas.size) {
            const QRect &crop = canvas.crop;
            text.append(" S").append(QByteArray::number(crop.left()));
            for (const int edge :
                {crop.left() + crop.width(), crop.top(), crop.top() + crop.height()})
                text.append(',').append(QByteArray::number(edge));
        }
        text.append(" n\"TIFF_m c:LZW r:CROP\"\nm g1 i0 f0 m2 p0.00784314\n\n");
        text.append(m_images).append('\n').append(m_variables).append("v\n\n");
        text.append(outputChoice());
        return text;
    }

private:
    /// The picture's lens: its own values for the first picture of a lens, links to that one after.
    void addLens(const PictureOptics &lens)
    {
        const auto owner = m_lensOwners.constFind(lens);
        if (owner != m_lensOwners.constEnd()) {
            addLinks({"v", "a", "b", "c", "d", "e", "g", "t", "Ra", "Rb", "Rc", "Rd", "Re", "Va",
                         "Vb", "Vc", "Vd", "Vx", "Vy"},
                *owner);
            return;
        }
        m_lensOwners.insert(lens, m_count);
        m_images.append(" v").append(decimal(degrees(lens.angleAcross(lens.size.width())), 8));
        m_images.append(" a0 b0 c0 d0 e0 g0 t0 Ra0 Rb0 Rc0 Rd0 Re0 Va1 Vb0 Vc0 Vd0 Vx0 Vy0");
        addVariables({"v", "b"});
    }

    void addPlace(const Placement &place, bool variable)
    {
        m_images.append(" r").append(decimal(place.roll));
        m_images.append(" p").append(decimal(place.pitch));
        m_images.append(" y").append(decimal(place.yaw));
        if (variable)
            addVariables({"y", "p", "r"});
    }

    /// The tools die on a link to a later picture: the owner always comes first.
    void addLinks(std::initializer_list<const char *> names, int owner)
    {
        for (const char *name : names)
            m_images.append(' ').append(name).append('=').append(QByteArray::number(owner));
    }

    void addVariables(std::initializer_list<const char *> names)
    {
        for (const char *name : names)
            m_variables.append("v ").append(name).append(QByteArray::number(m_count)).append('\n');
    }

    QByteArray outputChoice() const
    {
        switch (m_record.outputType) {
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

    const ProjectRecord &m_record;
    const PictureTable &m_pictures;
    QString m_folder;
    QVector<bool> m_anchors;
    double m_outputExposure;
    QHash<PictureOptics, int> m_lensOwners;
    Coverage m_coverage;
    int m_count = 0;
    QByteArray m_images;
    QByteArray m_variables;
};

/// Why \a path cannot stand in a project; empty when it can.
QString obstacle(const ProjectRecord &record, const PictureTable &pictures, const QString &path)
{
    const auto facts = pictures.constFind(path);
    if (!canBeNamed(path))
        return QStringLiteral("%1: a project cannot name a file with a quotation mark or a control "
                              "character in its path")
            .arg(path);
    if (facts == pictures.constEnd())
        return QStringLiteral("%1: has not been read").arg(path);
    if (!facts->readable)
        return QStringLiteral("%1: %2").arg(path, facts->reason);
    if (!opticsOf(record, *facts))
        return QStringLiteral("%1: no usable focal length is known").arg(path);
    return {};
}

} // namespace

int referencePicture(
    const ProjectRecord &record, const QStringList &stack, const PictureTable &pictures)
{
    if (record.outputType != 0 || stack.isEmpty())
        return 0;
    QVector<int> order(stack.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return pictures.value(stack.at(a)).brightness() < pictures.value(stack.at(b)).brightness();
    });
    return order.at((order.size() - 1) / 2);
}

std::optional<QByteArray> ptoProject(const ProjectRecord &record, const PictureTable &pictures,
    const QString &folder, QString *problem)
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
        *problem = QStringLiteral("there is no picture");
        return std::nullopt;
    }
    const PictureFacts &facts = *pictures.constFind(*first);
    const auto places
        = placementsOf(record, *opticsOf(record, facts), facts.uprightTurn() % 180 != 0, problem);
    if (!places)
        return std::nullopt;

    Project project(record, pictures, QDir::cleanPath(folder));
    for (int location = 0; location < record.groups.size(); ++location)
        project.addLocation(location, places->at(location));
    return project.text();
}
