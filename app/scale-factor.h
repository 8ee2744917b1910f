// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

// The primary screen's logical DPI over 96: how much larger than designed the
// board's pixel sizes are drawn.
double screenScaleFactor();
