// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QtGlobal>

// The argument of QWidget::enterEvent, which Qt 6 narrowed to the event that carries
// the pointer's position.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#include <QEnterEvent>
using EnterEvent = QEnterEvent;
#else
using EnterEvent = QEvent;
#endif
