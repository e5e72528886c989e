// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/map/RecordMap.h"

#include <QFileInfo>
#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <cmath>

namespace {

// Detail by the size of a cell, in the painter's units.
constexpr double kPointsBelow = 4;
constexpr double kPicturesFrom = 14;
constexpr double kNumbersFrom = 22;

/// Above this many lines smooth ones take too long, and look the same.
constexpr int kMostSmoothLines = 4000;
/// So many places are drawn well in no time.
constexpr int kFewPlaces = 300;
constexpr int kMostNamesShown = 9;

/// The smallest of the usual steps that keeps labels \a least degrees apart.
double gridStep(double least)
{
    for (double step = 0.001; step < 1; step *= 10) {
        for (const double factor : {1, 2, 5}) {
            if (step * factor >= least)
                return step * factor;
        }
    }
    for (const double step : {1, 2, 5, 10, 15, 30, 45, 90})
        if (step >= least)
            return step;
    return 180;
}

QString angleText(double degrees)
{
    return QLocale().toString(degrees, 'g', 6) + QChar(0x00B0);
}

/// -180 < yaw <= 180.
double shownYaw(double yaw)
{
    const double turned = std::remainder(yaw, 360);
    // Rounded, for a sum of steps like 0.1 is not quite what it should be; no minus zero.
    const double round = std::round(turned * 1e6) / 1e6 + 0.0;
    return round <= -180 ? round + 360 : round;
}

struct Tick {
    double at;
    QString text;
};

QVector<Tick> angleTicks(double from, double to, double step, bool isYaw)
{
    QVector<Tick> ticks;
    for (double n = std::ceil(from / step); n * step <= to; ++n) {
        const double at = n * step;
        ticks.append({at, angleText(isYaw ? shownYaw(at) : -std::round(at * 1e6) / 1e6 + 0.0)});
    }
    return ticks;
}

/// Numbers from 1 to \a count, \a step apart on the map, with labels at least \a least apart.
QVector<Tick> numberTicks(int count, double step, double least)
{
    QVector<Tick> ticks;
    const int stride = std::max(1, int(std::ceil(least / step)));
    for (int i = 0; i < count; i += stride)
        ticks.append({i * step, QString::number(i + 1)});
    return ticks;
}

bool missesFrame(const QLineF &line, const QRectF &frame)
{
    return std::max(line.x1(), line.x2()) < frame.left()
        || std::min(line.x1(), line.x2()) > frame.right()
        || std::max(line.y1(), line.y2()) < frame.top()
        || std::min(line.y1(), line.y2()) > frame.bottom();
}

/// From \a inside towards \a outside, up to the border at \a x.
QLineF stub(const QPointF &inside, const QPointF &outside, double x)
{
    const double part = (x - inside.x()) / (outside.x() - inside.x());
    return {inside, inside + (outside - inside) * part};
}

/// The line between two places on the map; two stubs when the short way leads round the back.
void appendLine(QVector<QLineF> &lines, QPointF left, QPointF right, const MapLayout &layout)
{
    if (left.x() > right.x())
        std::swap(left, right);
    if (right.x() - left.x() <= layout.turn / 2) {
        lines.append({left, right});
        return;
    }
    const QPointF turn(layout.turn, 0);
    lines.append(stub(left, right - turn, layout.extent.left()));
    lines.append(stub(right, left + turn, layout.extent.right()));
}

} // namespace

MapWindow MapWindow::fitting(const QRectF &extent, const QRectF &frame)
{
    return {frame, extent.center(),
        std::max(1e-9, std::min(frame.width() / extent.width(), frame.height() / extent.height()))};
}

MapColours MapColours::of(const QPalette &palette)
{
    MapColours colours;
    colours.ground = palette.color(QPalette::Base);
    colours.text = palette.color(QPalette::Text);
    colours.isDark = colours.ground.lightness() < 128;
    colours.grid = colours.isDark ? QColor(255, 255, 255, 28) : QColor(0, 0, 0, 24);
    colours.cell = colours.isDark ? QColor(0x4a, 0x50, 0x58) : QColor(0xd8, 0xdc, 0xe2);
    return colours;
}

