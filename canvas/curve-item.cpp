// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/curve-item.h"

#include "canvas/clip-area.h"
#include "canvas/d-data.h"
#include "canvas/graphics-view.h"
#include "canvas/ink-layer.h"
#include "logging/log-categories.h"

#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QPainterPathStroker>
#include <QStyleOptionGraphicsItem>

namespace {

bool eraserActive()
{
    return pallo::GraphicsView::currentFigure() == "erase";
}

// Strokes drawn one after another mostly have the same colour and width: handing them one
// pen shares its data (and its brush's) among them instead of giving each its own.
QPen strokePen(const QColor& color, int width)
{
    static QPen last(Qt::NoPen);
    if (last.style() == Qt::NoPen || last.color() != color || last.width() != width) {
        last = QPen(color, width);
        last.setCapStyle(Qt::FlatCap);
    }
    return last;
}

} // namespace

CurveItem::CurveItem(const QColor& color, int width) : m_color(color), m_width(width)
{
    setPen(strokePen(color, width));
}

CurveItem::~CurveItem()
{
    m_hoverCursor.leave();
}

void CurveItem::lineTo(const QPointF& point)
{
    segmentAdded(withReach(stroke().lineTo(point)));
}

void CurveItem::setMoveReceiver(DData* data)
{
    m_moveReceiver = data;
}

qreal CurveItem::reach() const
{
    // Flat caps and bevel joins stay within half the width of the points; one more pixel for
    // antialiasing, one for rounding of the repainted area.
    return m_width / 2.0 + 2;
}

QPainterPath CurveItem::shape() const
{
    const QPainterPath path = stroke().path();
    if (path.isEmpty())
        return path;
    QPainterPathStroker stroker;
    stroker.setCapStyle(Qt::FlatCap);
    stroker.setJoinStyle(pen().joinStyle());
    stroker.setMiterLimit(pen().miterLimit());
    // A zero width would make the stroker use 1.
    stroker.setWidth(m_width > 0 ? qreal(m_width) : qreal(0.00000001));
    QPainterPath shape = stroker.createStroke(path);
    shape.addPath(path);
    return shape;
}

void CurveItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget*)
{
    if (InkLayer::holds(this))
        return;
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QColor color = (option->state & QStyle::State_Selected) ? m_color.darker(150) : m_color;
    QPen pen(color, m_width);
    pen.setCapStyle(Qt::FlatCap);
    painter->setPen(pen);
    painter->setBrush(Qt::NoBrush);
    // A repaint of a small area strokes only the part of a long path that can reach it.
    const QRectF area = clipArea(painter);
    painter->drawPath(stroke().partNear(area, reach()));
}

void CurveItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event)
{
    m_hoverCursor.enter();
    QGraphicsPathItem::hoverEnterEvent(event);
}

void CurveItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event)
{
    m_hoverCursor.leave();
    QGraphicsPathItem::hoverLeaveEvent(event);
}

void CurveItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (eraserActive()) {
        event->ignore();
        return;
    }
    m_lastScenePos = event->scenePos();
    m_moved = false;
    QGraphicsPathItem::mousePressEvent(event);
}

void CurveItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (eraserActive())
        return;
    m_moved = true;
    const QPointF displacement = event->scenePos() - m_lastScenePos;
    qCDebug(lcCanvas) << "ScenePos" << displacement;
    moveBy(displacement.x(), displacement.y());
    m_lastScenePos = event->scenePos();
}

void CurveItem::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    if (eraserActive())
        return;
    const QPointF displacement = event->scenePos() - m_lastScenePos;
    moveBy(displacement.x(), displacement.y());
    m_lastScenePos = event->scenePos();
    QGraphicsPathItem::mouseReleaseEvent(event);
    if (!m_moved)
        return;
    if (m_moveReceiver)
        connect(this, &CurveItem::singal_changePos, m_moveReceiver.data(), &DData::slot_changePos,
                Qt::UniqueConnection);
    emit singal_changePos(scenePos(), this);
}
