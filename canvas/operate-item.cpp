// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/operate-item.h"

#include "canvas/common-item.h"

#include <QGraphicsScene>
#include <QPainter>

QPointer<OperateItem> OperateItem::s_instance;

OperateItem* OperateItem::instance()
{
    if (!s_instance)
        s_instance = new OperateItem;
    return s_instance;
}

OperateItem* OperateItem::existing()
{
    return s_instance;
}

OperateItem::OperateItem()
{
    setFlag(ItemIsSelectable, true);
    // Above every drawn item, whatever order they were added in.
    setZValue(1e6);
    hide();
}

void OperateItem::attachTo(CommonItem* target)
{
    if (!target)
        return;
    QGraphicsScene* scene = target->scene();
    if (scene && this->scene() != scene) {
        if (this->scene())
            this->scene()->removeItem(this);
        scene->addItem(this);
    }
    prepareGeometryChange();
    m_target = target;
    setPos(target->scenePos());
    show();
}

void OperateItem::detach()
{
    prepareGeometryChange();
    m_target = nullptr;
    hide();
}

CommonItem* OperateItem::target() const
{
    return m_target;
}

bool OperateItem::isAttachedTo(const QGraphicsItem* item) const
{
    return item && m_target && static_cast<const QGraphicsItem*>(m_target.data()) == item;
}

QRectF OperateItem::boundingRect() const
{
    if (!m_target)
        return QRectF();
    return m_target->boundingRect().adjusted(-1, -1, 1, 1);
}

void OperateItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (!m_target)
        return;
    painter->setPen(QPen(Qt::black, 1, Qt::DashLine));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(m_target->boundingRect());
}
