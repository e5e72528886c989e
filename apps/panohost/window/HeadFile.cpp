// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/HeadFile.h"

#include "clauss/ClaussToSPP.h"
#include "papywizard/MerlinToSPP.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace {

struct HeadFileTexts {
    Q_DECLARE_TR_FUNCTIONS(HeadFile)
};

/// Keeps what people are told of findings.
class Findings {
public:
    explicit Findings(HeadFile &file)
        : m_file(file)
    {
    }

    FindingSink sink()
    {
        return [this](const Finding &finding) { take(finding); };
    }

private:
    void take(const Finding &finding)
    {
        const QString line = QLocale().toString(finding.line);
        switch (finding.cause) {
        case Finding::Cause::CannotOpen:
            m_file.problem
                = HeadFileTexts::tr("“%1” cannot be opened: %2.").arg(m_file.name(), finding.value);
            break;
        case Finding::Cause::Malformed:
            m_file.problem = HeadFileTexts::tr("“%1” is damaged or no shooting file. Line %2: %3")
                                 .arg(m_file.name(), line, finding.value);
            break;
        case Finding::Cause::NotANumber:
            // The XML formats go on with 0; a script is refused.
            if (m_file.format == HeadFileFormat::Script && m_file.problem.isEmpty())
                m_file.problem
                    = HeadFileTexts::tr("“%1” has an angle that is no number. Line %2: %3")
                          .arg(m_file.name(), line, finding.value);
            break;
        case Finding::Cause::CutAngle:
            if (m_file.cutAngles++ == 0) {
                m_file.firstCutLine = finding.line;
                m_file.firstCutValue = finding.value;
            }
            break;
        case Finding::Cause::NotADate:
        case Finding::Cause::NoShots:
            break;
        }
    }

    HeadFile &m_file;
};

bool isPresetList(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(65536).contains("<preset");
}

} // namespace

QString HeadFile::name() const
{
    return QFileInfo(path).fileName();
}

HeadFileFormat headFileFormat(const QString &path)
{
    if (path.endsWith(QLatin1String(".xml"), Qt::CaseInsensitive))
        return HeadFileFormat::Shooting;
    if (path.endsWith(QLatin1String(".txt"), Qt::CaseInsensitive))
        return HeadFileFormat::Script;
    return HeadFileFormat::None;
}

HeadFile readHeadFile(const QString &path, HeadFileFormat format)
{
    HeadFile file;
    file.path = path;
    file.format = format;
    if (!QFileInfo::exists(path)) {
        file.problem = HeadFileTexts::tr("There is no file “%1”.").arg(file.name());
        return file;
    }
    if (file.format == HeadFileFormat::None) {
        file.problem = HeadFileTexts::tr("“%1” is no head's file.").arg(file.name());
        return file;
    }

    Findings findings(file);
    if (file.format == HeadFileFormat::Shooting) {
        MerlinToSPP reader;
        reader.ReadXML(path, findings.sink());
        const PapywizardShooting &shooting = reader.Shooting();
        file.shots = shooting.shots.size();
        file.focal = shooting.focal;
        file.isFisheye = shooting.fisheye;
    } else {
        ClaussToSPP reader;
        reader.ReadConfigFile(path, findings.sink());
        file.shots = reader.Shots().size();
    }
    if (file.shots > 0 || !file.problem.isEmpty())
        return file;
    file.problem = isPresetList(path)
        ? HeadFileTexts::tr("“%1” is a list of presets and holds no shots. Choose the file that "
                            "the head wrote while it was shooting.")
              .arg(file.name())
        : HeadFileTexts::tr("“%1” holds no shots, so it is not the file of a shooting.")
              .arg(file.name());
    return file;
}
