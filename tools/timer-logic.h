// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QSize>
#include <QString>
#include <QTime>

class QPaintDevice;

// The arithmetic behind the timer window's two clocks and its sizes, kept apart
// from the widgets so that it can be checked without waiting for real seconds.

// Highest value of a countdown digit: 5 for the tens of minutes and seconds,
// 9 for the ones.
constexpr int tensDigitTop = 5;
constexpr int onesDigitTop = 9;

// One step up from value, wrapping past top to 0.
int nextDigit(int value, int top);
// One step down from value, wrapping below 0 to top.
int previousDigit(int value, int top);

// Midnight plus the minutes and seconds the four digits spell.
QTime countdownTarget(int minTen, int minOne, int secTen, int secOne);
// What is left after elapsed seconds, as time of day: counting down from 00:00
// wraps to 23:59:59, so the minutes and seconds read 59:59.
QTime countdownRemaining(const QTime& target, int elapsed);
// The countdown ends when the minutes and seconds of remaining are both 0.
bool countdownFinished(const QTime& remaining);

// Two-digit text of a clock field.
QString twoDigits(int value);
// The stopwatch's hours, minutes and seconds fields after elapsed seconds. The
// hours wrap at 60 like the other two fields.
int stopwatchHours(int elapsed);
int stopwatchMinutes(int elapsed);
int stopwatchSeconds(int elapsed);
// "hh:mm:ss" as the stopwatch shows it.
QString stopwatchText(int elapsed);

// Window sizes of the timer window for scale factor s.
QSize timerNormalSize(double s);
QSize timerCompactSize(double s);
// Smallest side of a stopwatch digit label in the compact look.
int stopwatchCompactDigitSide(double s);

// The point size, starting at font's own, lowered by 1 while text set in the font
// is wider than limit pixels on device (the default screen when null). Never below 1.
int fitPointSize(QFont font, const QString& text, int limit, const QPaintDevice* device = nullptr);
