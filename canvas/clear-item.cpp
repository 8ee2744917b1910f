// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/clear-item.h"

#include "canvas/d-data.h"
#include "canvas/item-visibility.h"

#include <QGraphicsItem>
#include <QGraphicsScene>

ClearItem::ClearItem(DData* data) : m_data(data) {}

ClearItem::~ClearItem() = default;

void ClearItem::repaintAllOnce()
{
    // With the whole scene due for a repaint, the items that change visibility next add no
    // areas of their own; thousands of them would otherwise be merged into one region.
    if (QGraphicsScene* scene = m_data->scene())
        scene->update();
}

void ClearItem::redo()
{
    repaintAllOnce();
    for (const ItemRecord& record : qAsConst(m_data->records())) {
        record.item->setVisible(false);
        detachHandlesFrom(record.item);
    }
}

void ClearItem::undo()
{
    repaintAllOnce();
    for (const ItemRecord& record : qAsConst(m_data->records()))
        record.item->setVisible(true);
}
