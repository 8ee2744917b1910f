// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/item-hover-cursor.h"
#include "canvas/manger-info.h"

#include <QColor>
#include <QGraphicsItem>
#include <QObject>

// A line, rectangle, ellipse or arrow. The shape is kept centred on the item's position.
class CommonItem : public QObject, public QGraphicsItem, public MangerInfo
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    enum
    {
        Type = UserType + 1
    };
    enum Kind
    {
        Ellipse = 1,
        Rect = 2,
        Line = 3,
        Arrow = 4
    };

    CommonItem(int kind, QPointF pos);
    ~CommonItem() override;

    int type() const override { return Type; }
    int kind() const { return m_kind; }

    QColor color() const { return m_color; }
    void setColor(const QColor& color);
    int width() const { return m_width; }
    void setWidth(int width);

    // Sets the shape to span (dx, dy) from the point given at construction.
    void setExtent(qreal dx, qreal dy);
    // For the arrow the line from tail to head; for the other kinds empty.
    QPainterPath outline() const { return m_outline; }

    QRectF shapeRect() const override;
    QPainterPath shapePath() const override { return m_path; }
    void setShapePath(const QPainterPath& path) override;
    QTransform shapeTransform() const override { return m_transform; }
    void takeTransform(const QTransform& transform) override;
    void commitChange() override;

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

signals:
    void signal_changeItem(QPainterPath path, QPointF pos, QTransform transform,
                           QGraphicsItem* item);

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;

private:
    QPainterPath m_outline;
    QPainterPath m_path;
    QColor m_color;
    int m_width = 1;
    int m_kind;
    QPointF m_position;
    QTransform m_transform;
    ItemHoverCursor m_hoverCursor;
};

Q_DECLARE_METATYPE(QPainterPath)
