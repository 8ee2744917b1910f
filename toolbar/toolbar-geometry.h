// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

// Placement rules of the floating toolbar, its edge strip and its menus, kept free of
// widgets so that they can be checked at any scale factor.
namespace toolbar_geometry {

enum DockSide
{
    DockNone = 0,
    DockTop = 1,
    DockBottom = 2,
    DockLeft = 3,
    DockRight = 4
};

// How a menu hangs off its button: centred-ish below it (size and font size menus,
// tools popup) or to the right of it (pen and control menus).
enum class MenuAnchor
{
    Centre,
    Beside
};

// The canvas lays the toolbar out on its top edge this far from its right edge.
constexpr int rightGap = 50;

int scaled(int px, double s);

// Where the toolbar starts on a screen: on the top edge, rightGap from the right edge.
QPoint startPosition(const QSize& toolbar, const QRect& screen);

// Moves the toolbar rectangle g back onto the screen rectangle: edges closer than
// edgeDistance*s are pulled flush (flush) or to a margin of (edgeDistance + 2)*s.
QRect keepOnScreen(const QRect& g, const QRect& screen, bool flush, double s,
                   int edgeDistance = 10);

// The screen edge the toolbar lies against, or DockNone; d is in logical pixels.
int dockSide(const QRect& g, const QRect& screen, bool horizontal, int d = 10);

// The thin strip left at the edge when the toolbar rectangle g docks on side.
QRect stripRect(const QRect& g, int side, double s, int thickness = 2);

// The tab that hangs from the middle of a strip into the screen, so that the docked
// toolbar can be seen and reached: tabLength*s along the edge (at most the strip's
// length), tabDepth*s deep.
constexpr int tabLength = 72;
constexpr int tabDepth = 16;
QRect tabRect(const QRect& strip, int side, double s);

QPoint bottomCentre(const QRect& globalButton);
QPoint topCentre(const QRect& globalButton);

// Where the top-left corner of a menu of the given size goes; screenBottom is the
// bottom of the screen that holds the normal position (see normalMenuPosition).
QPoint normalMenuPosition(MenuAnchor anchor, const QRect& globalButton, const QSize& menu);
QPoint menuPosition(MenuAnchor anchor, const QRect& globalButton, const QSize& menu,
                    int screenBottom);

} // namespace toolbar_geometry
