// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/stroke-item.h"

#include "canvas/frame-pacer.h"
#include "canvas/ink-layer.h"

#include <QGraphicsScene>

StrokeItem::StrokeItem(const QPainterPath& path) : m_stroke(path)
{
    setFlag(ItemSendsGeometryChanges, true);
}

StrokeItem::~StrokeItem()
{
    InkLayer::looksChanged(this);
}

QVariant StrokeItem::itemChange(GraphicsItemChange change, const QVariant& value)
{
    InkLayer::itemChanged(this, change);
    return QGraphicsPathItem::itemChange(change, value);
}

void StrokeItem::setPath(const QPainterPath& path)
{
    InkLayer::looksChanged(this);
    prepareGeometryChange();
    m_stroke = pallo::StrokePath(path);
    m_bounds = tightBounds();
    update();
}

QRectF StrokeItem::boundingRect() const
{
    return m_bounds;
}

QRectF StrokeItem::withReach(const QRectF& segment) const
{
    if (segment.isNull())
        return segment;
    const qreal r = reach();
    return segment.adjusted(-r, -r, r, r);
}

void StrokeItem::segmentAdded(const QRectF& dirty)
{
    if (dirty.isNull())
        return;
    if (m_bounds.contains(dirty)) {
        // Straight to the scene's views, once per frame: an update of the item would make
        // the scene visit every drawn item before the next frame to find the dirty ones.
        if (QGraphicsScene* owner = scene(); owner && isVisible())
            FramePacer::forScene(owner)->request(mapRectToScene(dirty));
        return;
    }
    prepareGeometryChange();
    m_bounds = pallo::StrokePath::roomToGrow(tightBounds());
}

void StrokeItem::finishGrowing()
{
    m_stroke.compact(packing());
    const QRectF tight = tightBounds();
    if (tight == m_bounds)
        return;
    prepareGeometryChange();
    m_bounds = tight;
}

void StrokeItem::fitBounds()
{
    m_bounds = tightBounds();
}

QRectF StrokeItem::tightBounds() const
{
    if (m_stroke.elementCount() == 0)
        return QRectF();
    const qreal r = reach();
    return m_stroke.pointBounds().adjusted(-r, -r, r, r);
}
