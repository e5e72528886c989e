// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/MapView.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace {

constexpr double kKeyZoom = 1.25;
constexpr double kKeyMove = 60;
/// Units of a location's cell beyond which zooming in shows nothing new.
constexpr double kLargestCell = 400;
/// Pictures are loaded for so many milliseconds at a time, so that the window stays awake.
constexpr int kLoadingSlice = 12;
/// Milliseconds after the last movement until it is drawn well.
constexpr int kRest = 120;
constexpr int kThumbnailBytes = 96 << 20;

/// The next of the sizes in which thumbnails are kept.
int keptSide(double side)
{
    int kept = 16;
    while (kept < side && kept < 256)
        kept *= 2;
    return kept;
}

} // namespace

MapView::MapView(QWidget *parent)
    : QWidget(parent)
    , m_thumbnails(kThumbnailBytes)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(kRest);
    connect(&m_rest, &QTimer::timeout, this, &MapView::redraw);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Map of the locations"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

MapView::~MapView() = default;

void MapView::setRecord(
    const ProjectRecord &record, const std::optional<PictureFacts> &first, PictureSource pictures)
{
    m_map = std::make_unique<RecordMap>(record, first);
    m_groups = record.groups;
    m_pictures = std::move(pictures);
    m_thumbnails.clear();
    m_marked = -1;
    setAccessibleDescription(m_map->summary());
    showAll();
}

QSize MapView::sizeHint() const
{
    return {640, 360};
}

QSize MapView::minimumSizeHint() const
{
    return {240, 160};
}

void MapView::showAll()
{
    m_showsAll = true;
    layOut();
}

void MapView::layOut()
{
    if (!m_map)
        return;
    const QFontMetricsF metrics(font());
    const QRectF whole = QRectF(rect()).adjusted(4, 4, -4, -4);
    const double legend = m_map->legendHeight(whole.width(), metrics);
    m_legend = QRectF(whole.left(), whole.bottom() - legend, whole.width(), legend);
    const QRectF frame
        = RecordMap::frameIn(whole.adjusted(0, 0, 0, legend > 0 ? -legend - 4 : 0), metrics);
    if (m_showsAll)
        m_window = MapWindow::fitting(m_map->layout().extent, frame);
    else
        m_window.frame = frame;
    redraw();
}

void MapView::zoom(double factor, const QPointF &fixed)
{
    if (!m_map)
        return;
    const double most = std::max(fittingScale(), kLargestCell / m_map->layout().spacing.width());
    const QPointF before = m_window.toMap(fixed);
    m_window.scale = std::clamp(m_window.scale * factor, fittingScale(), most);
    m_window.centre += before - m_window.toMap(fixed);
    m_showsAll = m_window.scale <= fittingScale();
    if (m_showsAll)
        layOut();
    else
        move({});
}

double MapView::fittingScale() const
{
    return MapWindow::fitting(m_map->layout().extent, m_window.frame).scale;
}

void MapView::move(const QPointF &pixels)
{
    if (!m_map || m_showsAll)
        return;
    const QRectF &extent = m_map->layout().extent;
    const QPointF wanted = m_window.centre + pixels / m_window.scale;
    m_window.centre = {std::clamp(wanted.x(), extent.left(), extent.right()),
        std::clamp(wanted.y(), extent.top(), extent.bottom())};
    redrawMoving();
}

void MapView::redraw()
{
    m_quality = MapQuality::Fine;
    m_layerIsOld = true;
    update();
}

void MapView::redrawMoving()
{
    m_quality = MapQuality::Draft;
    m_layerIsOld = true;
    m_rest.start();
    update();
}

void MapView::mark(int location)
{
    if (location == m_marked)
        return;
    m_marked = location;
    update();
}

void MapView::stepMark(int step)
{
    const int count = m_groups.size();
    if (count == 0)
        return;
    int next = m_marked < 0 ? (step > 0 ? 0 : count - 1) : m_marked + step;
    next = (next + count) % count;
    mark(next);
    const MapPlace &place = m_map->layout().places[next];
    if (!place.isKnown())
        return;
    if (!m_window.frame.contains(m_window.toFrame(place.at))) {
        m_window.centre = place.at;
        redraw();
    }
    const QPoint at = m_window.toFrame(place.at).toPoint();
    QToolTip::showText(mapToGlobal(at), m_map->describe(next), this);
}

