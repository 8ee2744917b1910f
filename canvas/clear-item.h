// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QUndoCommand>

class DData;

class ClearItem : public QUndoCommand
{
public:
    explicit ClearItem(DData* data);
    ~ClearItem() override;

    void undo() override;
    void redo() override;

private:
    void repaintAllOnce();

    DData* m_data;
};
