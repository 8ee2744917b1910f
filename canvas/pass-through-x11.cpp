// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/pass-through.h"

#include "common/x11-display.h"

#include <QGuiApplication>
#include <QWidget>

#include <X11/Xlib.h>
#include <X11/extensions/shape.h>

namespace {

} // namespace

void setMousePassThrough(QWidget* window, bool passThrough)
{
    if (!window || QGuiApplication::platformName() != QLatin1String("xcb"))
        return;
    Display* display = x11Display();
    if (!display)
        return;
    const auto id = static_cast<::Window>(window->winId());
    if (passThrough) {
        // An empty input shape: the window is still drawn but takes no pointer input.
        XShapeCombineRectangles(display, id, ShapeInput, 0, 0, nullptr, 0, ShapeSet, Unsorted);
    } else {
        XShapeCombineMask(display, id, ShapeInput, 0, 0, None, ShapeSet);
    }
    XFlush(display);
}
