// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/FakeHost.h"

#include <QFileInfo>
#include <QThread>
#include <utility>

namespace {

void demandWindowThread(const char *function)
{
    if (QThread::currentThread() != QCoreApplication::instance()->thread())
        qFatal("%s belongs to the window's thread", function);
}

} // namespace

FakeImageInfo::FakeImageInfo(FakeHost &host, QString path, FakePicture picture)
    : m_host(host)
    , m_path(std::move(path))
    , m_picture(std::move(picture))
{
}

const QPixmap &FakeImageInfo::GetThumbnail() const
{
    demandWindowThread("GetThumbnail");
    m_host.m_thumbnail
        = m_picture.thumbnail.isNull() ? QPixmap() : QPixmap::fromImage(m_picture.thumbnail);
    return m_host.m_thumbnail;
}

FakeHost &FakeHost::instance()
{
    auto *host = dynamic_cast<FakeHost *>(QCoreApplication::instance());
    if (!host)
        qFatal("This test program has no FakeHost: end it with FAKE_HOST_MAIN");
    return *host;
}

void FakeHost::reset()
{
    imagesDirectory.clear();
    locale = QLocale::c();
    uiContext = nullptr;
    settings.clear();
    settingsAsked.clear();
    setAbsent(false);
    chosenPaths.clear();
    translations.clear();
    imported.clear();
    gate.open();

    const std::lock_guard lock(m_mutex);
    m_everyPicture = {};
    m_pictures.clear();
    m_unreadable.clear();
    m_asked.clear();
}

void FakeHost::setEveryPicture(const FakePicture &picture)
{
    const std::lock_guard lock(m_mutex);
    m_everyPicture = picture;
}

void FakeHost::setPicture(const QString &path, const FakePicture &picture)
{
    const std::lock_guard lock(m_mutex);
    m_pictures.insert(path, picture);
}

void FakeHost::setUnreadable(const QString &path)
{
    const std::lock_guard lock(m_mutex);
    m_unreadable.insert(path);
}

QStringList FakeHost::asked() const
{
    const std::lock_guard lock(m_mutex);
    QStringList asked = m_asked;
    asked.detach(); // a shared list would be written when the other thread lets go of it
    return asked;
}

QString FakeHost::GetImagesDirectory()
{
    demandWindowThread("GetImagesDirectory");
    return imagesDirectory;
}

void FakeHost::SetImagesDirectory(const QString &path)
{
    demandWindowThread("SetImagesDirectory");
    chosenPaths.append(path);
    imagesDirectory = QFileInfo(path).path();
}

QVariant FakeHost::GetSetting(
    const QString &identifier, const QString &key, const QVariant &fallback)
{
    demandWindowThread("GetSetting");
    settingsAsked.append({identifier, key, fallback});
    return settings.value({identifier, key}, fallback);
}

void FakeHost::SetSetting(const QString &identifier, const QString &key, const QVariant &value)
{
    demandWindowThread("SetSetting");
    settings.insert({identifier, key}, value);
}

QLocale FakeHost::GetLocale()
{
    demandWindowThread("GetLocale");
    return locale;
}

void FakeHost::LoadTranslation(const QString &fileName)
{
    demandWindowThread("LoadTranslation");
    translations.append(fileName);
}

ImageInfo *FakeHost::ReadImageInfo(const QString &path)
{
    {
        const std::lock_guard lock(m_mutex);
        m_asked.append(path);
    }
    gate.enter();
    const std::lock_guard lock(m_mutex);
    if (m_unreadable.contains(path))
        return nullptr;
    return &m_infos.emplace_back(*this, path, m_pictures.value(path, m_everyPicture));
}

void FakeHost::ImportProject(const ProjectRecord &record)
{
    demandWindowThread("ImportProject");
    imported.append(record);
}

void *FakeHost::GetUiContext()
{
    demandWindowThread("GetUiContext");
    return uiContext;
}
