// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/item-hover-cursor.h"
#include "canvas/stroke-path.h"

#include <QGraphicsPathItem>
#include <QObject>

// A freehand stroke of the pen, the highlighter or the vanishing pen.
class CurveItem : public QObject, public QGraphicsPathItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    enum
    {
        Type = UserType + 2
    };

    CurveItem(const QColor& color, int width);
    ~CurveItem() override;

    int type() const override { return Type; }
    QColor penColor() const { return m_color; }
    int penWidth() const { return m_width; }

    // The stroke's path lives here, not in the path item, so that a point is appended without
    // copying the path; these two stand in for the path item's own.
    QPainterPath path() const { return m_stroke.path(); }
    void setPath(const QPainterPath& path);
    // Extends the stroke by a straight segment to point and repaints only around it.
    void lineTo(const QPointF& point);

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

signals:
    void singal_changePos(QPointF pos, QGraphicsPathItem* item);

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    // How far beyond its path the pen can touch a pixel.
    qreal reach() const;
    QRectF tightBounds() const;

    QColor m_color;
    int m_width;
    QPointF m_lastScenePos;
    bool m_moved = false;
    ItemHoverCursor m_hoverCursor;
    StrokePath m_stroke;
    QRectF m_bounds;
};

Q_DECLARE_METATYPE(QGraphicsPathItem*)
