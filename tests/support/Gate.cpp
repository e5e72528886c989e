// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/Gate.h"

#include <chrono>

namespace {
constexpr qint64 kEveryone = std::numeric_limits<qint64>::max();
constexpr std::chrono::minutes kPatience(1);
} // namespace

bool Gate::enter()
{
    std::unique_lock lock(m_mutex);
    const qint64 place = ++m_arrived;
    m_changed.notify_all();
    return m_changed.wait_for(lock, kPatience, [this, place] { return place <= m_allowed; });
}

void Gate::close()
{
    const std::lock_guard lock(m_mutex);
    m_allowed = m_arrived;
}

void Gate::pass(int count)
{
    const std::lock_guard lock(m_mutex);
    if (m_allowed != kEveryone)
        m_allowed += count;
    m_changed.notify_all();
}

void Gate::open()
{
    const std::lock_guard lock(m_mutex);
    m_allowed = kEveryone;
    m_changed.notify_all();
}

bool Gate::awaitArrival()
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, kPatience, [this] { return m_arrived > m_allowed; });
}
