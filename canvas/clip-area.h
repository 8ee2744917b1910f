// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

class QPainter;

// The area, in the painter's current logical coordinates, that painting can still change:
// the bounds of its own clip and of the region the window system asked to repaint. A null
// rectangle when neither limits it.
QRectF clipArea(const QPainter* painter);
