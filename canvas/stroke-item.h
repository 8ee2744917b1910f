// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/stroke-path.h"

#include <QGraphicsPathItem>

// A path item that grows point by point: the path lives here, not in the path item, so that
// a segment is added without copying the path, and only the area around a new segment is
// repainted while the bounds have room for it.
class StrokeItem : public QGraphicsPathItem
{
public:
    // These two stand in for the path item's own.
    QPainterPath path() const { return m_stroke.path(); }
    void setPath(const QPainterPath& path);

    QRectF boundingRect() const override;

    // The stroke is finished: what was kept for it to grow is given back, the room in its
    // bounds too, so that the scene does not find it under areas it does not paint.
    void finishGrowing();

protected:
    explicit StrokeItem(const QPainterPath& path = QPainterPath());
    ~StrokeItem() override;

    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;

    // How far beyond its path the pen can touch a pixel.
    virtual qreal reach() const = 0;
    // How the finished stroke keeps its points.
    virtual pallo::StrokePath::Packing packing() const { return pallo::StrokePath::PackPoints; }
    // Repaints dirty, where a segment just added to stroke() paints (null when the segment
    // added nothing); grows the bounds when it does not fit.
    void segmentAdded(const QRectF& dirty);
    // Where a pen reaching reach() paints around a segment spanning segment.
    QRectF withReach(const QRectF& segment) const;
    // Takes the bounds from the whole path; for constructors, once the pen is set.
    void fitBounds();

    pallo::StrokePath& stroke() { return m_stroke; }
    const pallo::StrokePath& stroke() const { return m_stroke; }

private:
    QRectF tightBounds() const;

    pallo::StrokePath m_stroke;
    QRectF m_bounds;
};
