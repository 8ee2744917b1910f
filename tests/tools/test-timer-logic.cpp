// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/timer-logic.h"

#include <QFontMetrics>
#include <QtTest>

// The clocks' arithmetic: digit stepping, the countdown's time-of-day wrap, the
// stopwatch's fields and the window sizes.
class TestTimerLogic : public QObject
{
    Q_OBJECT
private slots:
    void stepping_data();
    void stepping();
    void longestCountdownIs5959();
    void target_data();
    void target();
    void remainingWrapsPastMidnight();
    void fromZeroEndsAfterOneHour();
    void fiveMinutesEndAfter300Seconds();
    void stopwatch_data();
    void stopwatch();
    void hoursWrapAfter60Hours();
    void sizes_data();
    void sizes();
    void fitting();
};

void TestTimerLogic::stepping_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("next");
    QTest::addColumn<int>("previous");
    QTest::newRow("tens at 0") << 0 << tensDigitTop << 1 << 5;
    QTest::newRow("tens at 5") << 5 << tensDigitTop << 0 << 4;
    QTest::newRow("tens at 3") << 3 << tensDigitTop << 4 << 2;
    QTest::newRow("ones at 0") << 0 << onesDigitTop << 1 << 9;
    QTest::newRow("ones at 9") << 9 << onesDigitTop << 0 << 8;
    QTest::newRow("ones at 5") << 5 << onesDigitTop << 6 << 4;
}

void TestTimerLogic::stepping()
{
    QFETCH(int, value);
    QFETCH(int, top);
    QFETCH(int, next);
    QFETCH(int, previous);
    QCOMPARE(nextDigit(value, top), next);
    QCOMPARE(previousDigit(value, top), previous);
}

void TestTimerLogic::longestCountdownIs5959()
{
    QCOMPARE(previousDigit(0, tensDigitTop), 5);
    QCOMPARE(previousDigit(0, onesDigitTop), 9);
    QCOMPARE(countdownTarget(5, 9, 5, 9), QTime(0, 59, 59));
}

void TestTimerLogic::target_data()
{
    QTest::addColumn<QList<int>>("digits");
    QTest::addColumn<QTime>("expected");
    QTest::newRow("05:00") << QList<int>{0, 5, 0, 0} << QTime(0, 5, 0);
    QTest::newRow("00:00") << QList<int>{0, 0, 0, 0} << QTime(0, 0, 0);
    QTest::newRow("12:34") << QList<int>{1, 2, 3, 4} << QTime(0, 12, 34);
    QTest::newRow("00:01") << QList<int>{0, 0, 0, 1} << QTime(0, 0, 1);
}

void TestTimerLogic::target()
{
    QFETCH(QList<int>, digits);
    QFETCH(QTime, expected);
    QCOMPARE(countdownTarget(digits[0], digits[1], digits[2], digits[3]), expected);
}

void TestTimerLogic::remainingWrapsPastMidnight()
{
    const QTime zero = countdownTarget(0, 0, 0, 0);
    const QTime afterOne = countdownRemaining(zero, 1);
    QCOMPARE(afterOne, QTime(23, 59, 59));
    QCOMPARE(afterOne.minute(), 59);
    QCOMPARE(afterOne.second(), 59);
    QVERIFY(!countdownFinished(afterOne));
    QCOMPARE(countdownRemaining(QTime(0, 5, 0), 61), QTime(0, 3, 59));
}

void TestTimerLogic::fromZeroEndsAfterOneHour()
{
    const QTime zero = countdownTarget(0, 0, 0, 0);
    int ticks = 0;
    do {
        ++ticks;
    } while (!countdownFinished(countdownRemaining(zero, ticks)) && ticks < 10000);
    QCOMPARE(ticks, 3600);
}

void TestTimerLogic::fiveMinutesEndAfter300Seconds()
{
    const QTime five = countdownTarget(0, 5, 0, 0);
    QVERIFY(!countdownFinished(countdownRemaining(five, 299)));
    QVERIFY(countdownFinished(countdownRemaining(five, 300)));
    QCOMPARE(countdownRemaining(five, 299), QTime(0, 0, 1));
}

void TestTimerLogic::stopwatch_data()
{
    QTest::addColumn<int>("elapsed");
    QTest::addColumn<QString>("text");
    QTest::newRow("start") << 0 << "00:00:00";
    QTest::newRow("59 s") << 59 << "00:00:59";
    QTest::newRow("60 s") << 60 << "00:01:00";
    QTest::newRow("1 h 1 s") << 3601 << "01:00:01";
    QTest::newRow("10 h 10 m 10 s") << 36610 << "10:10:10";
    QTest::newRow("59:59:59") << 60 * 3600 - 1 << "59:59:59";
    QTest::newRow("60 h") << 60 * 3600 << "00:00:00";
    QTest::newRow("61 h") << 61 * 3600 + 5 << "01:00:05";
}

void TestTimerLogic::stopwatch()
{
    QFETCH(int, elapsed);
    QFETCH(QString, text);
    QCOMPARE(stopwatchText(elapsed), text);
}

void TestTimerLogic::hoursWrapAfter60Hours()
{
    QCOMPARE(stopwatchHours(60 * 3600 - 1), 59);
    QCOMPARE(stopwatchHours(60 * 3600), 0);
    QCOMPARE(twoDigits(stopwatchHours(60 * 3600)), QString("00"));
    QCOMPARE(twoDigits(7), QString("07"));
    QCOMPARE(twoDigits(42), QString("42"));
}

void TestTimerLogic::sizes_data()
{
    QTest::addColumn<double>("s");
    QTest::addColumn<QSize>("normal");
    QTest::addColumn<QSize>("compact");
    QTest::addColumn<int>("side");
    QTest::newRow("96 dpi") << 1.0 << QSize(424, 366) << QSize(265, 132) << 45;
    QTest::newRow("120 dpi") << 1.25 << QSize(530, 458) << QSize(331, 165) << 56;
    QTest::newRow("144 dpi") << 1.5 << QSize(636, 549) << QSize(398, 198) << 68;
    QTest::newRow("192 dpi") << 2.0 << QSize(848, 732) << QSize(530, 264) << 90;
}

void TestTimerLogic::sizes()
{
    QFETCH(double, s);
    QFETCH(QSize, normal);
    QFETCH(QSize, compact);
    QFETCH(int, side);
    QCOMPARE(timerNormalSize(s), normal);
    QCOMPARE(timerCompactSize(s), compact);
    QCOMPARE(stopwatchCompactDigitSide(s), side);
}

void TestTimerLogic::fitting()
{
    const QFont font(QStringLiteral("Arial"), 50, QFont::Bold);
    const int wide = QFontMetrics(font).horizontalAdvance(QStringLiteral("00"));
    // Room enough: the size stays.
    QCOMPARE(fitPointSize(font, QStringLiteral("00"), wide), 50);
    // Less room: the largest size that fits.
    const int limit = wide / 2;
    const int fitted = fitPointSize(font, QStringLiteral("00"), limit);
    QVERIFY(fitted < 50);
    QFont check = font;
    check.setPointSize(fitted);
    QVERIFY(QFontMetrics(check).horizontalAdvance(QStringLiteral("00")) <= limit);
    check.setPointSize(fitted + 1);
    QVERIFY(QFontMetrics(check).horizontalAdvance(QStringLiteral("00")) > limit);
    // No room at all never gives a size below 1.
    QCOMPARE(fitPointSize(font, QStringLiteral("00"), -5), 1);
}

QTEST_MAIN(TestTimerLogic)
#include "test-timer-logic.moc"