QColor MapColours::link(int kind) const
{
    static constexpr QRgb kOnLight[] = {0xff7a5195, 0xff0b6fb8, 0xffd1530d, 0xff12866b, 0xffb54b8c};
    static constexpr QRgb kOnDark[] = {0xffb79ae0, 0xff56b4e9, 0xfff09a3e, 0xff35c79b, 0xffe58cc0};
    constexpr int kKnown = int(std::size(kOnLight));
    if (kind < 0 || kind >= kKnown)
        return isDark ? QColor(0xa0, 0xa0, 0xa0) : QColor(0x70, 0x70, 0x70);
    return {isDark ? kOnDark[kind] : kOnLight[kind]};
}

RecordMap::RecordMap(const ProjectRecord &record, const std::optional<PictureFacts> &first)
    : m_groups(record.groups)
    , m_layout(mapLayout(record, first))
{
}

QRectF RecordMap::frameIn(const QRectF &whole, const QFontMetricsF &font)
{
    const double left = font.horizontalAdvance(angleText(-180)) + 8;
    return whole.adjusted(left, 4, -4, -font.height() - 6);
}

void RecordMap::paint(QPainter &painter, const MapWindow &window, const MapColours &colours,
    const ThumbnailSource &thumbnails, MapQuality quality) const
{
    painter.save();
    paintAxes(painter, window, colours);
    painter.setClipRect(window.frame, Qt::IntersectClip);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform,
        quality == MapQuality::Fine || !isCrowded(window));
    paintLinks(painter, window, colours);
    paintPlaces(painter, window, colours, thumbnails);
    if (!m_layout.problem.isEmpty()) {
        painter.setPen(colours.text);
        const bool nothing = std::none_of(m_layout.places.cbegin(), m_layout.places.cend(),
            [](const MapPlace &place) { return place.isKnown(); });
        painter.drawText(window.frame.adjusted(8, 6, -8, -6),
            int(Qt::TextWordWrap) | int(nothing ? Qt::AlignCenter : Qt::AlignTop | Qt::AlignLeft),
            m_layout.problem);
    }
    painter.restore();
}

void RecordMap::paintAxes(
    QPainter &painter, const MapWindow &window, const MapColours &colours) const
{
    const QRectF &frame = window.frame;
    const QFontMetricsF font(painter.font(), painter.device());
    const QPointF topLeft = window.toMap(frame.topLeft());
    const QPointF bottomRight = window.toMap(frame.bottomRight());
    const double apart = 2 * font.horizontalAdvance(angleText(-180)) / window.scale;
    const double tall = 2.5 * font.height() / window.scale;

    QVector<Tick> across;
    QVector<Tick> down;
    if (m_layout.isGrid()) {
        across = numberTicks(m_layout.columns, m_layout.spacing.width(), apart / 2);
        down = numberTicks(m_layout.rows, m_layout.spacing.height(), tall / 2);
    } else {
        // Beyond the pictures there is nothing to be read off.
        const QRectF seen = QRectF(topLeft, bottomRight) & m_layout.extent;
        across = angleTicks(seen.left(), seen.right(), gridStep(apart), true);
        down = angleTicks(seen.top(), seen.bottom(), gridStep(tall), false);
    }

    painter.fillRect(frame, colours.ground);
    QColor label = colours.text;
    label.setAlpha(170);
    const auto showTick
        = [&](const QLineF &line, const QRectF &place, const Tick &tick, int align) {
              painter.setPen(QPen(colours.grid, 1));
              painter.drawLine(line);
              painter.setPen(label);
              painter.drawText(place, align, tick.text);
          };
    for (const Tick &tick : qAsConst(across)) {
        const double x = window.toFrame({tick.at, 0}).x();
        if (x < frame.left() || x > frame.right())
            continue;
        showTick({x, frame.top(), x, frame.bottom()},
            {x - 60, frame.bottom() + 3, 120, font.height()}, tick, Qt::AlignHCenter);
    }
    for (const Tick &tick : qAsConst(down)) {
        const double y = window.toFrame({0, tick.at}).y();
        if (y < frame.top() || y > frame.bottom())
            continue;
        showTick({frame.left(), y, frame.right(), y},
            {frame.left() - 125, y - font.height() / 2, 120, font.height()}, tick,
            Qt::AlignRight | Qt::AlignVCenter);
    }
}

