// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Multiplies every size written as digits directly followed by "px;" by factor.
// Sizes followed by a blank or by "px" without the semicolon keep their value, and
// so does everything when factor is 1.0 or less.
QString scaleStyleSheet(const QString& styleSheet, double factor);

// Sets the scaled stylesheet at path on the application. A file that cannot be
// read sets nothing and returns false.
bool applyStyleSheetFile(const QString& path, double factor);

// The board's own stylesheet, scaled for the primary screen.
bool loadApplicationStyleSheet();
