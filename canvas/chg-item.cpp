// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/chg-item.h"

#include "canvas/d-data.h"
#include "canvas/manger-info.h"
#include "canvas/operate-item.h"
#include "logging/log-categories.h"

#include <QGraphicsItem>
#include <QGraphicsScene>

ChgItem::ChgItem(DData* data, const ItemRecord& record, const QPainterPath& path,
                 const QPointF& pos, const QTransform& transform)
    : m_data(data),
      m_item(record.item), m_current{record.path, record.transform, record.pos}, m_stored{path,
                                                                                          transform,
                                                                                          pos}
{
}

ChgItem::~ChgItem() = default;

void ChgItem::exchange()
{
    std::swap(m_current, m_stored);
    if (auto* info = dynamic_cast<MangerInfo*>(m_item)) {
        info->takeTransform(m_current.transform);
        info->setShapePath(m_current.path);
    }
    m_item->setPos(m_current.pos);
    m_item->update(m_item->boundingRect());
    OperateItem* handles = OperateItem::existing();
    if (handles && handles->isAttachedTo(m_item))
        handles->followTarget();

    // The record carries the state forward, so that the next change starts from it.
    const int index = m_data->indexOfItem(m_item);
    if (index >= 0) {
        ItemRecord& record = m_data->recordAt(index);
        record.pos = m_current.pos;
        record.path = m_current.path;
        record.transform = m_current.transform;
    }
    m_data->scene()->update();
}

void ChgItem::redo()
{
    exchange();
    qCDebug(lcCanvas) << "ChgItem Redo";
}

void ChgItem::undo()
{
    exchange();
    qCDebug(lcCanvas) << "ChgItem Undo";
}
