// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PictureFacts.h"
#include "host/ImageInfo.h"
#include "host/ProjectRecord.h"
#include "host/ZIApplication.h"

#include <QApplication>
#include <QDateTime>
#include <QLocale>
#include <QMutex>
#include <QPixmap>
#include <QTranslator>
#include <memory>
#include <vector>

/// The application object of panohost's window, a host to the plug-ins. It speaks the first of the
/// user's languages that it has texts in.
///
/// Delete the plug-ins before it: they save their pages' state through it.
class HostApplication : public QApplication, public ZIApplication {
    Q_OBJECT
    Q_INTERFACES(ZIApplication)
public:
    HostApplication(int &argc, char **argv);
    ~HostApplication() override;

    /// What is known of the pictures read so far, also of the unreadable ones. Any thread.
    PictureTable pictures() const;
    /// Why the picture at \a path could not be read, in words that follow its name and a colon;
    /// empty when it could, or was not tried. Any thread.
    QString reasonFor(const QString &path) const;

    /// From now on all pictures are said to have the focal length \a focal, in millimetres as on
    /// 36 x 24 mm film; 0: each its own. Window's thread.
    void setFocalOfAll(float focal) { m_focalOfAll = focal; }

    // ZIApplication
    QString GetImagesDirectory() override;
    void SetImagesDirectory(const QString &path) override;
    QVariant GetSetting(
        const QString &identifier, const QString &key, const QVariant &fallback) override;
    void SetSetting(const QString &identifier, const QString &key, const QVariant &value) override;
    QLocale GetLocale() override;
    /// Searches beside the module; where there is no ZPanoHead_fr_CA.qm, ZPanoHead_fr.qm serves.
    void LoadTranslation(const QString &fileName) override;
    ImageInfo *ReadImageInfo(const QString &path) override;
    void ImportProject(const ProjectRecord &record) override;
    void *GetUiContext() override { return nullptr; }

signals:
    /// A page was accepted.
    void projectImported(const ProjectRecord &record);
    /// Emitted in the thread that reads the pictures: connect with a receiver.
    void pictureUnreadable(const QString &path, const QString &reason);

private:
    class Picture;
    /// A picture as it was when it was read.
    struct Reading {
        QDateTime changed;
        PictureFacts facts;
        Picture *picture = nullptr;
    };

    void install(std::unique_ptr<QTranslator> translator);

    /// Of the texts; numbers are shown as the system's locale has them.
    QLocale m_locale;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
    /// The one thumbnail that exists as a pixmap.
    QPixmap m_thumbnail;
    float m_focalOfAll = 0;

    /// Guards what follows.
    mutable QMutex m_mutex;
    QHash<QString, Reading> m_readings;
    /// All that were ever given out, also of files that have changed since.
    std::vector<std::unique_ptr<Picture>> m_pictures;
};
