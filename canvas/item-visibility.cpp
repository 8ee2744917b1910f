// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/item-visibility.h"

#include "canvas/d-data.h"
#include "canvas/operate-item.h"

#include <QGraphicsItem>

void detachHandlesFrom(QGraphicsItem* item)
{
    OperateItem* handles = OperateItem::existing();
    if (handles && handles->isAttachedTo(item))
        handles->detach();
}

void hideDrawnItem(DData* data, QGraphicsItem* item)
{
    item->setVisible(false);
    detachHandlesFrom(item);
    const int index = data->indexOfItem(item);
    if (index >= 0)
        data->removeRecordAt(index);
}

void showDrawnItem(DData* data, const ItemRecord& record, int index)
{
    record.item->setVisible(true);
    if (data->indexOfItem(record.item) >= 0)
        return;
    if (index < 0 || index > data->records().size())
        index = data->records().size();
    data->insertRecord(index, record);
}
