// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clauss/ClaussScript.h"

#include <QChar>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <system_error>

namespace {

using namespace std::string_view_literals;

/// Longest piece of a line that a finding quotes.
constexpr size_t kLongestQuote = 80;

using CharacterTable = std::array<bool, 256>;

CharacterTable makeWordTable(bool withDot)
{
    CharacterTable table{};
    for (uint code = 0; code < table.size(); ++code) {
        const QChar character(code);
        table[code] = character.isLetterOrNumber() || character.isMark()
            || character == QLatin1Char('_') || character == QLatin1Char('-');
    }
    table['.'] = withDot;
    return table;
}

const CharacterTable kWord = makeWordTable(false);
const CharacterTable kWordOrDot = makeWordTable(true);

std::string_view leading(std::string_view text, const CharacterTable &table)
{
    const auto end = std::find_if_not(
        text.begin(), text.end(), [&](char c) { return table[static_cast<uchar>(c)]; });
    return text.substr(0, static_cast<size_t>(end - text.begin()));
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// Nothing for what is no plain decimal number, or too large for 32 bits.
std::optional<float> toAngle(std::string_view text)
{
    double number = 0;
    const char *const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
    // from_chars knows "inf" and "nan", which have no finite value.
    if (error != std::errc() || stop != end || !std::isfinite(number)
        || std::abs(number) > std::numeric_limits<float>::max())
        return std::nullopt;
    return static_cast<float>(number);
}

/// How many characters from the start of \a rest, which follows an angle's value, are decimals.
size_t decimalsAt(std::string_view rest)
{
    if (rest.size() < 2 || (rest[0] != '.' && rest[0] != ',') || !isDigit(rest[1]))
        return 0;
    const auto end = std::find_if_not(rest.begin() + 1, rest.end(), isDigit);
    return static_cast<size_t>(end - rest.begin());
}

QString quote(std::string_view text)
{
    const std::string_view shown = text.substr(0, kLongestQuote);
    return QString::fromLatin1(shown.data(), static_cast<int>(shown.size())).trimmed();
}

class ScriptReader {
public:
    ScriptReader(bool fullAngles, const FindingSink &findings)
        : m_fullAngles(fullAngles)
        , m_findings(findings)
    {
    }

    void readLine(std::string_view line)
    {
        ++m_line;
        const ClaussEntry entry = splitClaussLine(line, m_fullAngles);
        if (entry.key == "op_shoot"sv)
            shoot();
        else if (entry.key == "op_v-angle"sv)
            m_pitch = angle(line, entry);
        else if (entry.key == "op_h-angle"sv)
            m_yaw = angle(line, entry);
    }

    ClaussScript finish()
    {
        if (m_script.shots.isEmpty())
            report({Finding::Cause::NoShots, 0, {}});
        return std::move(m_script);
    }

private:
    void shoot()
    {
        HeadShot shot;
        shot.yaw = m_yaw;
        shot.pitch = m_pitch;
        shot.id = m_script.shots.size();
        m_script.shots.append(shot);
    }

    float angle(std::string_view line, const ClaussEntry &entry)
    {
        const std::optional<float> number = toAngle(entry.value);
        if (!number) {
            m_script.valid = false;
            report({Finding::Cause::NotANumber, m_line, quote(line)});
            return 0;
        }
        const auto taken
            = static_cast<size_t>(entry.value.data() - line.data()) + entry.value.size();
        if (const size_t decimals = decimalsAt(line.substr(taken)))
            report({Finding::Cause::CutAngle, m_line, quote(line.substr(0, taken + decimals))});
        return *number;
    }

    void report(const Finding &finding) const
    {
        if (m_findings)
            m_findings(finding);
    }

    const bool m_fullAngles;
    const FindingSink &m_findings;
    ClaussScript m_script;
    qint64 m_line = 0;
    float m_yaw = 0;
    float m_pitch = 0;
};

} // namespace

ClaussEntry splitClaussLine(std::string_view line, bool fullAngles)
{
    ClaussEntry entry;
    entry.key = leading(line, kWord);
    line.remove_prefix(entry.key.size());
    if (!line.empty() && line.front() == '=')
        line.remove_prefix(1);
    entry.value = leading(line, fullAngles ? kWordOrDot : kWord);
    return entry;
}

ClaussScript readClaussScript(QByteArray bytes, bool fullAngles, const FindingSink &findings)
{
    const auto end = std::find(bytes.begin(), bytes.end(), '\0');
    const auto textEnd = std::remove(bytes.begin(), end, '\r');
    std::string_view text(bytes.constData(), static_cast<size_t>(textEnd - bytes.begin()));

    ScriptReader reader(fullAngles, findings);
    while (!text.empty()) {
        const size_t length = std::min(text.find('\n'), text.size());
        reader.readLine(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return reader.finish();
}
