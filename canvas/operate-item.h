// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsItem>
#include <QObject>
#include <QPainterPath>
#include <QPointer>
#include <QTransform>

class CommonItem;

// The one handle frame of the process. It is attached to at most one shape at a time, drawn
// around it, and moves, scales and rotates it. Its own coordinates are the shape's with the
// shape's rotation taken out, so the handles turn with the shape.
class OperateItem : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    enum
    {
        Type = UserType + 4
    };

    // The instance, created on first use. It lives in the scene of the last shape it was
    // attached to, which owns it.
    static OperateItem* instance();
    // The instance if it has been created and still exists; no instance is created.
    static OperateItem* existing();
    ~OperateItem() override;

    int type() const override { return Type; }

    void attachTo(CommonItem* target);
    void detach();
    CommonItem* target() const;
    bool isAttachedTo(const QGraphicsItem* item) const;
    // Takes position, rotation and outline from the target again, after they were changed
    // from outside (undo and redo).
    void followTarget();

    // The handle under point (in this item's coordinates): -1 none, 0 the outline, 1 to 4 the
    // corners, 5 the rotation handle.
    int handleAt(const QPointF& point) const;
    // The shape's bounding rectangle without its rotation, in this item's coordinates.
    QRectF frame() const;
    QPainterPath outline() const { return m_outline; }

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    bool contains(const QPointF& point) const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

public slots:
    // Keeps the handles above an item raised to z.
    void slot_setZvalueTop(double z);

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    OperateItem();

    void installCursor(int code);
    void restoreCursor();
    void prepareScaling(int code);
    void rotateTo(const QPointF& scenePoint);
    void scaleTo(const QPointF& scenePoint);
    void setOutline(const QPainterPath& outline);

    QPointer<CommonItem> m_target;
    int m_pressType = -1;
    int m_hoverType = -1;
    // Rotation of the current drag, in degrees, relative to where the drag started.
    float m_angle = 0;
    QTransform m_rotate;
    QTransform m_pressRotate;
    QPointF m_anchor;
    qreal m_slope = 0;
    int m_direction = 1;
    bool m_changed = false;
    QPainterPath m_outline;

    static QPointer<OperateItem> s_instance;
};
