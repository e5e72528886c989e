// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/Console.h"

#include <QStringList>
#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

/// Of numbers that are none, each is named up to this many.
constexpr int kNamedSingly = 20;

void write(FILE *stream, const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
    std::fflush(stream);
}

/// \a text with control characters spelt out: what stands in a file or is its name may not steer
/// the terminal, nor look like another line.
QString harmless(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar character : text) {
        if (character.category() == QChar::Other_Control)
            result
                += QStringLiteral("\\x%1").arg(uint(character.unicode()), 2, 16, QLatin1Char('0'));
        else
            result += character;
    }
    return result;
}

QString sentence(const Finding &finding)
{
    switch (finding.cause) {
    case Finding::Cause::CannotOpen:
        return QStringLiteral("cannot be opened: %1").arg(finding.value);
    case Finding::Cause::Malformed:
        return QStringLiteral("is not well-formed: %1").arg(finding.value);
    case Finding::Cause::NotANumber:
        return QStringLiteral("%1 is not a number").arg(finding.value);
    case Finding::Cause::CutAngle:
        if (finding.value.contains(QLatin1Char(',')))
            return QStringLiteral("%1: what follows the comma is cut off; decimals take a point")
                .arg(finding.value);
        return QStringLiteral("%1: the format cuts the decimals off; --full-angles takes them")
            .arg(finding.value);
    case Finding::Cause::NotADate:
        break;
    case Finding::Cause::NoShots:
        return QStringLiteral("holds no shots");
    }
    return finding.value;
}

} // namespace

void console::muteDecoders()
{
    static QtMessageHandler before = nullptr;
    before = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext &context, const QString &message) {
            const bool isDefault = !context.category || qstrcmp(context.category, "default") == 0;
            if (type != QtWarningMsg || !isDefault)
                before(type, context, message);
        });
}

void console::print(const QString &text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    std::transform(lines.begin(), lines.end(), lines.begin(), harmless);
    write(stdout, lines.join(QLatin1Char('\n')));
}

bool console::isPrinted()
{
    return std::ferror(stdout) == 0;
}

void console::complain(const QString &sentence)
{
    write(stderr, QStringLiteral("panohost: %1\n").arg(harmless(sentence)));
}

bool console::isWatched()
{
    return ::isatty(STDERR_FILENO) != 0;
}

void console::showPassing(const QString &sentence)
{
    write(stderr, QStringLiteral("\r\033[K") + sentence);
}

void FindingReport::add(const Finding &finding)
{
    // Whole families of heads write times of their own form, and nothing comes of the times.
    if (finding.cause == Finding::Cause::NotADate)
        return;
    Kind &kind = m_kinds[finding.cause];
    if (kind.count++ == 0)
        kind.first = finding;
    if (finding.cause == Finding::Cause::NotANumber && kind.count <= kNamedSingly)
        complain(finding);
}

void FindingReport::finish() const
{
    for (const Kind &kind : m_kinds) {
        const bool numbers = kind.first.cause == Finding::Cause::NotANumber;
        if (numbers && kind.count > kNamedSingly)
            console::complain(
                QStringLiteral("%1: %2 values in all are not numbers").arg(m_file).arg(kind.count));
        else if (!numbers)
            complain(kind.first,
                kind.count > 1 ? QStringLiteral(" (%1 in all)").arg(kind.count) : QString());
    }
}

void FindingReport::complain(const Finding &finding, const QString &more) const
{
    const QString place
        = finding.line > 0 ? QStringLiteral("%1:%2").arg(m_file).arg(finding.line) : m_file;
    console::complain(place + QStringLiteral(": ") + sentence(finding) + more);
}
