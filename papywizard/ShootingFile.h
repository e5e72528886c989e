// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "papywizard/PapywizardShooting.h"
#include "reader/Finding.h"

class QIODevice;

/// Reads an XML shooting file from \a device, which is open and at the file's start, into
/// \a shooting. False when the text is not well-formed; \a shooting then is as if nothing had been
/// read.
///
/// Whatever the file lacks keeps its initial value. A number is bad when it does not parse or does
/// not fit a 32-bit float; it becomes 0, a bad sensor coefficient 1.
///
/// Two faults of well-formedness are forgiven: bytes that are no UTF-8 in a file that declares no
/// other encoding (each becomes U+FFFD) and undefined entities (they become nothing). A sequential
/// device cannot be read twice and gets no such pardon.
bool readShooting(
    QIODevice &device, PapywizardShooting &shooting, const FindingSink &findings = {});
