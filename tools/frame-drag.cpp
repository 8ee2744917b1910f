// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/frame-drag.h"

#include "common/event-position.h"

#include <QMouseEvent>
#include <QWidget>

void FrameDrag::press(const QRect& frame, const QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    pressed = true;
    pressCentre = frame.center();
    dragOffset = event_position::global(event) - frame.center();
}

void FrameDrag::hover(QWidget* tool, const QRect& frame, const QPoint& cursor)
{
    dragMode = frame_handles::hoverMode(frame, cursor, frame_handles::scale());
    tool->setCursor(frame_handles::cursorForMode(dragMode));
}
