// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/empty-item.h"

EmptyItem::EmptyItem()
{
    setText(QStringLiteral("empty text"));
}

EmptyItem::~EmptyItem() = default;

void EmptyItem::redo() {}

void EmptyItem::undo() {}
