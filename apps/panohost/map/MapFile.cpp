// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/map/MapFile.h"

#include "align/PictureFacts.h"
#include "apps/panohost/map/RecordMap.h"

#include <QBuffer>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>

namespace {

constexpr double kMargin = 10;

/// What lies where on the sheet.
struct Sheet {
    QSizeF size;
    QRectF frame;
    QRectF caption;
    QRectF legend;
};

Sheet sheetFor(const RecordMap &map, int width, const QFontMetricsF &font)
{
    const QRectF &extent = map.layout().extent;
    const QRectF inner(kMargin, kMargin, width - 2 * kMargin, width);
    const QRectF frame = RecordMap::frameIn(inner, font);
    // A single row or column still makes a picture of some shape.
    const double shape = std::clamp(extent.height() / extent.width(), 0.15, 2.0);
    Sheet sheet;
    sheet.caption = {inner.left(), inner.top(), inner.width(), font.height() + 4};
    sheet.frame = {frame.left(), frame.top() + sheet.caption.height(), frame.width(),
        std::ceil(frame.width() * shape)};
    const double labels = inner.bottom() - frame.bottom();
    sheet.legend = {frame.left(), sheet.frame.bottom() + labels + 4, frame.width(),
        map.legendHeight(frame.width(), font)};
    sheet.size = {double(width), std::ceil(sheet.legend.bottom() + kMargin)};
    return sheet;
}

void paintSheet(
    QPainter &painter, const Sheet &sheet, const RecordMap &map, const ThumbnailSource &thumbnails)
{
    QPalette paper;
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, QColor(0x20, 0x20, 0x20));
    const MapColours colours = MapColours::of(paper);
    painter.fillRect(QRectF({}, sheet.size), colours.ground);
    painter.setPen(colours.text);
    painter.drawText(sheet.caption, Qt::AlignLeft | Qt::AlignTop, map.summary());
    map.paint(painter, MapWindow::fitting(map.layout().extent, sheet.frame), colours, thumbnails);
    map.paintLegend(painter, sheet.legend, colours);
}

} // namespace

QByteArray mapFile(const ProjectRecord &record, MapFormat format, int width, QStringList *damaged)
{
    const auto thumbnail = [&record, damaged](int location, int side) {
        const QString path = record.groups[location].value(0);
        const QImage picture = uprightThumbnail(readPictureFacts(path, Thumbnail::Make));
        if (damaged && picture.isNull() && QFileInfo(path).isFile() && !damaged->contains(path))
            damaged->append(path);
        return picture.width() <= side && picture.height() <= side
            ? picture
            : picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    };
    std::optional<PictureFacts> first;
    if (!record.groups.isEmpty() && !record.groups.first().isEmpty()) {
        const PictureFacts facts = readPictureFacts(record.groups.first().first(), Thumbnail::Skip);
        if (facts.readable)
            first = facts;
    }
    const RecordMap map(record, first);

    QFont font;
    font.setPixelSize(13);
    const Sheet sheet = sheetFor(map, width, QFontMetricsF(font));
    const QSize size = sheet.size.toSize();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (format == MapFormat::Svg) {
        QSvgGenerator svg;
        svg.setOutputDevice(&buffer);
        svg.setSize(size);
        svg.setViewBox(QRect({}, size));
        svg.setTitle(map.summary());
        QPainter painter(&svg);
        painter.setFont(font);
        paintSheet(painter, sheet, map, thumbnail);
        painter.end();
        return bytes;
    }
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        return {};
    QPainter painter(&image);
    painter.setFont(font);
    paintSheet(painter, sheet, map, thumbnail);
    painter.end();
    image.save(&buffer, "PNG");
    return bytes;
}
