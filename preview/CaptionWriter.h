// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QRawFont>
#include <QString>

class QPainter;
class QRect;

/// Writes many short lines of figures. Laying out text anew for each of thousands of cells takes
/// longer than all else that a preview draws; figures stand side by side without that.
class CaptionWriter {
public:
    void setPixelSize(int pixels);
    /// Of a line, in pixels.
    int height() const { return m_height; }
    /// Writes \a text into the middle of \a strip, cut short with dots where it is too long.
    void write(QPainter &painter, const QRect &strip, const QString &text);

private:
    struct Glyph {
        quint32 index = 0;
        qreal advance = 0;
    };
    Glyph glyph(QChar character);
    qreal width(const QString &text);

    QRawFont m_font;
    int m_height = 0;
    QHash<QChar, Glyph> m_glyphs;
};
