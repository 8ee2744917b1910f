// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/chg-pos.h"

#include "canvas/d-data.h"
#include "logging/log-categories.h"

#include <QGraphicsItem>
#include <QGraphicsScene>

ChgPos::ChgPos(DData* data, const ItemRecord& record, const QPointF& pos)
    : m_data(data), m_item(record.item), m_current(record.pos), m_stored(pos)
{
}

ChgPos::~ChgPos() = default;

void ChgPos::exchange()
{
    std::swap(m_current, m_stored);
    const int index = m_data->indexOfItem(m_item);
    if (index >= 0)
        m_data->recordAt(index).pos = m_current;
    m_item->setPos(m_current);
    m_data->scene()->update();
}

void ChgPos::redo()
{
    exchange();
    qCDebug(lcCanvas) << "ChgPos Redo";
}

void ChgPos::undo()
{
    exchange();
    qCDebug(lcCanvas) << "ChgPos Undo";
}
