// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/erase-item.h"

#include "canvas/clip-area.h"

#include <QPainter>
#include <QPainterPathStroker>
#include <QtMath>

EraseItem::EraseItem(const QPainterPath& path, const QPen& pen) : m_stroke(path)
{
    setPen(pen);
    m_bounds = tightBounds();
}

void EraseItem::setPath(const QPainterPath& path)
{
    prepareGeometryChange();
    m_stroke = StrokePath(path);
    m_bounds = tightBounds();
    update();
}

void EraseItem::addSegment(const QPointF& from, const QPointF& to)
{
    m_stroke.moveTo(from);
    const QRectF segment = m_stroke.lineTo(to);
    if (segment.isNull())
        return;
    const qreal r = reach();
    const QRectF dirty = segment.adjusted(-r, -r, r, r);
    if (m_bounds.contains(dirty)) {
        update(dirty);
        return;
    }
    prepareGeometryChange();
    m_bounds = StrokePath::roomToGrow(tightBounds());
}

qreal EraseItem::reach() const
{
    // The square ends of a segment reach out to the corners of a square of the pen's width;
    // one more pixel for antialiasing, one for rounding of the repainted area.
    const qreal width = qMax(qreal(PenWidth), pen().widthF());
    return width / 2 * M_SQRT2 + 2;
}

QRectF EraseItem::tightBounds() const
{
    if (m_stroke.path().elementCount() == 0)
        return QRectF();
    const qreal r = reach();
    return m_stroke.pointBounds().adjusted(-r, -r, r, r);
}

QRectF EraseItem::boundingRect() const
{
    return m_bounds;
}

QPainterPath EraseItem::shape() const
{
    QPainterPathStroker stroker;
    stroker.setWidth(PenWidth);
    return stroker.createStroke(m_stroke.path());
}

void EraseItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    // A repaint of a small area strokes only the part of a long path that can reach it.
    const QRectF area = clipArea(painter);
    const QPainterPath part = area.isNull() ? m_stroke.path() : m_stroke.partNear(area, reach());
    painter->setCompositionMode(QPainter::CompositionMode_SourceOut);
    painter->setPen(QPen(QColor(0, 0, 0, 1), PenWidth));
    painter->setBrush(Qt::NoBrush);
    painter->drawPath(part);
    // The path item's own painting, once more with the item's pen; never the selection frame.
    painter->setPen(pen());
    painter->setBrush(brush());
    painter->drawPath(part);
}
