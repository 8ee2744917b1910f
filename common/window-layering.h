// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <Qt>

class QWidget;

// How the board's windows are made so that the canvas lies over the desktop and the
// toolbar, its strip and the tool windows lie over the canvas, whatever window manager
// or compositor runs.
namespace window_layering {

// The canvas: a frameless tool window that stays on top.
Qt::WindowFlags canvasFlags();
// The toolbar and its edge strip.
Qt::WindowFlags overCanvasFlags();
// Shows the canvas over the whole of the screen it is on, without the full-screen state.
void showCanvasOverScreen(QWidget* canvas);
// The part of the screen rectangle that the canvas covers where a compositor keeps the
// canvas out of a panel of its own; the whole screen elsewhere. The toolbar lies and
// docks within it, where the pointer can reach it.
QRect canvasArea(const QWidget* canvas, const QRect& screen);
// Tells the toolkit where the canvas really lies, where a compositor has moved it without
// saying so; called on each press, before the scene looks for the items under it.
void followCanvasFrame(QWidget* canvas);
// Shows a tool that covers the screen (the magnifier, the screenshot overlay) over the whole
// screen above the canvas.
void showToolOverScreen(QWidget* tool);

} // namespace window_layering
