// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

typedef struct _XDisplay Display;

// The toolkit's own connection to the X server, or null when the board does not run on
// X11 (the offscreen platform of the tests).
Display* x11Display();
