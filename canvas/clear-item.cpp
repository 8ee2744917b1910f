// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/clear-item.h"

#include "canvas/d-data.h"
#include "canvas/item-visibility.h"

#include <QGraphicsItem>

ClearItem::ClearItem(DData* data) : m_data(data) {}

ClearItem::~ClearItem() = default;

void ClearItem::redo()
{
    for (const ItemRecord& record : qAsConst(m_data->records())) {
        record.item->setVisible(false);
        detachHandlesFrom(record.item);
    }
}

void ClearItem::undo()
{
    for (const ItemRecord& record : qAsConst(m_data->records()))
        record.item->setVisible(true);
}
