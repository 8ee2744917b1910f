// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/del-item.h"

#include "canvas/d-data.h"
#include "canvas/item-visibility.h"
#include "logging/log-categories.h"

#include <QGraphicsItem>

DelItem::DelItem(DData* data, const ItemRecord& record)
    : m_data(data), m_record(record), m_item(record.item)
{
}

DelItem::~DelItem() = default;

void DelItem::redo()
{
    m_index = m_data->indexOfItem(m_item);
    if (m_index >= 0)
        m_record = m_data->records().at(m_index);
    hideDrawnItem(m_data, m_item);
    qCDebug(lcCanvas) << "DelItem Redo";
}

void DelItem::undo()
{
    detachHandlesFrom(m_item);
    showDrawnItem(m_data, m_record, m_index);
    qCDebug(lcCanvas) << "DelItem Undo";
}
