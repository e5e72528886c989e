// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/Options.h"

#include <cmath>
#include <type_traits>

void addOption(QCommandLineParser &parser, const OptionText &option)
{
    parser.addOption(
        {QLatin1String(option.name), QString(), QLatin1String(option.value ? option.value : "")});
}

ExitCode wrongUsage(const QString &error, const QString &command)
{
    console::complain(error);
    QStringList call{QStringLiteral("panohost"), command, QStringLiteral("--help")};
    call.removeAll(QString());
    console::complain(QStringLiteral("%1 tells how it is used").arg(call.join(QLatin1Char(' '))));
    return ExitCode::WrongUsage;
}

QStringList wordsOf(const OptionText &option)
{
    return QString::fromLatin1(option.value).split(QLatin1Char('|'));
}

void addHelp(QCommandLineParser &parser)
{
    const QStringList names{QStringLiteral("h"), QStringLiteral("help")};
    parser.addOption(QCommandLineOption(names));
}

bool wantsHelp(const QCommandLineParser &parser)
{
    return parser.isSet(QStringLiteral("help"));
}

std::optional<int> OptionReader::choice(const char *name, const QStringList &words)
{
    if (!isSet(name))
        return std::nullopt;
    const int place = words.indexOf(text(name));
    if (place >= 0)
        return place;
    refuse(QStringLiteral("--%1 wants one of %2, not \"%3\"")
               .arg(QLatin1String(name), words.join(QLatin1String(", ")), text(name)));
    return std::nullopt;
}

template <class Number>
std::optional<Number> OptionReader::between(
    const char *name, Number least, Number most, const QString &kind)
{
    if (!isSet(name))
        return std::nullopt;
    bool isNumber = false;
    Number value;
    if constexpr (std::is_integral_v<Number>)
        value = text(name).toInt(&isNumber);
    else
        value = text(name).toDouble(&isNumber);
    // Not a number at all fails here too.
    if (isNumber && value >= least && value <= most)
        return value;
    refuse(QStringLiteral("--%1 wants %2 from %3 to %4, not \"%5\"")
               .arg(QLatin1String(name), kind)
               .arg(least)
               .arg(most)
               .arg(text(name)));
    return std::nullopt;
}

std::optional<double> OptionReader::number(const char *name, double least, double most)
{
    return between(name, least, most, QStringLiteral("a number"));
}

std::optional<int> OptionReader::integer(const char *name, int least, int most)
{
    return between(name, least, most, QStringLiteral("a whole number"));
}

bool OptionReader::lastOf(const char *on, const char *off, bool fallback) const
{
    const QStringList given = m_parser.optionNames();
    const int lastOn = given.lastIndexOf(QLatin1String(on));
    const int lastOff = given.lastIndexOf(QLatin1String(off));
    return lastOn == lastOff ? fallback : lastOn > lastOff;
}

void OptionReader::refuse(const QString &error)
{
    if (m_error.isEmpty())
        m_error = error;
}
