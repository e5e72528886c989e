// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/makeshooting/HeadFiles.h"

#include "clauss/ClaussScript.h"
#include "papywizard/ShootingFile.h"

#include <QBuffer>
#include <QFileInfo>
#include <QLocale>
#include <QXmlStreamWriter>

namespace makeshooting {

namespace {

const QLatin1String kXmlName("shooting.xml");
const QLatin1String kScriptName("script.txt");

QString number(double value, int decimals)
{
    // A rounded -0 would read as a needless sign.
    return QString::number(value == 0 ? 0.0 : value, 'f', decimals);
}

/// As many decimals as the value needs, four at most.
QString shortNumber(double value)
{
    return QString::number(value, 'g', 6);
}

/// As the C library's asctime() writes it: "Fri Jun  6 10:37:16 2008".
QString asctime(const QDateTime &time)
{
    return QLocale::c()
        .toString(time, QStringLiteral("ddd MMM %1 hh:mm:ss yyyy"))
        .arg(time.date().day(), 2);
}

/// Writes elements as the controllers do: each text on a line of its own between blanks.
class ShootingXml {
public:
    explicit ShootingXml(const Shooting &shooting)
        : m_shooting(shooting)
        , m_writer(&m_content)
    {
        m_writer.setAutoFormatting(true);
    }

    QByteArray write()
    {
        m_writer.writeStartDocument();
        m_writer.writeStartElement(QStringLiteral("papywizard"));
        m_writer.writeAttribute(QStringLiteral("version"), QStringLiteral("c"));
        header();
        m_writer.writeStartElement(QStringLiteral("shoot"));
        int id = 1;
        for (const Picture &picture : m_shooting.pictures) {
            if (picture.location >= 0)
                pict(picture, id++);
        }
        m_writer.writeEndDocument();
        return m_content;
    }

private:
    void header()
    {
        const ShootingOptions &options = m_shooting.options;
        const QString mode = options.sphere ? QStringLiteral("preset") : QStringLiteral("mosaic");
        open("header");
        open("general");
        text("title", QStringLiteral("makeshooting, seed %1").arg(options.scene.seed));
        text("gps", QStringLiteral("45.8326,6.8652"));
        text("comment",
            QStringLiteral("A square that is nowhere <on any map> & nothing but computed"));
        close();
        open("shooting");
        m_writer.writeAttribute(QStringLiteral("mode"), mode);
        text("headOrientation", QStringLiteral("up"));
        text("cameraOrientation",
            options.mounting == Mounting::Landscape ? QStringLiteral("landscape")
                                                    : QStringLiteral("portrait"));
        text("stabilizationDelay", QStringLiteral("1.0"));
        text("counter", QStringLiteral("001"));
        text("startTime", asctime(m_shooting.pictures.first().time));
        text("endTime", asctime(m_shooting.pictures.last().time));
        close();
        open("camera");
        text("timeValue", QStringLiteral("1.0"));
        open("bracketing");
        m_writer.writeAttribute(QStringLiteral("nbPicts"), QString::number(options.brackets));
        close();
        open("sensor");
        m_writer.writeAttribute(QStringLiteral("coef"), shortNumber(options.crop));
        m_writer.writeAttribute(QStringLiteral("ratio"), QStringLiteral("3:2"));
        close();
        close();
        open("lens");
        m_writer.writeAttribute(QStringLiteral("type"),
            options.lens == Lens::Fisheye ? QStringLiteral("fisheye")
                                          : QStringLiteral("rectilinear"));
        text("focal", shortNumber(options.focal / options.crop));
        close();
        close();
    }

    void pict(const Picture &picture, int id)
    {
        const int decimals = std::max(1, decimalsOf(m_shooting.options));
        open("pict");
        m_writer.writeAttribute(QStringLiteral("bracket"), QString::number(picture.bracket + 1));
        m_writer.writeAttribute(QStringLiteral("id"), QString::number(id));
        m_writer.writeTextElement(QStringLiteral("time"), asctime(picture.time));
        open("position");
        m_writer.writeAttribute(QStringLiteral("pitch"), number(picture.nominalPitch, decimals));
        m_writer.writeAttribute(QStringLiteral("roll"), QStringLiteral("0.0"));
        m_writer.writeAttribute(QStringLiteral("yaw"), number(picture.nominalYaw, decimals));
        close();
        close();
    }

