// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/window/HeadFile.h"
#include "host/ProjectRecord.h"

#include <QMainWindow>
#include <QPointer>
#include <QStringList>

class HeadModule;
class HostApplication;
class ImportView;
class QStackedWidget;
class StartPage;
class SummaryPage;

/// panohost's window: a head is chosen, its import done, and what came of it shown.
class MainWindow final : public QMainWindow {
    Q_OBJECT
public:
    /// \a module must outlive the window.
    MainWindow(HostApplication &host, const HeadModule &module);
    ~MainWindow() override;

    /// Takes files and folders as if they had been dropped.
    void takeFiles(const QStringList &paths);

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void offer(const QStringList &paths);
    void openImport(int head);
    void closeImport();
    void showStart();
    bool finishImport(const ProjectRecord &record, const HeadFile &file);
    bool isMeant(const ProjectRecord &record);
    QString askPlace(const QString &suggested);
    void complain(const QString &problem);

    HostApplication &m_host;
    const HeadModule &m_module;
    QStackedWidget *m_pages;
    StartPage *m_start;
    SummaryPage *m_summary;
    QPointer<ImportView> m_import;
    /// Dropped before a head was chosen.
    QStringList m_waiting;
    bool m_isDone = false;
};
