// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QPointF>

// Side of the arrow head for a pen width.
int arrowHeadSize(int penWidth);

// A filled arrow from tail to head: a shaft widening from nothing at the tail to half the
// head size, and an equilateral head. Empty when tail and head coincide.
QPainterPath arrowPath(const QPointF& tail, const QPointF& head, int penWidth);
