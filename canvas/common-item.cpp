// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/common-item.h"

#include "canvas/arrow-path.h"
#include "canvas/ink-layer.h"
#include "logging/log-categories.h"

#include <QPainter>
#include <QPainterPathStroker>
#include <QPolygonF>
#include <cmath>

CommonItem::CommonItem(int kind, QPointF pos) : m_kind(kind), m_position(pos)
{
    setFlag(ItemIsSelectable, false);
    setFlag(ItemSendsGeometryChanges, true);
    setPos(pos);
}

CommonItem::~CommonItem()
{
    m_hoverCursor.leave();
    InkLayer::looksChanged(this);
}

QVariant CommonItem::itemChange(GraphicsItemChange change, const QVariant& value)
{
    InkLayer::itemChanged(this, change);
    return QGraphicsItem::itemChange(change, value);
}

void CommonItem::setColor(const QColor& color)
{
    InkLayer::looksChanged(this);
    m_color = color;
    update();
}

void CommonItem::setWidth(int width)
{
    InkLayer::looksChanged(this);
    prepareGeometryChange();
    m_width = width;
}

void CommonItem::setExtent(qreal dx, qreal dy)
{
    const QRectF oldRect = boundingRect();
    const qreal w = std::abs(dx);
    const qreal h = std::abs(dy);
    const QRectF box(-w / 2, -h / 2, w, h);
    const QPointF tail(-dx / 2, -dy / 2);
    const QPointF head(dx / 2, dy / 2);
    InkLayer::looksChanged(this);

    prepareGeometryChange();
    m_path = QPainterPath();
    switch (m_kind) {
    case Ellipse:
        m_path.addEllipse(box);
        break;
    case Rect:
        m_path.addRect(box);
        break;
    case Line:
        m_path.addPolygon(QPolygonF(QVector<QPointF>{tail, head}));
        break;
    case Arrow:
        m_path = arrowPath(tail, head, m_width);
        m_outline = QPainterPath();
        m_outline.addPolygon(QPolygonF(QVector<QPointF>{tail, head}));
        break;
    default:
        break;
    }
    setPos(m_position.x() + dx / 2, m_position.y() + dy / 2);
    qCDebug(lcCanvas) << "CommonItem extent" << oldRect << dx << dy;
    update(boundingRect());
}

QRectF CommonItem::shapeRect() const
{
    return m_path.boundingRect();
}

void CommonItem::setShapePath(const QPainterPath& path)
{
    InkLayer::looksChanged(this);
    prepareGeometryChange();
    m_path = path;
}

void CommonItem::takeTransform(const QTransform& transform)
{
    m_transform = transform;
}

void CommonItem::commitChange()
{
    emit signal_changeItem(m_path, pos(), m_transform, this);
}

QRectF CommonItem::boundingRect() const
{
    return m_path.boundingRect().adjusted(-5, -5, 5, 5);
}

QPainterPath CommonItem::shape() const
{
    QPainterPathStroker stroker;
    stroker.setWidth(5);
    return stroker.createStroke(m_path);
}

void CommonItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (InkLayer::holds(this))
        return;
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    switch (m_kind) {
    case Arrow:
        painter->setPen(Qt::NoPen);
        painter->setBrush(QBrush(m_color, Qt::SolidPattern));
        painter->drawPath(m_path);
        break;
    case Line:
        painter->setPen(QPen(m_color, m_width));
        painter->setBrush(Qt::NoBrush);
        painter->drawPath(m_path);
        break;
    default:
        // A pen twice as wide, clipped to the shape, leaves a border of exactly the chosen
        // width inside the dragged rectangle.
        painter->setPen(QPen(m_color, 2 * m_width));
        painter->setBrush(Qt::NoBrush);
        painter->setClipPath(m_path, Qt::IntersectClip);
        painter->drawPath(m_path);
        break;
    }
}

void CommonItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event)
{
    m_hoverCursor.enter();
    QGraphicsItem::hoverEnterEvent(event);
}

void CommonItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event)
{
    m_hoverCursor.leave();
    QGraphicsItem::hoverLeaveEvent(event);
}
