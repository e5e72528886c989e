// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reader/ReaderMutex.h"

#include <QList>
#include <QStringList>
#include <QThread>

class ImageInfo;

/// Reads the chosen pictures' data beside the window, by asking the host for one after the other.
///
/// Read(), GetResults() and Clear() belong to the window's thread. Do not connect directly to
/// Loaded, which is emitted while the reader is locked. Call Clear() before what listens to the
/// reader goes.
///
/// An unreadable last picture leaves results that no Loaded announces: listen to Done as well.
class ReadingThread : public QThread {
    Q_OBJECT
public:
    explicit ReadingThread(QObject *parent = nullptr);
    /// Waits until the picture under way is done.
    ~ReadingThread() override;

    /// Starts on \a paths, in their order; a path that occurs twice is read once. What was being
    /// read before is dropped, results included.
    void Read(const QStringList &paths);

    /// The data of the pictures read so far, in order; an unreadable picture is missing. The host
    /// owns them.
    QList<ImageInfo *> GetResults() const;

signals:
    /// There are more results, or none any more. Emitted after every tenth result, after the result
    /// of the last picture, and by Clear().
    void Loaded();
    void Start();
    void Done();

public slots:
    /// Forgets results and queue, waits until the picture under way is done, and announces Loaded.
    void Clear();

protected:
    void run() override;

private:
    void endRun();

    /// Guards everything below.
    mutable ReaderMutex m_mutex;
    QStringList m_queue;
    QList<ImageInfo *> m_results;
    /// Counts the lists taken in and dropped, so that a late answer to an old one is recognised.
    quint64 m_listNumber = 0;
    /// A run is due or will look at the queue again. A thread may still be running without it, on
    /// its way out.
    bool m_reading = false;
};
