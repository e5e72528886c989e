// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "pages/Heads.h"

/// What all about records of the library share.
namespace about {

inline QString author()
{
    return QStringLiteral("The ZPanoHead authors");
}
inline QString company()
{
    return QStringLiteral("Zorvik");
}
inline QString version()
{
    return QStringLiteral("3.0.0.400");
}

} // namespace about
