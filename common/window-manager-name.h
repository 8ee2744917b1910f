// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The name the running X window manager gives itself on its check window
// (_NET_SUPPORTING_WM_CHECK), e.g. "Openbox" or "Weston WM"; empty without an X display
// or a window manager that names itself.
QString x11WindowManagerName();
