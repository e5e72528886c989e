// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/ProgressLine.h"

#include "apps/panohost/Console.h"
#include "apps/panohost/Interrupt.h"

namespace {

constexpr int kBarWidth = 20;
/// Milliseconds between two looks.
constexpr int kWatchedPause = 200;
constexpr int kLogPause = 10'000;
constexpr int kWatchedPatience = 1000;
/// Too early to tell how long it will take.
constexpr int kTooEarly = 2000;

} // namespace

ProgressLine::ProgressLine(Start start)
    : m_watched(console::isWatched())
    , m_patience(start == Start::AtOnce ? 0
              : m_watched               ? kWatchedPatience
                                        : kLogPause)
{
    m_sinceFirst.start();
    m_sinceShown.start();
}

ProgressLine::~ProgressLine()
{
    if (m_shown && m_watched)
        console::showPassing({});
}

void ProgressLine::show(const QString &step, int done, int total)
{
    const double part = total > 0 ? double(done) / total : 0;
    if (total != m_total) { // Another scale: what was counted so far says nothing of what is left.
        m_total = total;
        m_firstPart = part;
        m_sinceFirst.start();
    }
    const int pause = m_watched ? kWatchedPause : kLogPause;
    if (m_sinceShown.elapsed() < (m_shown ? step == m_step ? pause : 0 : m_patience))
        return;
    m_step = step;
    m_shown = true;
    m_sinceShown.start();
    QString text = step;
    if (total > 0) {
        const int full = int(part * kBarWidth);
        if (m_watched)
            text.prepend(QLatin1Char('[') + QString(full, QLatin1Char('#'))
                + QString(kBarWidth - full, QLatin1Char('.')) + QStringLiteral("] "));
        text += QStringLiteral(", %1 %").arg(int(part * 100)) + timeLeft(part);
    }
    m_watched ? console::showPassing(text) : console::complain(text);
}

Progress ProgressLine::untilInterrupted()
{
    return [this](const QString &step, int done, int total) {
        show(step, done, total);
        return !Interrupt::isAsked();
    };
}

QString ProgressLine::timeLeft(double part)
{
    const qint64 elapsed = m_sinceFirst.elapsed();
    if (elapsed < kTooEarly || part <= m_firstPart)
        return {};
    const auto seconds = qint64(elapsed / 1000.0 * (1 - part) / (part - m_firstPart)) + 1;
    if (seconds >= 100)
        return QStringLiteral(", some %1 minutes left").arg((seconds + 59) / 60);
    return QStringLiteral(", some %1 s left").arg(seconds);
}
