// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>

// One category per part of the board. Their debug lines are off unless switched on,
// e.g. QT_LOGGING_RULES="pallo.*.debug=true" (or "pallo.canvas.debug=true" for one
// part); warnings and errors always show.
Q_DECLARE_LOGGING_CATEGORY(lcApp)
Q_DECLARE_LOGGING_CATEGORY(lcCanvas)
Q_DECLARE_LOGGING_CATEGORY(lcHost)
Q_DECLARE_LOGGING_CATEGORY(lcStartup)
Q_DECLARE_LOGGING_CATEGORY(lcToolbar)
Q_DECLARE_LOGGING_CATEGORY(lcTools)
