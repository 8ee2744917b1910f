// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

// Lets mouse input fall through the window to the windows beneath it, or takes it back.
// Does nothing on a platform without windows of its own (offscreen).
void setMousePassThrough(QWidget* window, bool passThrough);
