// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/second-ticker.h"

#include <QObject>
#include <QTimerEvent>

void SecondTicker::start(QObject* owner)
{
    timerId = owner->startTimer(1000, Qt::PreciseTimer);
}

void SecondTicker::stop(QObject* owner)
{
    if (timerId != 0) {
        owner->killTimer(timerId);
        timerId = 0;
    }
}

void SecondTicker::reset(QObject* owner)
{
    stop(owner);
    seconds = 0;
}

bool SecondTicker::count(const QTimerEvent* event)
{
    if (timerId == 0 || event->timerId() != timerId)
        return false;
    ++seconds;
    return true;
}
