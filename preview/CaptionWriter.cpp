// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "preview/CaptionWriter.h"

#include <QFont>
#include <QGlyphRun>
#include <QPainter>
#include <QVector>

#include <cmath>

void CaptionWriter::setPixelSize(int pixels)
{
    if (m_font.isValid() && m_font.pixelSize() == pixels)
        return;
    QFont font;
    font.setPixelSize(pixels);
    m_font = QRawFont::fromFont(font);
    m_height = int(std::ceil(m_font.ascent() + m_font.descent()));
    m_glyphs.clear();
}

void CaptionWriter::write(QPainter &painter, const QRect &strip, const QString &text)
{
    const QString dots = QStringLiteral("...");
    QString line = text;
    if (width(line) > strip.width()) {
        while (!line.isEmpty() && width(line + dots) > strip.width())
            line.chop(1);
        line += dots;
    }
    QVector<quint32> glyphs;
    QVector<QPointF> places;
    qreal x = 0;
    for (const QChar character : qAsConst(line)) {
        const Glyph next = glyph(character);
        glyphs.append(next.index);
        places.append({x, 0});
        x += next.advance;
    }
    QGlyphRun run;
    run.setRawFont(m_font);
    run.setGlyphIndexes(glyphs);
    run.setPositions(places);
    painter.drawGlyphRun({std::floor(strip.left() + (strip.width() - x) / 2),
                             strip.top() + std::round(m_font.ascent())},
        run);
}

CaptionWriter::Glyph CaptionWriter::glyph(QChar character)
{
    const auto known = m_glyphs.constFind(character);
    if (known != m_glyphs.constEnd())
        return *known;
    Glyph glyph;
    const QVector<quint32> indexes = m_font.glyphIndexesForString(character);
    if (!indexes.isEmpty()) {
        glyph.index = indexes.first();
        glyph.advance = m_font.advancesForGlyphIndexes(indexes).first().x();
    }
    m_glyphs.insert(character, glyph);
    return glyph;
}

qreal CaptionWriter::width(const QString &text)
{
    qreal width = 0;
    for (const QChar character : text)
        width += glyph(character).advance;
    return width;
}
