// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// While it lives, Ctrl+C and what else asks the program to end are only noted down, once: whoever
/// asks for it a second time ends the program there and then.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt &) = delete;
    Interrupt &operator=(const Interrupt &) = delete;

    static bool isAsked();
};
