// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/item-record.h"

#include <QUndoCommand>

class DData;

class AddItem : public QUndoCommand
{
public:
    AddItem(DData* data, const ItemRecord& record);
    ~AddItem() override;

    void undo() override;
    void redo() override;

private:
    DData* m_data;
    ItemRecord m_record;
    QGraphicsItem* m_item;
    bool m_firstRedo = true;
};
