// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// How far an aligned project is from the truth of a made-up shooting, in degrees:
// align_error FOLDER PROJECT.pto prints rms, worst, the worst picture, the number of pictures, and
// the turn of the whole in degrees, which is left out of account. A third argument names a project
// that is written, the same with that turn taken back.

#include "geometry/Angle.h"
#include "tests/align/ShootingTruth.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

namespace {

/// The places in the project at \a path, links resolved; the tools' own projects, too.
PtoProject placesIn(const QString &path)
{
    PtoProject project;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return project;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (!line.startsWith(QLatin1String("i ")))
            continue;
        PtoProject::Picture picture;
        const auto value = [&](const char *name, double Placement::*member) {
            static const QString pattern = QStringLiteral(" %1(=?)(-?[0-9.e+-]+)");
            const auto match = QRegularExpression(pattern.arg(QLatin1String(name))).match(line);
            const double number = match.captured(2).toDouble();
            picture.place.*member = match.captured(1).isEmpty()
                ? number
                : project.pictures.value(static_cast<int>(number)).place.*member;
        };
        value("y", &Placement::yaw);
        value("p", &Placement::pitch);
        value("r", &Placement::roll);
        picture.path = line.section(QLatin1Char('"'), 1, 1);
        project.pictures.append(picture);
    }
    return project;
}

/// Writes the project at \a from to \a to with its \a pictures turned as a whole by \a turn.
bool writeTurned(
    const QString &from, const QString &to, const PtoProject &project, const align::Rotation &turn)
{
    QFile in(from);
    QFile out(to);
    if (!in.open(QIODevice::ReadOnly) || !out.open(QIODevice::WriteOnly))
        return false;
    int place = 0;
    const QStringList lines = QString::fromUtf8(in.readAll()).split(QLatin1Char('\n'));
    for (QString line : lines) {
        if (line.startsWith(QLatin1String("i "))) {
            const Placement turned
                = align::placementOf(turn * align::rotationOf(project.pictures.at(place++).place));
            const auto put = [&line](const char *name, double value) {
                line.replace(QRegularExpression(
                                 QStringLiteral(" %1=?-?[0-9.e+-]+").arg(QLatin1String(name))),
                    QStringLiteral(" %1%2").arg(QLatin1String(name)).arg(value, 0, 'f', 9));
            };
            put("y", turned.yaw);
            put("p", turned.pitch);
            put("r", turned.roll);
        }
        out.write(line.toUtf8() + '\n');
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3 && argc != 4)
        return 2;
    const PtoProject project = placesIn(QFile::decodeName(argv[2]));
    const AlignError error = alignError(project, ShootingTruth::of(QFile::decodeName(argv[1])));
    QTextStream(stdout) << error.rms << ' ' << error.worst << ' ' << error.worstName << ' '
                        << project.pictures.size() << ' ' << error.whole.norm() << '\n';
    if (argc == 4
        && !writeTurned(QFile::decodeName(argv[2]), QFile::decodeName(argv[3]), project,
            align::turnBy(error.whole * M_PI / 180)))
        return 1;
    return project.pictures.isEmpty() ? 1 : 0;
}
