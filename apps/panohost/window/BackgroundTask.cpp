// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/BackgroundTask.h"

#include <QElapsedTimer>

namespace {

/// Milliseconds between two reports: nobody reads faster.
constexpr qint64 kPause = 50;

} // namespace

BackgroundTask::~BackgroundTask()
{
    if (!m_thread)
        return;
    m_thread->disconnect(this);
    cancel();
    m_thread->wait();
}

void BackgroundTask::start(const Work &work)
{
    if (m_thread)
        return;
    m_isCancelled = false;
    m_thread.reset(QThread::create([this, work] {
        QString last;
        QElapsedTimer sinceReport;
        work([&](const QString &step, int done, int total) {
            if (step != last || !sinceReport.isValid() || sinceReport.elapsed() >= kPause) {
                last = step;
                sinceReport.start();
                emit progressed(step, done, total);
            }
            return !m_isCancelled;
        });
    }));
    connect(m_thread.get(), &QThread::finished, this, &BackgroundTask::finish);
    m_thread->start();
}

void BackgroundTask::finish()
{
    m_thread->wait();
    m_thread.reset();
    emit ended();
}
