// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/window/ImportAdvice.h"
#include "host/ProjectRecord.h"

#include <QElapsedTimer>
#include <QMap>
#include <QSet>
#include <QStringList>
#include <QWidget>
#include <functional>

class HeadImport;
class HostApplication;
class ImportBar;
class QCheckBox;
class QPushButton;
class QHBoxLayout;
class QVBoxLayout;
class QWizard;
class QWizardPage;

/// One import: the head's own page in a wizard, and round it what the host knows of it.
///
/// The page is given back when the view goes, if not before.
class ImportView final : public QWidget {
    Q_OBJECT
public:
    /// What becomes of an accepted import; false: the user wants to change something first.
    using Finish = std::function<bool(const ProjectRecord &record, const HeadFile &file)>;

    ImportView(
        const HeadImport &import, HostApplication &host, Finish finish, QWidget *parent = nullptr);
    ~ImportView() override;

    /// Hands files and folders to the page.
    void takeFiles(const QStringList &paths);
    /// Takes the page out of the wizard, as new. The view is of no more use then.
    void giveBack();

signals:
    /// The wizard was left, with an import or without.
    void closed();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addOptions(QVBoxLayout &layout);
    void addButtons(QHBoxLayout &layout);
    void hand(const QStringList &files);
    void watchPictures();
    void noteUnreadable(const QString &path, const QString &reason);
    void scheduleUpdate();
    void updateState();
    bool accept();
    bool mayLeave();
    bool askFocal();
    void takeRecord(const ProjectRecord &record);
    /// Reads \a pictures anew; the head's file stays.
    void startOver(const QStringList &pictures);
    void takeFileFromPictures();
    void leaveOutUnreadable();
    void offerFullAngles();
    void takeFullAngles(bool full);

    const HeadImport &m_import;
    HostApplication &m_host;
    Finish m_finish;
    QWizardPage *m_page;
    QWizard *m_wizard;
    ImportBar *m_bar;
    QPushButton *m_finishButton;
    QCheckBox *m_fullAngles = nullptr;

    ImportState m_state;
    QStringList m_pictures;
    /// The same, to look one up.
    QSet<QString> m_pictureSet;
    QMap<QString, QString> m_unreadable;
    ReadingPace m_pace;
    QElapsedTimer m_clock;
    bool m_updateIsDue = false;
    /// Whether m_state.skipped is of the pictures.
    bool m_skippedAreKnown = false;
    /// The page has read its file anew.
    bool m_fileIsOld = false;
    bool m_isHanding = false;
    /// What was read of the file that the page is being handed.
    HeadFile m_readFile;

    /// The record that the page handed over last, without what it had handed over before.
    ProjectRecord m_record;
    /// All that the page's record holds.
    ProjectRecord m_handedOver;
};
