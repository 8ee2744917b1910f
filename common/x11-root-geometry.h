// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

// Where an X window lies on the screen, asked of the X server: a window manager that
// moves the frame it put a window in need not tell the toolkit, whose idea of the
// window's position then stays where the frame was. Null without an X display.
QRect x11RootGeometry(unsigned long window);
