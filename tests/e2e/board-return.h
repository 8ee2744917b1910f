// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <functional>

class E2eBoard;
class X11Probe;

// Brings a docked toolbar out by resting the pointer, moved with moveTo, on its strip: true
// once the toolbar, as toolbarRect reads it, has its full size.
bool revealDockedToolbar(const std::function<QRect()>& toolbarRect, const QSize& full,
                         const std::function<bool(const QPoint&)>& moveTo);
// Sends show_or_hide and waits until the board's canvas and toolbar windows are back: what
// went wrong, or nothing.
QString showOrHideBringsWindowsBack(E2eBoard& board, const X11Probe& probe);
