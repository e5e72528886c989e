// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/papywizard/DomShooting.h"

#include <QDomDocument>
#include <cmath>

namespace {

QDomElement child(const QDomElement &parent, const char *name)
{
    return parent.firstChildElement(QLatin1String(name));
}

QString attribute(const QDomElement &element, const char *name)
{
    return element.attribute(QLatin1String(name));
}

double number(const QString &text, double bad)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok && std::isfinite(static_cast<float>(value)) ? value : bad;
}

} // namespace

std::optional<PapywizardShooting> readByDocumentModel(const QByteArray &xml)
{
    QDomDocument document;
    if (!document.setContent(xml))
        return std::nullopt;
    return shootingOf(document);
}

PapywizardShooting shootingOf(const QDomDocument &document)
{
    const QDomElement root = document.documentElement();

    PapywizardShooting result;
    for (QDomElement pict = child(child(root, "shoot"), "pict"); !pict.isNull();
         pict = pict.nextSiblingElement(QStringLiteral("pict"))) {
        PapywizardShot shot;
        shot.id = attribute(pict, "id").toInt();
        shot.bracket = attribute(pict, "bracket").toInt();
        const QDomElement position = child(pict, "position");
        shot.yaw = static_cast<float>(number(attribute(position, "yaw"), 0));
        shot.pitch = static_cast<float>(number(attribute(position, "pitch"), 0));
        const QString time = child(pict, "time").text();
        shot.time = QDateTime::fromString(kIsQt5 ? time : time.trimmed(), Qt::TextDate);
        result.shots.append(shot);
    }

    const QDomElement header = child(root, "header");
    const QDomElement general = child(header, "general");
    result.title = child(general, "title").text().trimmed();
    result.gps = child(general, "gps").text().trimmed();
    result.comment = child(general, "comment").text().trimmed();

    const QDomElement camera = child(header, "camera");
    result.sensorCoef = number(attribute(child(camera, "sensor"), "coef"), 1);
    if (const QDomElement bracketing = child(camera, "bracketing"); !bracketing.isNull())
        result.bracketCount = attribute(bracketing, "nbPicts").toInt();

    if (const QDomElement lens = child(header, "lens"); !lens.isNull()) {
        result.focal = number(child(lens, "focal").text().trimmed(), 0) * result.sensorCoef;
        result.fisheye = attribute(lens, "type").trimmed().toLower() == QLatin1String("fisheye");
    }
    const QDomElement orientation = child(child(header, "shooting"), "cameraOrientation");
    result.portrait = orientation.text().trimmed().toLower() == QLatin1String("portrait");
    return result;
}
