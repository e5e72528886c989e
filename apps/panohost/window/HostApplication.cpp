// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/HostApplication.h"

#include "apps/panohost/Module.h"

#include <QFile>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QSettings>
#include <QStandardPaths>

namespace {

const QLatin1String kImagesDirectory("ImagesDirectory");

QString settingKey(const QString &identifier, const QString &key)
{
    return identifier + QLatin1Char('/') + key;
}

/// Where this program holds its texts in the language of \a locale.
QString ownTexts(const QLocale &locale)
{
    const QString language = locale.name().section(QLatin1Char('_'), 0, 0);
    return QStringLiteral(":/panohost/panohost_%1.qm").arg(language);
}

/// The first of the user's languages that there are texts in; English where there is none.
QLocale spokenLocale()
{
    const QStringList wishes = QLocale::system().uiLanguages();
    for (const QString &wish : wishes) {
        const QLocale locale(wish);
        if (QFile::exists(ownTexts(locale)))
            return locale;
    }
    return {QLocale::English, QLocale::UnitedStates};
}

} // namespace

class HostApplication::Picture final : public ImageInfo {
public:
    Picture(PictureFacts facts, QPixmap &shownThumbnail, const float &focalOfAll)
        : m_facts(std::move(facts))
        , m_shownThumbnail(shownThumbnail)
        , m_focalOfAll(focalOfAll)
    {
    }

    const QPixmap &GetThumbnail() const override
    {
        m_shownThumbnail = QPixmap::fromImage(uprightThumbnail(m_facts));
        return m_shownThumbnail;
    }
    float GetFocalLength() const override
    {
        return m_focalOfAll > 0 ? m_focalOfAll : m_facts.focal;
    }
    int GetLensType() const override { return m_facts.lensType; }
    float GetExposure() const override { return m_facts.brightness(); }

private:
    PictureFacts m_facts;
    QPixmap &m_shownThumbnail;
    const float &m_focalOfAll;
};

HostApplication::HostApplication(int &argc, char **argv)
    : QApplication(argc, argv)
    , m_locale(spokenLocale())
{
    auto ofQt = std::make_unique<QTranslator>();
    if (ofQt->load(m_locale, QStringLiteral("qtbase"), QStringLiteral("_"),
            QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        install(std::move(ofQt));
    auto own = std::make_unique<QTranslator>();
    if (own->load(ownTexts(m_locale)))
        install(std::move(own));
}

HostApplication::~HostApplication() = default;

PictureTable HostApplication::pictures() const
{
    const QMutexLocker lock(&m_mutex);
    PictureTable table;
    table.reserve(m_readings.size());
    for (auto reading = m_readings.begin(); reading != m_readings.end(); ++reading)
        table.insert(reading.key(), reading->facts);
    return table;
}

QString HostApplication::reasonFor(const QString &path) const
{
    const QMutexLocker lock(&m_mutex);
    return m_readings.value(path).facts.reason;
}

QString HostApplication::GetImagesDirectory()
{
    const QString folder = QSettings().value(kImagesDirectory).toString();
    return QFileInfo(folder).isDir()
        ? folder
        : QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
}

void HostApplication::SetImagesDirectory(const QString &path)
{
    if (!path.isEmpty())
        QSettings().setValue(kImagesDirectory, QFileInfo(path).absolutePath());
}

QVariant HostApplication::GetSetting(
    const QString &identifier, const QString &key, const QVariant &fallback)
{
    return QSettings().value(settingKey(identifier, key), fallback);
}

void HostApplication::SetSetting(
    const QString &identifier, const QString &key, const QVariant &value)
{
    QSettings().setValue(settingKey(identifier, key), value);
}

QLocale HostApplication::GetLocale()
{
    return m_locale;
}

void HostApplication::LoadTranslation(const QString &fileName)
{
    // QTranslator itself drops one part of the name after the other.
    auto translator = std::make_unique<QTranslator>();
    if (translator->load(QFileInfo(fileName).fileName(), QFileInfo(findModule()).absolutePath()))
        install(std::move(translator));
}

ImageInfo *HostApplication::ReadImageInfo(const QString &path)
{
    const QDateTime changed = QFileInfo(path).lastModified();
    {
        const QMutexLocker lock(&m_mutex);
        const auto reading = m_readings.constFind(path);
        if (reading != m_readings.constEnd() && reading->picture && reading->changed == changed)
            return reading->picture;
    }
    const PictureFacts facts = readPictureFacts(path, Thumbnail::Make);
    {
        const QMutexLocker lock(&m_mutex);
        Reading &reading = m_readings[path];
        reading = {changed, facts, nullptr};
        if (facts.readable) {
            m_pictures.push_back(std::make_unique<Picture>(facts, m_thumbnail, m_focalOfAll));
            reading.picture = m_pictures.back().get();
            return reading.picture;
        }
    }
    emit pictureUnreadable(path, facts.reason);
    return nullptr;
}

void HostApplication::ImportProject(const ProjectRecord &record)
{
    emit projectImported(record);
}

void HostApplication::install(std::unique_ptr<QTranslator> translator)
{
    installTranslator(translator.get());
    m_translators.push_back(std::move(translator));
}
