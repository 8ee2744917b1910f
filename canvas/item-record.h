// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/stroke-record.h"

#include <QPointF>

// A drawn item as the drawing data keeps it: its stroke, and where the item stands.
struct ItemRecord : StrokeRecord
{
    ItemRecord() = default;
    explicit ItemRecord(const StrokeRecord& stroke) : StrokeRecord(stroke) {}

    QPointF pos;
    int spareNumber = 0;
};
