// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/item-record.h"

#include <QUndoCommand>

class DData;

// A shape's path, position and transform changed by the handles.
class ChgItem : public QUndoCommand
{
public:
    ChgItem(DData* data, const ItemRecord& record, const QPainterPath& path, const QPointF& pos,
            const QTransform& transform);
    ~ChgItem() override;

    void undo() override;
    void redo() override;

private:
    struct State
    {
        QPainterPath path;
        QTransform transform;
        QPointF pos;
    };

    void exchange();

    DData* m_data;
    QGraphicsItem* m_item;
    State m_current;
    State m_stored;
};
