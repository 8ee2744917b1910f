// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/item-hover-cursor.h"

#include "canvas/cursor-image.h"
#include "canvas/graphics-view.h"

#include <QApplication>

void ItemHoverCursor::enter()
{
    if (m_shown || pallo::GraphicsView::currentFigure() == "erase")
        return;
    QApplication::setOverrideCursor(cursorFromImage(":/images/move.png", 32));
    m_shown = true;
}

void ItemHoverCursor::leave()
{
    if (!m_shown)
        return;
    QApplication::restoreOverrideCursor();
    m_shown = false;
}
