// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/erase-item.h"

#include "canvas/clip-area.h"
#include "canvas/ink-layer.h"

#include <QPainter>
#include <QPainterPathStroker>
#include <QtMath>

EraseItem::EraseItem(const QPainterPath& path, const QPen& pen) : StrokeItem(path)
{
    setPen(pen);
    // The reach depends on the pen.
    fitBounds();
}

qreal EraseItem::halfWidth() const
{
    return qMax(qreal(PenWidth), pen().widthF()) / 2;
}

void EraseItem::addSegment(const QPointF& from, const QPointF& to)
{
    stroke().moveTo(from);
    if (stroke().lineTo(to).isNull())
        return;
    // Only what the segment's square paints is repainted: one more pixel for antialiasing,
    // one for rounding of the repainted area.
    segmentAdded(pallo::StrokePath::squareEndsBounds(from, to, halfWidth()).adjusted(-2, -2, 2, 2));
}

qreal EraseItem::reach() const
{
    // The square ends of a segment reach out to the corners of a square of the pen's width;
    // one more pixel for antialiasing, one for rounding of the repainted area.
    return halfWidth() * M_SQRT2 + 2;
}

pallo::StrokePath::Packing EraseItem::packing() const
{
    // The record of a finished eraser stroke keeps a copy of its path, which shares the
    // path's data as long as the item keeps the path too; packed points would come on top.
    return pallo::StrokePath::KeepPath;
}

QPainterPath EraseItem::shape() const
{
    QPainterPathStroker stroker;
    stroker.setWidth(PenWidth);
    return stroker.createStroke(stroke().path());
}

void EraseItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (InkLayer::holds(this))
        return;
    // A repaint of a small area strokes only the part of a long path that can reach it.
    const QRectF area = clipArea(painter);
    const QPainterPath part = stroke().partNear(area, reach(), halfWidth());
    painter->setCompositionMode(QPainter::CompositionMode_SourceOut);
    painter->setPen(QPen(QColor(0, 0, 0, 1), PenWidth));
    painter->setBrush(Qt::NoBrush);
    painter->drawPath(part);
    // The path item's own painting, once more with the item's pen; never the selection frame.
    painter->setPen(pen());
    painter->setBrush(brush());
    painter->drawPath(part);
}
