// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QUndoCommand>

// Takes the place of a discarded empty text in the history; it changes nothing.
class EmptyItem : public QUndoCommand
{
public:
    EmptyItem();
    ~EmptyItem() override;

    void undo() override;
    void redo() override;
};
