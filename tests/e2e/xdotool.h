// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QStringList>
#include <QVector>

// Real pointer input on the test's X display, through xdotool.
namespace xdotool {

bool run(const QStringList& arguments);
// button 1 is the left button, 3 the right one.
bool click(const QPoint& at, int button = 1);
// Presses the left button at the first point, moves through the others and releases.
bool stroke(const QVector<QPoint>& points);

} // namespace xdotool
