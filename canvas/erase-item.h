// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/stroke-path.h"

#include <QGraphicsPathItem>

// One eraser stroke. It clears the pixels of whatever was painted beneath its path; the
// items beneath stay as they are.
class EraseItem : public QGraphicsPathItem
{
public:
    enum
    {
        Type = UserType + 3
    };
    static constexpr int PenWidth = 40;

    EraseItem(const QPainterPath& path, const QPen& pen);

    int type() const override { return Type; }

    // The path lives here, not in the path item, so that a segment is added without copying
    // the path; these two stand in for the path item's own.
    QPainterPath path() const { return m_stroke.path(); }
    void setPath(const QPainterPath& path);
    // Adds the segment from one point to another as a subpath of its own and repaints only
    // around it.
    void addSegment(const QPointF& from, const QPointF& to);

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    qreal reach() const;
    QRectF tightBounds() const;

    StrokePath m_stroke;
    QRectF m_bounds;
};
