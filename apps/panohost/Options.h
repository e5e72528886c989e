// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/Console.h"

#include <QCommandLineParser>
#include <QString>
#include <QStringList>
#include <optional>

/// One option as the help shows it.
struct OptionText {
    /// Without the two dashes.
    const char *name;
    /// The value as the help shows it: a word, or the words to choose from parted by '|'; null for
    /// a switch.
    const char *value;
    const char *description;
};

/// Lets \a parser know \a option.
void addOption(QCommandLineParser &parser, const OptionText &option);
template <typename Options> void addOptions(QCommandLineParser &parser, const Options &options)
{
    for (const OptionText &option : options)
        addOption(parser, option);
}
/// Adds --help and -h.
void addHelp(QCommandLineParser &parser);
bool wantsHelp(const QCommandLineParser &parser);

/// Complains of \a error and tells that "panohost COMMAND --help" has more.
ExitCode wrongUsage(const QString &error, const QString &command);

/// The words to choose from in the value of \a option.
QStringList wordsOf(const OptionText &option);

/// Takes values from a parsed command line and keeps the first thing that is wrong with them.
class OptionReader {
public:
    explicit OptionReader(const QCommandLineParser &parser)
        : m_parser(parser)
    {
    }

    bool isSet(const char *name) const { return m_parser.isSet(QLatin1String(name)); }
    QString text(const char *name) const { return m_parser.value(QLatin1String(name)); }
    QStringList texts(const char *name) const { return m_parser.values(QLatin1String(name)); }
    /// The place of the value in \a words. Nothing, as in all of these, when the option is not
    /// given or its value is refused.
    std::optional<int> choice(const char *name, const QStringList &words);
    std::optional<double> number(const char *name, double least, double most);
    std::optional<int> integer(const char *name, int least, int most);
    /// Of a switch and its opposite the one given last counts.
    bool lastOf(const char *on, const char *off, bool fallback) const;

    void refuse(const QString &error);
    /// Empty as long as all is right.
    QString error() const { return m_error; }

private:
    template <class Number>
    std::optional<Number> between(const char *name, Number least, Number most, const QString &kind);

    const QCommandLineParser &m_parser;
    QString m_error;
};
