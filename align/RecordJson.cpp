// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/RecordJson.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// Calls \a visit with name and member for every member of \a record, in their order.
template <class Record, class Visitor> void forEachMember(Record &record, Visitor visit)
{
    visit("groups", record.groups);
    visit("links", record.links);
    visit("yaws", record.yaws);
    visit("pitches", record.pitches);
    visit("rolls", record.rolls);
    visit("focal", record.focal);
    visit("lensType", record.lensType);
    visit("autoDetection", record.autoDetection);
    visit("stackLinking", record.stackLinking);
    visit("levelLinking", record.levelLinking);
    visit("guidedOptimization", record.guidedOptimization);
    visit("skipOptimization", record.skipOptimization);
    visit("cleanLinks", record.cleanLinks);
    visit("layoutMode", record.layoutMode);
    visit("layoutRows", record.layoutRows);
    visit("layoutBracket", record.layoutBracket);
    visit("fullTurn", record.fullTurn);
    visit("overlap", record.overlap);
    visit("outputType", record.outputType);
}

/// Writes by hand: QJsonDocument sorts the keys and gives a 32-bit value the seventeen digits of
/// the double it was widened to.
class Writer {
public:
    template <class Member> void operator()(const char *name, const Member &member)
    {
        m_json += m_json.isEmpty() ? "{\n" : ",\n";
        m_json.append('"').append(name).append("\": ");
        write(member);
    }
    QByteArray finish() { return m_json.append("\n}\n"); }

private:
    void write(bool value) { m_json += value ? "true" : "false"; }
    void write(int value) { m_json += QByteArray::number(value); }
    void write(float value) { writeFinite(static_cast<double>(value), 9); }
    void write(double value) { writeFinite(value, QLocale::FloatingPointShortest); }
    void write(const QString &path)
    {
        m_json += '"';
        for (const char c : QFileInfo(path).absoluteFilePath().toUtf8()) {
            if (c == '"' || c == '\\')
                m_json.append('\\').append(c);
            else if (static_cast<uchar>(c) < 0x20)
                m_json.append("\\u00").append(QByteArray(1, c).toHex());
            else
                m_json += c;
        }
        m_json += '"';
    }
    void write(const ProjectLink &link)
    {
        m_json.append("{\"kind\": ")
            .append(QByteArray::number(link.kind))
            .append(", \"indices\": ");
        writeList(link.indices, ", ");
        m_json += '}';
    }
    void write(const QStringList &group) { writeList(group, ", "); }
    void write(const QList<QStringList> &groups) { writeList(groups, ",\n    "); }
    void write(const QVector<ProjectLink> &links) { writeList(links, ",\n    "); }
    void write(const QVector<float> &angles) { writeList(angles, ", "); }

    void writeFinite(double value, int digits)
    {
        m_json += std::isfinite(value) ? QByteArray::number(value, 'g', digits) : "null";
    }
    template <class List> void writeList(const List &list, const char *separator)
    {
        m_json += '[';
        for (auto entry = list.begin(); entry != list.end(); ++entry) {
            if (entry != list.begin())
                m_json += separator;
            write(*entry);
        }
        m_json += ']';
    }

    QByteArray m_json;
};

class Reader {
public:
    explicit Reader(QJsonObject object)
        : m_object(std::move(object))
    {
    }
    template <class Member> void operator()(const char *name, Member &member)
    {
        const QJsonValue value = m_object.value(QLatin1String(name));
        if (!value.isUndefined() && !read(value, member) && m_error.isEmpty())
            m_error = QStringLiteral("\"%1\" is not what a record holds").arg(QLatin1String(name));
    }
    QString error() const { return m_error; }

private:
    static bool read(const QJsonValue &value, bool &member)
    {
        member = value.toBool();
        return value.isBool();
    }
    static bool read(const QJsonValue &value, int &member)
    {
        const double number = value.toDouble();
        if (!value.isDouble() || std::abs(number) > std::numeric_limits<int>::max()
            || number != std::floor(number))
            return false;
        member = static_cast<int>(number);
        return true;
    }
    static bool read(const QJsonValue &value, double &member)
    {
        member = value.isNull() ? std::numeric_limits<double>::quiet_NaN() : value.toDouble();
        return value.isNull() || value.isDouble();
    }
    static bool read(const QJsonValue &value, float &member)
    {
        constexpr double kLargest = std::numeric_limits<float>::max();
        double wide = 0;
        // Nine digits may round the largest value up, by less than half a step.
        if (!read(value, wide) || std::abs(wide) > kLargest * (1 + 1e-8))
            return false;
        member
            = static_cast<float>(std::isnan(wide) ? wide : std::clamp(wide, -kLargest, kLargest));
        return true;
    }
    static bool read(const QJsonValue &value, QString &member)
    {
        member = value.toString();
        return value.isString();
    }
    static bool read(const QJsonValue &value, ProjectLink &member)
    {
        const QJsonObject object = value.toObject();
        return read(object.value(QLatin1String("kind")), member.kind)
            && read(object.value(QLatin1String("indices")), member.indices);
    }
    template <class List> static bool read(const QJsonValue &value, List &member)
    {
        const QJsonArray array = value.toArray();
        member.clear();
        member.reserve(array.size());
        for (const QJsonValue entry : array) {
            typename List::value_type item{};
            if (!read(entry, item))
                return false;
            member.append(item);
        }
        return value.isArray();
    }

    QJsonObject m_object;
    QString m_error;
};

} // namespace

QByteArray recordToJson(const ProjectRecord &record)
{
    Writer writer;
    forEachMember(
        record, [&writer](const char *name, const auto &member) { writer(name, member); });
    return writer.finish();
}

std::optional<ProjectRecord> recordFromJson(const QByteArray &json, QString *error)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (!document.isObject()) {
        *error = parseError.error == QJsonParseError::NoError
            ? QStringLiteral("holds no record")
            : QStringLiteral("%1 at byte %2").arg(parseError.errorString()).arg(parseError.offset);
        return std::nullopt;
    }
    ProjectRecord record;
    Reader reader(document.object());
    forEachMember(record, [&reader](const char *name, auto &member) { reader(name, member); });
    *error = reader.error();
    return error->isEmpty() ? std::optional(record) : std::nullopt;
}
