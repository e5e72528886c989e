// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "papywizard/ShootingFile.h"

#include <QIODevice>
#include <QTextStream>
#include <QVector>
#include <QXmlStreamReader>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <optional>
#include <utility>

// What is read of a shooting file; the root's name does not matter:
//
//     <papywizard>
//         <header>
//             <general> <title/> <gps/> <comment/> </general>
//             <camera> <sensor coef="1.5"/> <bracketing nbPicts="3"/> </camera>
//             <lens type="rectilinear"> <focal>18.0</focal> </lens>
//             <shooting> <cameraOrientation>portrait</cameraOrientation> </shooting>
//         </header>
//         <shoot>
//             <pict id="1" bracket="1">
//                 <position yaw="-15.0" pitch="30.0"/>
//                 <time>Fri Jun  6 10:37:16 2008</time>
//             </pict>
//         </shoot>
//     </papywizard>

namespace {

constexpr int kLongestQuote = 80;

template <class Text> std::optional<double> finiteNumber(const Text &text)
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(static_cast<float>(value)))
        return std::nullopt;
    return value;
}

/// One pass over the document, with one function per element. Each is entered at the element's
/// start tag and leaves at its end tag.
class ShootingWalk {
public:
    ShootingWalk(QIODevice &device, bool wantsFindings)
        : m_xml(&device)
        , m_wantsFindings(wantsFindings)
    {
        // Prefixes are part of the names, and need no declaration.
        m_xml.setNamespaceProcessing(false);
    }

    void setEntityResolver(QXmlStreamEntityResolver *resolver)
    {
        m_xml.setEntityResolver(resolver);
    }

    /// Whether the document is well-formed up to its end.
    bool read()
    {
        m_xml.readNext();
        m_declaredEncoding = m_xml.documentEncoding().toString();
        if (m_xml.readNextStartElement())
            root();
        while (m_xml.tokenType() != QXmlStreamReader::Invalid
            && m_xml.tokenType() != QXmlStreamReader::EndDocument)
            m_xml.readNext();
        return !m_xml.hasError();
    }

    PapywizardShooting takeShooting() { return std::move(m_shooting); }
    const QVector<Finding> &findings() const { return m_findings; }
    Finding malformation() const
    {
        return {Finding::Cause::Malformed, m_xml.lineNumber(), m_xml.errorString()};
    }
    /// Empty when the document names none, or was refused before it could.
    const QString &declaredEncoding() const { return m_declaredEncoding; }

private:
    struct Child {
        const char *name;
        void (ShootingWalk::*read)();
    };

    bool isAt(const char *name) const { return m_xml.qualifiedName() == QLatin1String(name); }

    /// Reads the first child of each of these names and passes over all others.
    template <std::size_t count> void firstChildren(const Child (&children)[count])
    {
        std::array<bool, count> seen{};
        while (m_xml.readNextStartElement()) {
            const auto child = std::find_if(std::cbegin(children), std::cend(children),
                [this](const Child &candidate) { return isAt(candidate.name); });
            const auto index = static_cast<std::size_t>(child - children);
            if (child == std::cend(children) || std::exchange(seen[index], true))
                m_xml.skipCurrentElement();
            else
                (this->*child->read)();
        }
    }

    /// The element's own text and that of everything in it, at any depth.
    QString text()
    {
        QString text;
        for (int depth = 1; depth > 0;) {
            switch (m_xml.readNext()) {
            case QXmlStreamReader::StartElement:
                ++depth;
                break;
            case QXmlStreamReader::EndElement:
                --depth;
                break;
            case QXmlStreamReader::Characters:
                text += m_xml.text();
                break;
            case QXmlStreamReader::Invalid:
                return text;
            default:
                break;
            }
        }
        return text;
    }

    void note(Finding::Cause cause, qint64 line, const char *name, const QString &text)
    {
        if (!m_wantsFindings)
            return;
        const QString quote
            = text.size() > kLongestQuote ? text.left(kLongestQuote) + QStringLiteral("...") : text;
        m_findings.append(
            {cause, line, QLatin1String(name) + QStringLiteral(" \"%1\"").arg(quote)});
    }

