// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

// How the magnifier's lens starts, moves and resizes, and how the wheel steps the
// zoom factor.
namespace lens_geometry {

// trunc(408*s) x trunc(329*s), centred on the desktop.
QRect initialLens(const QSize& desktop, double s);

// Moves the lens centre to centre, each axis only while it stays within 0..desktop.
QRect moved(const QRect& lens, const QPoint& centre, const QSize& desktop);

// Resizes the lens symmetrically about pressCentre while corner mode is dragged to
// cursor; mirrored is the cursor mirrored about pressCentre. An axis changes only while
// twice the cursor's distance from pressCentre lies between 200*s and the desktop size,
// and the cursor stays on the dragged corner's side of pressCentre.
QRect resized(const QRect& lens, int mode, const QPoint& cursor, const QPoint& pressCentre,
              const QPoint& mirrored, const QSize& desktop, double s);

// The wheel's step: the factor grows by 0.2 while it is at most 4.0 (delta > 0) and
// shrinks by 0.2 while it is at least 1.0 (otherwise). Tested before stepping, in
// float, so the ends land just past 4.0 and 1.0.
float zoomStep(float factor, int delta);

// The single-number wheel delta: the larger of the two axes of angleDelta.
int classicDelta(const QPoint& angleDelta);

} // namespace lens_geometry
