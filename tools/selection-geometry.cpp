// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/selection-geometry.h"

#include "tools/frame-handles.h"

#include <cstdlib>

namespace selection_geometry {

using namespace frame_handles;

QRect initialSelection(const QSize& desktop, double s)
{
    const int side = scaled(300, s);
    return centredOn(QRect(200, 200, side, side),
                     QPoint(desktop.width() / 2, desktop.height() / 2));
}

QRect moved(const QRect& selection, const QPoint& centre, const QSize& desktop)
{
    QRect result = selection;
    const int halfWidth = selection.width() / 2;
    const int halfHeight = selection.height() / 2;
    if (centre.x() - halfWidth >= 0 && centre.x() + halfWidth <= desktop.width())
        result.moveCenter(QPoint(centre.x(), result.center().y()));
    if (centre.y() - halfHeight >= 0 && centre.y() + halfHeight <= desktop.height())
        result.moveCenter(QPoint(result.center().x(), centre.y()));
    return result;
}

QRect resized(const QRect& selection, int mode, const QPoint& cursor, double s)
{
    const double minimum = 10 * s;
    QRect result = selection;
    if (mode == TopLeft || mode == BottomLeft) {
        if (selection.right() > cursor.x() && std::abs(selection.right() - cursor.x()) > minimum)
            result.setLeft(cursor.x());
    } else if (selection.left() < cursor.x() && std::abs(selection.left() - cursor.x()) > minimum) {
        result.setRight(cursor.x());
    }
    if (mode == TopLeft || mode == TopRight) {
        if (selection.bottom() > cursor.y() && std::abs(selection.bottom() - cursor.y()) > minimum)
            result.setTop(cursor.y());
    } else if (selection.top() < cursor.y() && std::abs(selection.top() - cursor.y()) > minimum) {
        result.setBottom(cursor.y());
    }
    return result;
}

QRect keptOnScreen(const QRect& button, const QRect& selection, const QRect& screen)
{
    if (button.bottom() <= screen.bottom())
        return button;
    const int y = button.center().y();
    return centredOn(button, QPoint(button.center().x(), y - 2 * std::abs(selection.bottom() - y)));
}

} // namespace selection_geometry
