// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

/// Reads from enblend's lines how far it is. It blends groups of pictures that do not overlap, one
/// after the other.
class BlendProgress {
public:
    /// \a pictures are blended, their paths all beginning with \a prefix.
    BlendProgress(int pictures, QByteArray prefix);

    /// The part that is done when \a line has been said: 0 to 0.99.
    double readLine(const QByteArray &line);

    /// Whether it gave up for a picture of which hardly a pixel was left.
    bool isDegenerate() const { return m_isDegenerate; }

private:
    int m_pictures;
    QByteArray m_prefix;
    int m_before = 0;
    int m_named = 0;
    int m_lines = 0;
    bool m_isDegenerate = false;
};
