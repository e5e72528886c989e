// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Progress.h"

#include <QObject>
#include <QThread>
#include <atomic>
#include <memory>

/// Does one long piece of work at a time in a thread of its own.
class BackgroundTask final : public QObject {
    Q_OBJECT
public:
    using Work = std::function<void(const Progress &progress)>;

    using QObject::QObject;
    /// Cancels, and waits for the end.
    ~BackgroundTask() override;

    /// Does nothing while the last work is not done.
    void start(const Work &work);
    /// The work ends soon, and ended() comes as ever.
    void cancel() { m_isCancelled = true; }
    bool isRunning() const { return m_thread != nullptr; }

signals:
    /// Now and then, and at each new step.
    void progressed(const QString &step, int done, int total);
    void ended();

private:
    void finish();

    std::unique_ptr<QThread> m_thread;
    std::atomic<bool> m_isCancelled{false};
};
