// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

// The window that holds the X server's keyboard focus, as the server sees it rather
// than as the application believes it; 0 without a display.
unsigned long xInputFocus();
