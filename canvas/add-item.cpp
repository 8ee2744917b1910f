// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/add-item.h"

#include "canvas/d-data.h"
#include "canvas/item-visibility.h"
#include "logging/log-categories.h"

#include <QGraphicsItem>

AddItem::AddItem(DData* data, const ItemRecord& record)
    : m_data(data), m_record(record), m_item(record.item)
{
}

AddItem::~AddItem() = default;

void AddItem::redo()
{
    m_item->setVisible(true);
    qCDebug(lcCanvas) << "flag" << m_item;
    // The item may have been recorded before the first push; it is listed only once.
    if (!m_firstRedo || m_data->indexOfItem(m_item) < 0)
        m_data->appendRecord(m_record);
    m_firstRedo = false;
    qCDebug(lcCanvas) << "AddItem Redo";
}

void AddItem::undo()
{
    hideDrawnItem(m_data, m_item);
    qCDebug(lcCanvas) << "AddItem Undo";
}
