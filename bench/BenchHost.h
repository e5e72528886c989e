// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/ImageInfo.h"
#include "host/ProjectRecord.h"
#include "host/ZIApplication.h"

#include <QApplication>
#include <QPixmap>
#include <atomic>
#include <deque>

/// A host whose pictures take a given time to read and whose thumbnails are at hand.
class BenchHost : public QApplication, public ZIApplication {
    Q_OBJECT
    Q_INTERFACES(ZIApplication)
public:
    BenchHost(int &argc, char **argv);

    /// Microseconds that a picture takes.
    std::atomic<int> pictureTime = 0;
    /// Thumbnails asked for.
    int thumbnails = 0;
    /// Pictures read.
    std::atomic<int> pictures = 0;
    ProjectRecord imported;

    QString GetImagesDirectory() override { return {}; }
    void SetImagesDirectory(const QString &) override { }
    QVariant GetSetting(const QString &, const QString &, const QVariant &fallback) override
    {
        return fallback;
    }
    void SetSetting(const QString &, const QString &, const QVariant &) override { }
    QLocale GetLocale() override { return QLocale::c(); }
    void LoadTranslation(const QString &) override { }
    ImageInfo *ReadImageInfo(const QString &path) override;
    void ImportProject(const ProjectRecord &record) override { imported = record; }
    void *GetUiContext() override { return nullptr; }

    static BenchHost &instance() { return *static_cast<BenchHost *>(qApp); }

private:
    class Picture final : public ImageInfo {
    public:
        const QPixmap &GetThumbnail() const override;
        float GetFocalLength() const override { return 200; }
        int GetLensType() const override { return 0; }
        float GetExposure() const override { return 0; }
    };

    QPixmap m_thumbnail;
    std::deque<Picture> m_pictures;
};
