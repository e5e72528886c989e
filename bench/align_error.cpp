// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// How far an aligned project is from the truth of a made-up shooting, in degrees:
// align_error FOLDER PROJECT.pto prints rms, worst, the worst picture and the number of pictures.

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

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3)
        return 2;
    const PtoProject project = placesIn(QFile::decodeName(argv[2]));
    const AlignError error = alignError(project, ShootingTruth::of(QFile::decodeName(argv[1])));
    QTextStream(stdout) << error.rms << ' ' << error.worst << ' ' << error.worstName << ' '
                        << project.pictures.size() << '\n';
    return project.pictures.isEmpty() ? 1 : 0;
}
