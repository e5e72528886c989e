// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/Interrupt.h"

#include <csignal>

namespace {

volatile std::sig_atomic_t asked = 0;

void noteDown(int signal)
{
    asked = 1;
    std::signal(signal, SIG_DFL);
}

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

} // namespace

Interrupt::Interrupt()
{
    asked = 0;
    for (const int signal : kSignals)
        std::signal(signal, noteDown);
}

Interrupt::~Interrupt()
{
    for (const int signal : kSignals)
        std::signal(signal, SIG_DFL);
}

bool Interrupt::isAsked()
{
    return asked != 0;
}