    std::optional<double> numberAttribute(const char *name)
    {
        const QXmlStreamAttributes attributes = m_xml.attributes();
        const auto text = attributes.value(QLatin1String(name));
        const std::optional<double> value = finiteNumber(text);
        if (!value && attributes.hasAttribute(QLatin1String(name)))
            note(Finding::Cause::NotANumber, m_xml.lineNumber(), name, text.toString());
        return value;
    }

    int integerAttribute(const char *name)
    {
        const QXmlStreamAttributes attributes = m_xml.attributes();
        const auto text = attributes.value(QLatin1String(name));
        bool isInteger = false;
        const int value = text.toInt(&isInteger);
        if (!isInteger && attributes.hasAttribute(QLatin1String(name)))
            note(Finding::Cause::NotANumber, m_xml.lineNumber(), name, text.toString());
        return value;
    }

    void root()
    {
        firstChildren({{"shoot", &ShootingWalk::shoot}, {"header", &ShootingWalk::header}});
    }

    void shoot()
    {
        while (m_xml.readNextStartElement()) {
            if (isAt("pict"))
                pict();
            else
                m_xml.skipCurrentElement();
        }
    }

    void pict()
    {
        PapywizardShot shot;
        shot.id = integerAttribute("id");
        shot.bracket = integerAttribute("bracket");
        m_shooting.shots.append(shot);
        firstChildren({{"position", &ShootingWalk::position}, {"time", &ShootingWalk::time}});
    }

    void position()
    {
        PapywizardShot &shot = m_shooting.shots.last();
        shot.yaw = static_cast<float>(numberAttribute("yaw").value_or(0));
        shot.pitch = static_cast<float>(numberAttribute("pitch").value_or(0));
        m_xml.skipCurrentElement();
    }

    void time()
    {
        const qint64 line = m_xml.lineNumber();
        const QString text = this->text();
        // Unlike Qt 5, Qt 6 refuses a date with a line break and blanks before it.
        const bool isQt5 = QT_VERSION < QT_VERSION_CHECK(6, 0, 0);
        const QDateTime time = QDateTime::fromString(isQt5 ? text : text.trimmed(), Qt::TextDate);
        m_shooting.shots.last().time = time;
        if (!time.isValid() && !text.trimmed().isEmpty())
            note(Finding::Cause::NotADate, line, "time", text.trimmed());
    }

    void header()
    {
        firstChildren({{"general", &ShootingWalk::general}, {"camera", &ShootingWalk::camera},
            {"lens", &ShootingWalk::lens}, {"shooting", &ShootingWalk::shooting}});
        // The sensor may be told of after the lens, so the two meet only here.
        if (m_hasLens)
            m_shooting.focal = m_writtenFocal * m_shooting.sensorCoef;
    }

    void general()
    {
        firstChildren({{"title", &ShootingWalk::title}, {"gps", &ShootingWalk::gps},
            {"comment", &ShootingWalk::comment}});
    }
    void title() { m_shooting.title = text().trimmed(); }
    void gps() { m_shooting.gps = text().trimmed(); }
    void comment() { m_shooting.comment = text().trimmed(); }

    void camera()
    {
        firstChildren(
            {{"sensor", &ShootingWalk::sensor}, {"bracketing", &ShootingWalk::bracketing}});
    }

    void sensor()
    {
        m_shooting.sensorCoef = numberAttribute("coef").value_or(1.0);
        m_xml.skipCurrentElement();
    }

    void bracketing()
    {
        m_shooting.bracketCount = integerAttribute("nbPicts");
        m_xml.skipCurrentElement();
    }

    void lens()
    {
        m_hasLens = true;
        const QString type = m_xml.attributes().value(QLatin1String("type")).toString().trimmed();
        m_shooting.fisheye = type.compare(QLatin1String("fisheye"), Qt::CaseInsensitive) == 0;
        firstChildren({{"focal", &ShootingWalk::focal}});
    }

