// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/item-record.h"

#include <QUndoCommand>

class DData;

// A stroke moved to another position.
class ChgPos : public QUndoCommand
{
public:
    ChgPos(DData* data, const ItemRecord& record, const QPointF& pos);
    ~ChgPos() override;

    void undo() override;
    void redo() override;

private:
    void exchange();

    DData* m_data;
    QGraphicsItem* m_item;
    QPointF m_current;
    QPointF m_stored;
};
