// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "logging/startup-steps.h"

#include "logging/log-categories.h"

#include <QElapsedTimer>

void markStartupStep(const char* step)
{
    static QElapsedTimer clock;
    if (!lcStartup().isDebugEnabled())
        return;
    if (!clock.isValid())
        clock.start();
    qCDebug(lcStartup, "%7.1f ms  %s", clock.nsecsElapsed() / 1e6, step);
}
