// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/item-record.h"

#include <QUndoCommand>

class DData;

class DelItem : public QUndoCommand
{
public:
    DelItem(DData* data, const ItemRecord& record);
    ~DelItem() override;

    void undo() override;
    void redo() override;

private:
    DData* m_data;
    ItemRecord m_record;
    QGraphicsItem* m_item;
    int m_index = -1;
};
