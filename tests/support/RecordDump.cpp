// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/RecordDump.h"

#include "host/ProjectRecord.h"

#include <QFileInfo>
#include <QTextStream>
#include <cmath>

namespace {

QString text(float value)
{
    const QString digits = QString::number(static_cast<double>(value), 'g', 9);
    // Qt drops the sign of a zero, which inverted pitches have.
    return value == 0 && std::signbit(value) ? QLatin1Char('-') + digits : digits;
}

void writeAngles(QTextStream &out, const char *name, const QVector<float> &angles)
{
    out << name << ':';
    for (const float angle : angles)
        out << ' ' << text(angle);
    out << '\n';
}

} // namespace

QString dump(const ProjectRecord &record)
{
    QString result;
    QTextStream out(&result);
    for (int i = 0; i < record.groups.size(); ++i) {
        out << "group " << i << ':';
        for (const QString &path : record.groups.at(i))
            out << " \"" << path << '"';
        out << '\n';
    }
    for (const ProjectLink &link : record.links) {
        out << "link kind " << link.kind << ':';
        for (const int index : link.indices)
            out << ' ' << index;
        out << '\n';
    }
    writeAngles(out, "yaws", record.yaws);
    writeAngles(out, "pitches", record.pitches);
    writeAngles(out, "rolls", record.rolls);
    out << "focal: " << text(record.focal) << '\n'
        << "lensType: " << record.lensType << '\n'
        << "autoDetection: " << record.autoDetection << '\n'
        << "stackLinking: " << record.stackLinking << '\n'
        << "levelLinking: " << record.levelLinking << '\n'
        << "guidedOptimization: " << record.guidedOptimization << '\n'
        << "skipOptimization: " << record.skipOptimization << '\n'
        << "cleanLinks: " << record.cleanLinks << '\n'
        << "layoutMode: " << record.layoutMode << '\n'
        << "layoutRows: " << record.layoutRows << '\n'
        << "layoutBracket: " << record.layoutBracket << '\n'
        << "fullTurn: " << record.fullTurn << '\n'
        << "overlap: " << QString::number(record.overlap, 'g', 17) << '\n'
        << "outputType: " << record.outputType << '\n';
    out.flush();
    return result;
}

QString stacksOf(const ProjectRecord &record)
{
    QStringList stacks;
    for (const QStringList &group : record.groups) {
        QStringList names;
        for (const QString &path : group)
            names.append(QFileInfo(path).completeBaseName());
        stacks.append(names.join(QLatin1Char(' ')));
    }
    return stacks.join(QLatin1Char('|'));
}

QString linksOf(const ProjectRecord &record)
{
    QStringList links;
    for (const ProjectLink &link : record.links) {
        QStringList indices;
        for (const int index : link.indices)
            indices.append(QString::number(index));
        links.append(QStringLiteral("%1:%2").arg(link.kind).arg(indices.join(QLatin1Char('-'))));
    }
    return links.join(QLatin1Char(' '));
}