    void open(const char *name)
    {
        m_writer.writeStartElement(QLatin1String(name));
        m_indent += QLatin1String("    ");
    }
    void close()
    {
        m_writer.writeEndElement();
        m_indent.chop(4);
    }
    void text(const char *name, const QString &value)
    {
        open(name);
        const QString outer = m_indent;
        m_writer.writeCharacters(
            QLatin1Char('\n') + outer + QLatin1String("    ") + value + QLatin1Char('\n') + outer);
        close();
    }

    const Shooting &m_shooting;
    QByteArray m_content;
    QXmlStreamWriter m_writer;
    QString m_indent;
};

QByteArray claussScript(const Shooting &shooting)
{
    const int decimals = decimalsOf(shooting.options);
    QString script = QStringLiteral("op_comment=makeshooting\r\n");
    QString yaw;
    QString pitch;
    const auto moveTo = [&](const char *key, QString &current, double angle) {
        const QString wanted = number(angle, decimals);
        if (wanted == current)
            return;
        current = wanted;
        script += QLatin1String(key) + wanted + QLatin1String("\r\n");
    };
    for (const Picture &picture : shooting.pictures) {
        if (picture.location < 0)
            continue;
        moveTo("op_v-angle=", pitch, picture.nominalPitch);
        moveTo("op_h-angle=", yaw, picture.nominalYaw);
        script += QLatin1String("op_shoot\r\n");
    }
    return script.toLatin1();
}

bool looksLikeXml(const QByteArray &content)
{
    for (const char *mark : {"\xff\xfe", "\xfe\xff", "\xef\xbb\xbf"}) {
        if (content.startsWith(mark))
            return true;
    }
    return content.trimmed().startsWith('<');
}

QVector<Position> positionsOf(const QVector<HeadShot> &shots)
{
    QVector<Position> positions;
    for (const HeadShot &shot : shots)
        positions.append({static_cast<double>(shot.yaw), static_cast<double>(shot.pitch)});
    return positions;
}

bool readXml(GivenHeadFile &given)
{
    PapywizardShooting shooting;
    QBuffer buffer(&given.file.content);
    if (!buffer.open(QIODevice::ReadOnly) || !readShooting(buffer, shooting))
        return false;
    given.file.name = kXmlName;
    given.positions = positionsOf(shooting.shots);
    given.focal = shooting.focal;
    given.crop = shooting.sensorCoef;
    given.brackets = std::max(1, shooting.bracketCount);
    given.fisheye = shooting.fisheye;
    given.portrait = shooting.portrait;
    return true;
}

bool readScript(GivenHeadFile &given)
{
    const ClaussScript script = readClaussScript(given.file.content, true);
    given.format = HeadFormat::Clauss;
    given.file.name = kScriptName;
    given.positions = positionsOf(script.shots);
    return script.valid;
}

} // namespace

HeadFile headFile(const Shooting &shooting)
{
    if (!shooting.options.positions.isEmpty())
        return shooting.options.givenFile;
    switch (shooting.options.format) {
    case HeadFormat::Papywizard:
    case HeadFormat::VRDrive2:
        return {kXmlName, ShootingXml(shooting).write()};
    case HeadFormat::Clauss:
        return {kScriptName, claussScript(shooting)};
    case HeadFormat::Gigapan:
        break;
    }
    return {};
}

std::optional<GivenHeadFile> readHeadFile(const QString &path, QString *error)
{
    QFile file(path);
    GivenHeadFile given;
    if (QFileInfo(path).exists() && !QFileInfo(path).isFile()) {
        *error = QStringLiteral("%1: is no file").arg(path); // a device may never end
        return {};
    }
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("%1: %2").arg(path, file.errorString());
        return {};
    }
    given.file.content = file.readAll();
    const bool good = looksLikeXml(given.file.content) ? readXml(given) : readScript(given);
    if (!good) {
        *error = QStringLiteral("%1: neither an XML shooting file nor a Clauss script").arg(path);
        return {};
    }
    if (given.positions.isEmpty()) {
        *error = QStringLiteral("%1: holds no shots").arg(path);
        return {};
    }
    return given;
}

} // namespace makeshooting