QImage MapView::thumbnail(int location, int side)
{
    const int kept = keptSide(side * devicePixelRatioF());
    if (const Sized *known = m_thumbnails.object(location); known && known->side >= kept)
        return known->picture;
    if (!m_pictures || m_groups[location].isEmpty())
        return {};
    if (m_quality == MapQuality::Draft) {
        const Sized *other = m_thumbnails.object(location);
        return other ? other->picture : QImage();
    }
    if (m_loadUntil.isForever()) {
        m_loadUntil.setRemainingTime(kLoadingSlice); // The first is loaded whatever it takes.
    } else if (m_loadUntil.hasExpired()) {
        m_hasMoreToLoad = true;
        const Sized *smaller = m_thumbnails.object(location);
        return smaller ? smaller->picture : QImage();
    }
    QImage picture = m_pictures(m_groups[location].first());
    if (picture.width() > kept || picture.height() > kept)
        picture = picture.scaled(kept, kept, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    auto sized = std::make_unique<Sized>(Sized{kept, picture});
    m_thumbnails.insert(location, sized.release(), int(picture.sizeInBytes()) + 64);
    return picture;
}

void MapView::drawLayer()
{
    m_layerIsOld = false;
    m_layer = QPixmap(size() * devicePixelRatioF());
    m_layer.setDevicePixelRatio(devicePixelRatioF());
    m_layer.fill(Qt::transparent);
    QPainter painter(&m_layer);
    painter.setFont(font());
    const MapColours colours = MapColours::of(palette());
    m_hasMoreToLoad = false;
    m_loadUntil = QDeadlineTimer(QDeadlineTimer::Forever);
    m_map->paint(
        painter, m_window, colours,
        [this](int location, int side) { return thumbnail(location, side); }, m_quality);
    MapColours around = colours;
    around.text = palette().color(QPalette::WindowText);
    m_map->paintLegend(painter, m_legend, around);
    painter.end();
    if (m_hasMoreToLoad)
        QTimer::singleShot(0, this, &MapView::redraw);
}

void MapView::paintEvent(QPaintEvent *)
{
    if (!m_map)
        return;
    if (m_layerIsOld || m_layer.devicePixelRatio() != devicePixelRatioF())
        drawLayer();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_layer);
    if (m_marked >= 0)
        m_map->paintMark(painter, m_window, palette().color(QPalette::Highlight), m_marked);
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(m_window.frame);
}

bool MapView::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    if (m_map && m_marked >= 0)
        QToolTip::showText(help->globalPos(), m_map->describe(m_marked), this);
    else
        QToolTip::hideText();
    return true;
}

void MapView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::PaletteChange:
        redraw();
        break;
    case QEvent::FontChange:
        layOut();
        break;
    default:
        break;
    }
}

void MapView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    layOut();
}

void MapView::keyPressEvent(QKeyEvent *event)
{
    const QPointF middle = m_window.frame.center();
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return zoom(kKeyZoom, middle);
    case Qt::Key_Minus:
        return zoom(1 / kKeyZoom, middle);
    case Qt::Key_0:
        return showAll();
    case Qt::Key_Left:
        return move({-kKeyMove, 0});
    case Qt::Key_Right:
        return move({kKeyMove, 0});
    case Qt::Key_Up:
        return move({0, -kKeyMove});
    case Qt::Key_Down:
        return move({0, kKeyMove});
    case Qt::Key_PageUp:
        return stepMark(-1);
    case Qt::Key_PageDown:
        return stepMark(1);
    default:
        QWidget::keyPressEvent(event);
    }
}

void MapView::wheelEvent(QWheelEvent *event)
{
    zoom(std::pow(2.0, event->angleDelta().y() / 360.0), event->position());
    event->accept();
}

void MapView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mousePressEvent(event);
    m_isDragging = true;
    m_dragged = event->localPos();
    if (!m_showsAll)
        setCursor(Qt::ClosedHandCursor);
}

void MapView::mouseMoveEvent(QMouseEvent *event)
{
    if (m_isDragging) {
        move(m_dragged - event->localPos());
        m_dragged = event->localPos();
        return;
    }
    const bool inside = m_map && m_window.frame.contains(event->localPos());
    const int location
        = inside ? m_map->layout().locationAt(m_window.toMap(event->localPos())) : -1;
    if (location != m_marked) {
        mark(location);
        if (location >= 0)
            QToolTip::showText(event->globalPos(), m_map->describe(location), this);
        else
            QToolTip::hideText();
    }
}

void MapView::mouseReleaseEvent(QMouseEvent *event)
{
    QWidget::mouseReleaseEvent(event);
    m_isDragging = false;
    unsetCursor();
}

void MapView::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    mark(-1);
}
