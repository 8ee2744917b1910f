// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

// The families that stand in for "微软雅黑" where it is not installed, best first.
QStringList cjkFallbackFamilies();

// Lets texts asking for "微软雅黑" render with a CJK font present on this system.
void installFontFallbacks();
