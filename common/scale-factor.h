// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

// The primary screen's logical DPI over 96: how much larger than designed the
// board's pixel sizes are drawn. Whatever scaling Qt applies itself, this is the
// screen's own DPI, not the one left after Qt's scaling.
double screenScaleFactor();

// The board scales its pixel sizes by screenScaleFactor() itself, as Qt 5 leaves windows
// unscaled; this keeps Qt 6 from scaling them a second time. To be called before the
// application object is made; a QT_ENABLE_HIGHDPI_SCALING the user set still holds.
void leaveScalingToTheBoard();
