// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

class QObject;
class QTimerEvent;

// A clock's one-second timer, started on the widget that shows the clock, and the
// seconds it has counted since the last reset.
class SecondTicker
{
public:
    void start(QObject* owner);
    // Stops the timer and keeps the count, as a paused stopwatch does.
    void stop(QObject* owner);
    // Stops the timer and forgets the count.
    void reset(QObject* owner);
    // Counts one second when event is this ticker's own; false for any other timer.
    bool count(const QTimerEvent* event);

    // Id of the timer while it runs, 0 otherwise.
    int id() const { return timerId; }
    int elapsed() const { return seconds; }

private:
    int timerId = 0;
    int seconds = 0;
};
