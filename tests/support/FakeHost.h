// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/ImageInfo.h"
#include "host/ProjectRecord.h"
#include "host/ZIApplication.h"
#include "tests/support/Gate.h"

#include <QHash>
#include <QImage>
#include <QMap>
#include <QPair>
#include <QPixmap>
#include <QSet>
#include <QTest>
#include <atomic>
#include <deque>
#include <tuple>

class FakeHost;

/// What a test says of one picture.
struct FakePicture {
    /// Millimetres as on 36 x 24 mm film.
    float focal = 35;
    int lensType = 0;
    float exposure = 0;
    /// Needs a QGuiApplication when it is not null.
    QImage thumbnail;
};

/// What FakeHost::ReadImageInfo() answers; a new one at each call.
class FakeImageInfo final : public ImageInfo {
public:
    FakeImageInfo(FakeHost &host, QString path, FakePicture picture);

    /// Ends the test program when it is called in another thread than the window's.
    const QPixmap &GetThumbnail() const override;
    float GetFocalLength() const override { return m_picture.focal; }
    int GetLensType() const override { return m_picture.lensType; }
    float GetExposure() const override { return m_picture.exposure; }

    const QString &path() const { return m_path; }

private:
    FakeHost &m_host;
    QString m_path;
    FakePicture m_picture;
};

/// A host for tests: answers from what the test has set and keeps what it was told.
///
/// It is strict. What belongs to the window's thread ends the test program elsewhere, and there is
/// one pixmap for all thumbnails, so a kept reference shows another picture.
///
/// A test program gets one by FAKE_HOST_MAIN(), FAKE_HOST_GUI_MAIN() or FAKE_HOST_MAIN_WITH() in
/// place of QTEST_MAIN(), and finds it with FakeHost::instance(). Call reset() in init().
class FakeHost : public ZIApplication {
public:
    FakeHost() = default;
    FakeHost(const FakeHost &) = delete;
    FakeHost &operator=(const FakeHost &) = delete;
    ~FakeHost() override = default;

    static FakeHost &instance();

    /// As new. Picture data given out before stays valid, as the contract wants.
    void reset();

    // What the host answers
    QString imagesDirectory;
    QLocale locale = QLocale::c();
    void *uiContext = nullptr;
    /// By identifier and key.
    QMap<QPair<QString, QString>, QVariant> settings;

    /// What is said of pictures without an entry of their own. Every path is a readable picture.
    void setEveryPicture(const FakePicture &picture);
    void setPicture(const QString &path, const FakePicture &picture);
    void setUnreadable(const QString &path);
    /// While true FindApplication() finds nothing, as in a program that is no host.
    void setAbsent(bool absent) { m_absent = absent; }
    bool isAbsent() const { return m_absent; }

    // What the host was told
    /// Identifiers, keys and fallbacks given to GetSetting().
    QVector<std::tuple<QString, QString, QVariant>> settingsAsked;
    /// Paths given to SetImagesDirectory().
    QStringList chosenPaths;
    /// File names given to LoadTranslation().
    QStringList translations;
    QVector<ProjectRecord> imported;
    /// Paths given to ReadImageInfo(), in the order of the calls.
    QStringList asked() const;

    /// Where ReadImageInfo() waits after its path stands in asked(). To keep a picture under way:
    /// const Gate::Hold hold(gate); reader.Read(paths); QVERIFY(gate.awaitArrival()); ...
    Gate gate;

    QString GetImagesDirectory() override;
    void SetImagesDirectory(const QString &path) override;
    QVariant GetSetting(
        const QString &identifier, const QString &key, const QVariant &fallback) override;
    void SetSetting(const QString &identifier, const QString &key, const QVariant &value) override;
    QLocale GetLocale() override;
    void LoadTranslation(const QString &fileName) override;
    ImageInfo *ReadImageInfo(const QString &path) override;
    void ImportProject(const ProjectRecord &record) override;
    void *GetUiContext() override;

private:
    friend class FakeImageInfo;

    /// Guards what ReadImageInfo() touches; everything else is the window's thread's.
    mutable std::mutex m_mutex;
    FakePicture m_everyPicture;
    QHash<QString, FakePicture> m_pictures;
    QSet<QString> m_unreadable;
    QStringList m_asked;
    std::deque<FakeImageInfo> m_infos;

    std::atomic<bool> m_absent = false;
    QPixmap m_thumbnail;
};

/// An application object of any of Qt's three kinds that is a FakeHost.
template <class Application> class FakeApplication final : public Application, public FakeHost {
public:
    using Application::Application;

    /// As Q_INTERFACES would have it; moc takes no templates.
    void *qt_metacast(const char *name) override
    {
        if (qstrcmp(name, qobject_interface_iid<ZIApplication *>()) == 0)
            return isAbsent() ? nullptr : static_cast<ZIApplication *>(this);
        return Application::qt_metacast(name);
    }
};

/// main() of a test program whose application object, of the class Application, is a FakeHost.
#define FAKE_HOST_MAIN_WITH(Application, TestClass)                                                \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        FakeApplication<Application> application(argc, argv);                                      \
        TestClass test;                                                                            \
        QTEST_SET_MAIN_SOURCE_PATH                                                                 \
        return QTest::qExec(&test, argc, argv);                                                    \
    }

/// For what needs no window.
#define FAKE_HOST_MAIN(TestClass) FAKE_HOST_MAIN_WITH(QCoreApplication, TestClass)

/// For pages; the test includes <QApplication> and links Qt::Widgets.
#define FAKE_HOST_GUI_MAIN(TestClass) FAKE_HOST_MAIN_WITH(QApplication, TestClass)
