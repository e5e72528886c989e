// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PictureFacts.h"
#include "align/PtoProject.h"
#include "apps/panohost/window/BackgroundTask.h"
#include "apps/panohost/window/ImportAdvice.h"
#include "host/ProjectRecord.h"

#include <QElapsedTimer>
#include <QImage>
#include <QPolygonF>
#include <QWidget>
#include <optional>

class QLabel;
class QProgressBar;
class QPushButton;
struct StitchOptions;

/// An import whose project has been written.
struct WrittenImport {
    /// Path of the project.
    QString project;
    /// What was written there.
    QByteArray text;
    ProjectRecord record;
    PictureTable pictures;
};

/// A panorama, or a preview of one, to be looked at.
struct ShownPanorama {
    QString name;
    /// Small, or null where it cannot be shown.
    QImage picture;
    /// As outlinesOf() and seamsOf() give them.
    QVector<QPolygonF> outlines;
    QVector<QPolygonF> seams;
};

/// Goes on from a project: aligns it, and makes the finished panorama.
class FinishingPane final : public QWidget {
    Q_OBJECT
public:
    explicit FinishingPane(QWidget *parent = nullptr);

    /// Not while isBusy().
    void setImport(const WrittenImport &import);
    bool isBusy() const { return m_task.isRunning(); }

    QPushButton *alignButton() const { return m_align; }
    QPushButton *previewButton() const { return m_preview; }
    QPushButton *panoramaButton() const { return m_make; }

signals:
    /// Work begins or ends.
    void busyChanged(bool isBusy);
    void panoramaMade(const ShownPanorama &panorama);

private:
    struct Aligned {
        PtoProject project;
        /// For people.
        QString report;
    };
    /// What the worker's thread leaves for the window's.
    struct Outcome;
    using Work = std::function<void(const Progress &progress, Outcome &outcome)>;

    void align();
    void makePanorama();
    void makePreview();
    static bool alignInto(Outcome &outcome, const WrittenImport &import, const Progress &progress);
    static bool stitchInto(Outcome &outcome, const WrittenImport &import,
        const StitchOptions &options, const Progress &progress);
    void start(const Work &work);
    void showProgress(const QString &step, int done, int total);
    void showOutcome();
    void setBusy(bool isBusy);
    bool mayWriteOver();
    QString askPlace();
    void complain(const QString &problem);

    WrittenImport m_import;
    /// Once aligned, not again.
    std::optional<Aligned> m_aligned;
    std::shared_ptr<Outcome> m_outcome;
    int m_total = 0;
    ReadingPace m_pace;
    QElapsedTimer m_clock;

    QPushButton *m_align;
    QPushButton *m_preview;
    QPushButton *m_make;
    QWidget *m_working;
    QProgressBar *m_progress;
    QLabel *m_timeLeft;
    QLabel *m_report;
    /// Last: it ends before all that its work reports to.
    BackgroundTask m_task;
};
