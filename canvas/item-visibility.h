// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

class DData;
class QGraphicsItem;
struct ItemRecord;

// Steps the undo commands share: hiding an item takes the handles off it and its record out
// of the list; showing it puts the record back.
void hideDrawnItem(DData* data, QGraphicsItem* item);
void showDrawnItem(DData* data, const ItemRecord& record, int index);
// Takes the handles off item if they are attached to it.
void detachHandlesFrom(QGraphicsItem* item);
