// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reader/ReadingThread.h"

#include "host/ZIApplication.h"

#include <mutex>
#include <utility>

// No list is shared between the threads: a list looks at its count of owners without synchronising
// with the one who has just left, and would write where that one's last read may still be due.

namespace {
constexpr int kBatch = 10;
} // namespace

ReadingThread::ReadingThread(QObject *parent)
    : QThread(parent)
{
}

ReadingThread::~ReadingThread()
{
    endRun();
}

void ReadingThread::Read(const QStringList &paths)
{
    QStringList queue = paths;
    queue.removeDuplicates();
    queue.detach();
    {
        const std::lock_guard lock(m_mutex);
        ++m_listNumber;
        m_results.clear();
        m_queue = std::move(queue);
        if (std::exchange(m_reading, true))
            return;
    }
    // start() does nothing while the last run is still on its way out. Waiting for that must not
    // hold the lock: whoever listens directly to Done may ask for the results.
    wait();
    start();
}

QList<ImageInfo *> ReadingThread::GetResults() const
{
    const std::lock_guard lock(m_mutex);
    QList<ImageInfo *> results = m_results;
    results.detach();
    return results;
}

void ReadingThread::Clear()
{
    endRun();
    emit Loaded();
}

void ReadingThread::endRun()
{
    {
        const std::lock_guard lock(m_mutex);
        ++m_listNumber;
        m_results.clear();
        m_queue.clear();
    }
    wait();
}

void ReadingThread::run()
{
    ZIApplication *const host = FindApplication();
    emit Start();
    std::unique_lock lock(m_mutex);
    while (!m_queue.isEmpty()) {
        const QString path = m_queue.takeFirst();
        const quint64 listNumber = m_listNumber;
        lock.unlock();
        ImageInfo *const info = host ? host->ReadImageInfo(path) : nullptr;
        lock.lock();
        if (!info || listNumber != m_listNumber)
            continue;
        m_results.append(info);
        if (m_results.size() % kBatch == 0 || m_queue.isEmpty())
            emit Loaded();
    }
    m_reading = false;
    lock.unlock();
    emit Done();
}
