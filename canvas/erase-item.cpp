// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/erase-item.h"

#include <QPainter>
#include <QPainterPathStroker>
#include <QStyleOptionGraphicsItem>

EraseItem::EraseItem(const QPainterPath& path, const QPen& pen) : QGraphicsPathItem(path)
{
    setPen(pen);
}

QPainterPath EraseItem::shape() const
{
    QPainterPathStroker stroker;
    stroker.setWidth(PenWidth);
    return stroker.createStroke(path());
}

void EraseItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    QStyleOptionGraphicsItem plain(*option);
    plain.state &= ~QStyle::State_Selected;
    painter->setCompositionMode(QPainter::CompositionMode_SourceOut);
    painter->setPen(QPen(QColor(0, 0, 0, 1), PenWidth));
    painter->setBrush(Qt::NoBrush);
    painter->drawPath(path());
    QGraphicsPathItem::paint(painter, &plain, widget);
}
