// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

// How the screenshot selection starts, moves and resizes, and where its buttons go.
namespace selection_geometry {

// A square of side trunc(300*s), centred on the desktop.
QRect initialSelection(const QSize& desktop, double s);

// Moves the selection centre to centre, each axis only while the whole selection stays
// on the desktop.
QRect moved(const QRect& selection, const QPoint& centre, const QSize& desktop);

// Drags corner mode to cursor with the opposite corner fixed. An axis changes only while
// the cursor stays on the inner side of the fixed edge and more than 10*s away from it.
QRect resized(const QRect& selection, int mode, const QPoint& cursor, double s);

// A button that would reach below the screen's bottom is mirrored about the selection's
// bottom edge, into the selection.
QRect keptOnScreen(const QRect& button, const QRect& selection, const QRect& screen);

} // namespace selection_geometry
