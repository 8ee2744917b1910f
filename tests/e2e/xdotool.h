// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>
#include <QStringList>
#include <QVector>

// Real pointer input on the test's X display, through xdotool; or on another X display,
// when one is given.
namespace xdotool {

bool run(const QStringList& arguments, const QString& display = QString());
// button 1 is the left button, 3 the right one.
bool click(const QPoint& at, int button = 1, const QString& display = QString());
// Presses the left button at the first point, moves through the others and releases.
bool stroke(const QVector<QPoint>& points, const QString& display = QString());

} // namespace xdotool