void RecordMap::paintLinks(
    QPainter &painter, const MapWindow &window, const MapColours &colours) const
{
    const double cell = m_layout.spacing.width() * window.scale;
    const bool isFine = painter.testRenderHint(QPainter::Antialiasing);
    // Thin lines without round ends are drawn many times as fast.
    const double width = isFine ? std::clamp(cell * 0.04, 1.0, 3.0) : 1.0;
    const QRectF reach = window.frame.adjusted(-width, -width, width, width);
    for (const MapLinks &links : m_layout.links) {
        QVector<QLineF> onMap;
        onMap.reserve(links.lines.size());
        for (const auto &[from, to] : links.lines)
            appendLine(onMap, m_layout.places[from].at, m_layout.places[to].at, m_layout);
        QVector<QLineF> seen;
        seen.reserve(onMap.size());
        for (const QLineF &line : qAsConst(onMap)) {
            const QLineF drawn(window.toFrame(line.p1()), window.toFrame(line.p2()));
            if (!missesFrame(drawn, reach))
                seen.append(drawn);
        }
        const bool isSmooth = isFine && seen.size() <= kMostSmoothLines;
        painter.setRenderHint(QPainter::Antialiasing, isSmooth);
        painter.setPen(QPen(colours.link(links.kind), isSmooth ? width : 1.0, Qt::SolidLine,
            isSmooth ? Qt::RoundCap : Qt::FlatCap));
        painter.drawLines(seen);
        painter.setRenderHint(QPainter::Antialiasing, isFine);
    }
}

bool RecordMap::isCrowded(const MapWindow &window) const
{
    return std::count_if(m_layout.places.cbegin(), m_layout.places.cend(),
               [&window](const MapPlace &place) {
                   return window.frame.contains(window.toFrame(place.at));
               })
        > kFewPlaces;
}

void RecordMap::paintPlaces(QPainter &painter, const MapWindow &window, const MapColours &colours,
    const ThumbnailSource &thumbnails) const
{
    const QSizeF size = m_layout.cell() * window.scale;
    const double side = std::max(size.width(), size.height());
    const QRectF reach = window.frame.adjusted(-side, -side, side, side);
    const bool isFine = painter.testRenderHint(QPainter::Antialiasing);
    const QTransform before = painter.transform();
    QVector<QPointF> points;
    for (int location = 0; location < m_layout.places.size(); ++location) {
        const MapPlace &place = m_layout.places[location];
        const QPointF at = window.toFrame(place.at);
        if (!place.isKnown() || !reach.contains(at))
            continue;
        if (side < kPointsBelow) {
            points.append(at);
            continue;
        }
        const QRectF cell(QPointF(-size.width() / 2, -size.height() / 2), size);
        const QImage picture = side >= kPicturesFrom && thumbnails
            ? thumbnails(location, int(std::ceil(side)))
            : QImage();
        painter.translate(at);
        if (place.roll != 0)
            painter.rotate(place.roll);
        paintPlace(painter, cell, colours, location, picture);
        painter.setTransform(before);
        if (isFine && side >= kNumbersFrom && picture.isNull()) {
            painter.setPen(colours.text);
            painter.drawText(QRectF(at, QSizeF()).adjusted(-side, -side, side, side),
                Qt::AlignCenter, QString::number(location + 1));
        }
    }
    if (!points.isEmpty()) {
        painter.setPen(QPen(colours.text, std::clamp(side, 1.0, 3.0)));
        painter.drawPoints(points.constData(), points.size());
    }
}

void RecordMap::paintPlace(QPainter &painter, const QRectF &cell, const MapColours &colours,
    int location, const QImage &picture) const
{
    const bool detailed = painter.testRenderHint(QPainter::Antialiasing)
        && std::max(cell.width(), cell.height()) >= kPicturesFrom;
    QColor frame = colours.text;
    frame.setAlpha(detailed ? 150 : 90);
    painter.setPen(detailed ? QPen(frame, 1) : QPen(Qt::NoPen));
    painter.setBrush(colours.cell);
    // A stack shows the pictures behind its first.
    const int behind = detailed ? std::min(2, m_layout.places[location].pictures - 1) : 0;
    const double shift = std::max(2.0, cell.width() * 0.06);
    for (int i = behind; i > 0; --i)
        painter.drawRect(cell.translated(i * shift, -i * shift));
    if (picture.isNull()) {
        painter.drawRect(cell);
        return;
    }
    const QSizeF size = QSizeF(picture.size()).scaled(cell.size(), Qt::KeepAspectRatio);
    const QRectF place(cell.center() - QPointF(size.width() / 2, size.height() / 2), size);
    painter.drawImage(place, picture);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place);
}

