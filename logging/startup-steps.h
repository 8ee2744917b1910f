// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

// Logs how long after the board's start a step of its start-up was reached, under the
// category "pallo.startup" (QT_LOGGING_RULES="pallo.startup.debug=true"). The first call
// starts the clock.
void markStartupStep(const char* step);
