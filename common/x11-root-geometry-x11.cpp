// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/x11-root-geometry.h"

#include "common/x11-display.h"

#include <X11/Xlib.h>

QRect x11RootGeometry(unsigned long window)
{
    Display* display = x11Display();
    XWindowAttributes attributes;
    if (!display || window == 0 || !XGetWindowAttributes(display, window, &attributes))
        return QRect();
    int x = 0;
    int y = 0;
    ::Window child = 0;
    if (!XTranslateCoordinates(display, window, attributes.root, 0, 0, &x, &y, &child))
        return QRect();
    return QRect(x, y, attributes.width, attributes.height);
}
