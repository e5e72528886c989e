// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMutex>

#if defined(__SANITIZE_THREAD__)
#define ZPANOHEAD_ANNOTATE_MUTEX
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define ZPANOHEAD_ANNOTATE_MUTEX
#endif
#endif

#ifdef ZPANOHEAD_ANNOTATE_MUTEX

#include <sanitizer/tsan_interface.h>

/// A QMutex that tells ThreadSanitizer what it does. Qt's libraries are not instrumented, so a
/// plain QMutex would look like none and every access under it like a race.
class ReaderMutex {
public:
    ReaderMutex() { __tsan_mutex_create(this, 0); }
    ~ReaderMutex() { __tsan_mutex_destroy(this, 0); }
    Q_DISABLE_COPY(ReaderMutex)

    void lock()
    {
        __tsan_mutex_pre_lock(this, 0);
        m_mutex.lock();
        __tsan_mutex_post_lock(this, 0, 0);
    }
    void unlock()
    {
        __tsan_mutex_pre_unlock(this, 0);
        m_mutex.unlock();
        __tsan_mutex_post_unlock(this, 0);
    }

private:
    QMutex m_mutex;
};

#else

using ReaderMutex = QMutex;

#endif
