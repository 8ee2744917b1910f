// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/timer-logic.h"

#include <QFontMetrics>
#include <QtGlobal>

int nextDigit(int value, int top)
{
    return value >= top ? 0 : value + 1;
}

int previousDigit(int value, int top)
{
    return value <= 0 ? top : value - 1;
}

QTime countdownTarget(int minTen, int minOne, int secTen, int secOne)
{
    return QTime(0, 0, 0).addSecs(600 * minTen + 60 * minOne + 10 * secTen + secOne);
}

QTime countdownRemaining(const QTime& target, int elapsed)
{
    return target.addSecs(-elapsed);
}

bool countdownFinished(const QTime& remaining)
{
    return remaining.minute() == 0 && remaining.second() == 0;
}

QString twoDigits(int value)
{
    return value < 10 ? QStringLiteral("0") + QString::number(value) : QString::number(value);
}

int stopwatchHours(int elapsed)
{
    return (elapsed / 3600) % 60;
}

int stopwatchMinutes(int elapsed)
{
    return (elapsed / 60) % 60;
}

int stopwatchSeconds(int elapsed)
{
    return elapsed % 60;
}

QString stopwatchText(int elapsed)
{
    return twoDigits(stopwatchHours(elapsed)) + QLatin1Char(':') +
           twoDigits(stopwatchMinutes(elapsed)) + QLatin1Char(':') +
           twoDigits(stopwatchSeconds(elapsed));
}

QSize timerNormalSize(double s)
{
    return QSize(qRound(424 * s), qRound(366 * s));
}

QSize timerCompactSize(double s)
{
    return QSize(qRound(265 * s), qRound(132 * s));
}

int stopwatchCompactDigitSide(double s)
{
    return qRound(45 * s);
}

int fitPointSize(QFont font, const QString& text, int limit, const QPaintDevice* device)
{
    auto width = [&font, &text, device] {
        return device ? QFontMetrics(font, device).horizontalAdvance(text)
                      : QFontMetrics(font).horizontalAdvance(text);
    };
    int size = font.pointSize();
    while (size > 1 && width() > limit) {
        --size;
        font.setPointSize(size);
    }
    return size;
}
