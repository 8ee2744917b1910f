// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

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
// Shows a tool that covers the screen (the magnifier, the screenshot overlay) full screen
// above the canvas.
void showToolOverScreen(QWidget* tool);

} // namespace window_layering
