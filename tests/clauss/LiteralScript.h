// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "geometry/HeadShot.h"

#include <QByteArray>
#include <QList>
#include <QLocale>
#include <algorithm>
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QRegExp>
#else
#include <QRegularExpression>
#endif

/// The rules of the script file, written down as plainly as can be, to compare the reader with.
namespace literal {

struct Entry {
    QString key;
    QString value;
};

/// Takes key and value from a line with the regular expression that defines the format, in which \w
/// is every Latin-1 letter, number and mark.
inline Entry entryOf(const QString &line)
{
    const QString format = QStringLiteral("([\\w\\d-]*)=?([\\w\\d-]*)");
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    static const QRegExp expression(format);
    QRegExp match = expression;
    match.indexIn(line);
    return {match.cap(1), match.cap(2)};
#else
    static const QRegularExpression expression(
        format, QRegularExpression::UseUnicodePropertiesOption);
    const QRegularExpressionMatch match = expression.match(line);
    return {match.captured(1), match.captured(2)};
#endif
}

inline float toAngle(const QString &value, bool &valid)
{
    const bool letters = std::any_of(
        value.begin(), value.end(), [](QChar character) { return character.isLetter(); });
    bool converted = false;
    const float angle = QLocale::c().toFloat(value, &converted);
    if (!converted || letters) {
        valid = false;
        return 0;
    }
    return angle;
}

struct Script {
    QVector<HeadShot> shots;
    bool valid = true;
};

inline Script read(QByteArray bytes)
{
    const int zero = bytes.indexOf('\0');
    if (zero >= 0)
        bytes.truncate(zero);
    QString text = QString::fromLatin1(bytes);
    text.remove(QLatin1Char('\r'));

    Script script;
    float theta = 0;
    float phi = 0;
    int count = 0;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const Entry entry = entryOf(line);
        if (entry.key == QLatin1String("op_shoot")) {
            HeadShot shot;
            shot.yaw = theta;
            shot.pitch = phi;
            shot.id = count++;
            script.shots.append(shot);
        } else if (entry.key == QLatin1String("op_v-angle")) {
            phi = toAngle(entry.value, script.valid);
        } else if (entry.key == QLatin1String("op_h-angle")) {
            theta = toAngle(entry.value, script.valid);
        }
    }
    return script;
}

} // namespace literal
