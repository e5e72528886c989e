// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <functional>

/// Something in a head's file that was taken differently from what its author may have meant.
struct Finding {
    enum class Cause {
        CannotOpen, ///< \a value is the system's reason
        Malformed, ///< the text is not what the format demands; \a value says how
        NotANumber, ///< \a value was taken as 0
        CutAngle, ///< \a value has decimals that the format drops
        NotADate, ///< \a value gave no date
        NoShots, ///< the file was read and holds no shot
    };

    Cause cause;
    /// Line in the file, from 1; 0 when the finding concerns the whole file.
    qint64 line = 0;
    /// The text as it stands in the file, with the name of the attribute, element or key before it.
    QString value;
};

/// Takes findings while a file is read. Pages pass none; panohost names what it gets.
using FindingSink = std::function<void(const Finding &)>;
