// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>
#include <condition_variable>
#include <limits>
#include <mutex>

/// Lets a test stop other threads at a place and let them go on one by one. Open at first.
///
/// Built on the standard library, not on Qt: ThreadSanitizer then sees who waits for whom.
class Gate {
public:
    /// Waits here until the test lets this thread through.
    void enter();

    void close();
    /// Lets the next \a count through, whether or not they have arrived yet. Nothing when open.
    void pass(int count = 1);
    /// Lets everyone through from now on.
    void open();
    /// Waits until someone stands before the closed gate. False when nobody came in a minute.
    bool awaitArrival();

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    qint64 m_arrived = 0;
    qint64 m_allowed = std::numeric_limits<qint64>::max();
};
