// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "logging/log-categories.h"

Q_LOGGING_CATEGORY(lcApp, "pallo.app", QtInfoMsg)
Q_LOGGING_CATEGORY(lcCanvas, "pallo.canvas", QtInfoMsg)
Q_LOGGING_CATEGORY(lcHost, "pallo.host", QtInfoMsg)
Q_LOGGING_CATEGORY(lcStartup, "pallo.startup", QtInfoMsg)
Q_LOGGING_CATEGORY(lcToolbar, "pallo.toolbar", QtInfoMsg)
Q_LOGGING_CATEGORY(lcTools, "pallo.tools", QtInfoMsg)
