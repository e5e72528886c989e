// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdlib>

/// Ends the harness, which libFuzzer reports, when what must hold does not.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}