    void focal()
    {
        const qint64 line = m_xml.lineNumber();
        const QString text = this->text().trimmed();
        const std::optional<double> value = finiteNumber(text);
        m_writtenFocal = value.value_or(0);
        if (!value)
            note(Finding::Cause::NotANumber, line, "focal", text);
    }

    void shooting() { firstChildren({{"cameraOrientation", &ShootingWalk::cameraOrientation}}); }

    void cameraOrientation()
    {
        m_shooting.portrait = text().trimmed().toLower() == QLatin1String("portrait");
    }

    QXmlStreamReader m_xml;
    QString m_declaredEncoding;
    bool m_wantsFindings;
    PapywizardShooting m_shooting;
    bool m_hasLens = false;
    double m_writtenFocal = 0;
    QVector<Finding> m_findings;
};

/// Passes UTF-8 on with each byte that does not belong to it replaced by U+FFFD. Text that begins
/// with the byte order mark of UTF-16 becomes UTF-8.
class RepairedUtf8 final : public QIODevice {
public:
    explicit RepairedUtf8(QIODevice &source)
        : m_stream(&source)
    {
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
        m_stream.setCodec("UTF-8");
#endif
        // The stream eats one byte order mark. A second one must not be taken for the first.
        const QByteArray mark("\xEF\xBB\xBF");
        if (source.peek(mark.size()) == mark)
            m_ready = mark;
        m_ready += nextChunk();
        open(QIODevice::ReadOnly);
    }

    bool isSequential() const override
    {
        return true;
    }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        if (m_ready.isEmpty())
            m_ready = nextChunk();
        const auto size = static_cast<int>(std::min<qint64>(maxSize, m_ready.size()));
        std::copy_n(m_ready.constData(), size, data);
        m_ready.remove(0, size);
        return size;
    }
    qint64 writeData(const char * /*data*/, qint64 /*size*/) override
    {
        return -1;
    }

private:
    QByteArray nextChunk()
    {
        QString chunk = m_stream.read(4096);
        if (!chunk.isEmpty() && chunk.at(chunk.size() - 1).isHighSurrogate())
            chunk += m_stream.read(1);
        return chunk.toUtf8();
    }

    QTextStream m_stream;
    QByteArray m_ready;
};

class VanishingEntities final : public QXmlStreamEntityResolver {
public:
    QString resolveUndeclaredEntity(const QString & /*name*/) override
    {
        return QStringLiteral("");
    }
};

bool isUtf8(const QString &declaredEncoding)
{
    const QString encoding = declaredEncoding.toLower();
    return encoding.isEmpty() || encoding == QLatin1String("utf-8")
        || encoding == QLatin1String("utf8");
}

bool finish(ShootingWalk &walk, PapywizardShooting &shooting, const FindingSink &findings)
{
    shooting = walk.takeShooting();
    if (findings) {
        for (const Finding &finding : walk.findings())
            findings(finding);
        if (shooting.shots.isEmpty())
            findings({Finding::Cause::NoShots, 0, {}});
    }
    return true;
}

bool refuse(const ShootingWalk &walk, const FindingSink &findings)
{
    if (findings)
        findings(walk.malformation());
    return false;
}

} // namespace

bool readShooting(QIODevice &device, PapywizardShooting &shooting, const FindingSink &findings)
{
    shooting = {};
    const qint64 start = device.pos();
    const bool wantsFindings = static_cast<bool>(findings);

    ShootingWalk strict(device, wantsFindings);
    if (strict.read())
        return finish(strict, shooting, findings);
    if (device.isSequential() || !device.seek(start))
        return refuse(strict, findings);

    std::optional<RepairedUtf8> repaired;
    if (isUtf8(strict.declaredEncoding()))
        repaired.emplace(device);
    VanishingEntities entities;
    ShootingWalk lenient(repaired ? *repaired : device, wantsFindings);
    lenient.setEntityResolver(&entities);
    return lenient.read() ? finish(lenient, shooting, findings) : refuse(lenient, findings);
}
