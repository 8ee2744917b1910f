// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "x-input-focus.h"

#include <X11/Xlib.h>

unsigned long xInputFocus()
{
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr)
        return 0;
    Window focus = 0;
    int revertTo = 0;
    XGetInputFocus(display, &focus, &revertTo);
    XCloseDisplay(display);
    return focus;
}