void RecordMap::paintMark(
    QPainter &painter, const MapWindow &window, const QColor &colour, int location) const
{
    const MapPlace &place = m_layout.places[location];
    if (!place.isKnown())
        return;
    const QSizeF size = (m_layout.cell() * window.scale).expandedTo({6, 6}) + QSizeF(4, 4);
    painter.save();
    painter.setClipRect(window.frame, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(window.toFrame(place.at));
    painter.rotate(place.roll);
    painter.setPen(QPen(colour, 2.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(QPointF(-size.width() / 2, -size.height() / 2), size));
    painter.restore();
}

QVector<RecordMap::LegendEntry> RecordMap::legend(
    double width, const QFontMetricsF &font, double *height) const
{
    constexpr double kSample = 26;
    constexpr double kGap = 18;
    const double line = font.height() + 4;
    QVector<LegendEntry> entries;
    QPointF at;
    for (const MapLinks &links : m_layout.links) {
        const QString text
            = tr("%1: %2").arg(linkName(links.kind), QLocale().toString(links.count));
        const double length = kSample + font.horizontalAdvance(text);
        if (at.x() > 0 && at.x() + length > width)
            at = {0, at.y() + line};
        entries.append({at, text, links.kind});
        at.rx() += length + kGap;
    }
    *height = entries.isEmpty() ? 0 : at.y() + line;
    return entries;
}

double RecordMap::legendHeight(double width, const QFontMetricsF &font) const
{
    double height = 0;
    legend(width, font, &height);
    return height;
}

void RecordMap::paintLegend(QPainter &painter, const QRectF &place, const MapColours &colours) const
{
    const QFontMetricsF font(painter.font(), painter.device());
    double height = 0;
    const QVector<LegendEntry> entries = legend(place.width(), font, &height);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const LegendEntry &entry : entries) {
        const QPointF at = place.topLeft() + entry.at;
        const double middle = at.y() + font.height() / 2;
        painter.setPen(QPen(colours.link(entry.kind), 3, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(at.x() + 2, middle), QPointF(at.x() + 18, middle));
        painter.setPen(colours.text);
        painter.drawText(QPointF(at.x() + 26, at.y() + font.ascent()), entry.text);
    }
    painter.restore();
}

QString RecordMap::describe(int location) const
{
    const MapPlace &place = m_layout.places[location];
    QStringList lines{tr("Location %1").arg(QLocale().toString(location + 1))};
    if (m_layout.isGrid() && place.isKnown())
        lines += tr("row %1, column %2")
                     .arg(qRound(place.at.y() / m_layout.spacing.height()) + 1)
                     .arg(qRound(place.at.x() / m_layout.spacing.width()) + 1);
    else if (place.isKnown())
        lines += tr("yaw %1, pitch %2")
                     .arg(angleText(std::round(shownYaw(place.at.x()) * 100) / 100 + 0.0),
                         angleText(std::round(-place.at.y() * 100) / 100 + 0.0));
    const QStringList &stack = m_groups[location];
    for (const QString &path : stack.mid(0, kMostNamesShown))
        lines += QFileInfo(path).fileName();
    if (stack.size() > kMostNamesShown)
        lines += tr("and %Ln more", nullptr, int(stack.size()) - kMostNamesShown);
    return lines.join(QLatin1Char('\n'));
}

QString RecordMap::summary() const
{
    int pictures = 0;
    for (const MapPlace &place : m_layout.places)
        pictures += place.pictures;
    int links = 0;
    for (const MapLinks &kind : m_layout.links)
        links += kind.count;
    const QLocale locale;
    return tr("Locations: %1, pictures: %2, links: %3")
        .arg(locale.toString(m_layout.places.size()), locale.toString(pictures),
            locale.toString(links));
}

QString RecordMap::linkName(int kind)
{
    switch (kind) {
    case 0:
        return tr("near each other");
    case 1:
        return tr("one above the other");
    case 2:
        return tr("side by side");
    case 3:
        return tr("diagonal, down to the right");
    case 4:
        return tr("diagonal, down to the left");
    default:
        return tr("of kind %1").arg(kind);
    }
}
