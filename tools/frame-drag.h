// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/frame-handles.h"

#include <QPoint>
#include <QRect>

class QMouseEvent;
class QWidget;

// The press-and-drag state both full-screen tools keep for their rectangle.
struct FrameDrag
{
    bool pressed = false;
    // What the next drag does; see frame_handles::DragMode.
    int dragMode = frame_handles::Move;
    // Cursor minus the rectangle's centre at the press.
    QPoint dragOffset;
    // The rectangle's centre at the press.
    QPoint pressCentre;

    // A left press grips frame; other buttons leave the state alone.
    void press(const QRect& frame, const QMouseEvent* event);
    // With no button down, the corner under the cursor picks the next drag and the
    // tool's cursor.
    void hover(QWidget* tool, const QRect& frame, const QPoint& cursor);
};
