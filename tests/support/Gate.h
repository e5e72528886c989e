// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>
#include <condition_variable>
#include <limits>
#include <mutex>

/// Lets a test stop other threads at a place and let them go on one by one. Open at first; a
/// Gate::Hold closes it.
///
/// Built on the standard library, not on Qt: ThreadSanitizer then sees who waits for whom.
class Gate {
public:
    /// Keeps a gate closed while it lives. Make it after the reader that is to be held: a test that
    /// fails then opens the gate before the reader goes, instead of hanging.
    class Hold {
    public:
        explicit Hold(Gate &gate)
            : m_gate(gate)
        {
            m_gate.close();
        }
        ~Hold() { m_gate.open(); }
        Q_DISABLE_COPY(Hold)

    private:
        Gate &m_gate;
    };

    /// Waits here until this thread is let through. Goes on all the same, with false, when that did
    /// not come within a minute: the test then fails instead of hanging.
    bool enter();

    /// Lets the next \a count through, whether or not they have arrived yet. Nothing when open.
    void pass(int count = 1);
    /// Lets everyone through from now on.
    void open();
    /// Waits until someone stands before the closed gate. False when nobody came in a minute.
    bool awaitArrival();

private:
    void close();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    qint64 m_arrived = 0;
    qint64 m_allowed = std::numeric_limits<qint64>::max();
};
