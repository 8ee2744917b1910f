// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/item-hover-cursor.h"
#include "canvas/stroke-item.h"

#include <QObject>
#include <QPointer>

class DData;

// A freehand stroke of the pen, the highlighter or the vanishing pen.
class CurveItem : public QObject, public StrokeItem
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

    // Extends the stroke by a straight segment to point and repaints only around it.
    void lineTo(const QPointF& point);

    // The drawing data that hears singal_changePos. The connection is made when the stroke is
    // first dragged: it would cost every stroke some 350 bytes, and most are never dragged.
    void setMoveReceiver(DData* data);

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

    qreal reach() const override;

private:
    QColor m_color;
    int m_width;
    QPointF m_lastScenePos;
    bool m_moved = false;
    ItemHoverCursor m_hoverCursor;
    QPointer<DData> m_moveReceiver;
};

Q_DECLARE_METATYPE(QGraphicsPathItem*)
