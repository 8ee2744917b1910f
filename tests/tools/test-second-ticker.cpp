// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/second-ticker.h"

#include <QTimerEvent>
#include <QtTest>

class TestSecondTicker : public QObject
{
    Q_OBJECT
private slots:
    void countsOnlyItsOwnTimer();
    void stopKeepsTheCountAndResetForgetsIt();
    void stoppedTickerCountsNothing();
};

void TestSecondTicker::countsOnlyItsOwnTimer()
{
    QObject owner;
    SecondTicker ticker;
    ticker.start(&owner);
    QVERIFY(ticker.id() != 0);
    QTimerEvent own(ticker.id());
    QTimerEvent other(ticker.id() + 1);
    QVERIFY(ticker.count(&own));
    QVERIFY(ticker.count(&own));
    QVERIFY(!ticker.count(&other));
    QCOMPARE(ticker.elapsed(), 2);
}

void TestSecondTicker::stopKeepsTheCountAndResetForgetsIt()
{
    QObject owner;
    SecondTicker ticker;
    ticker.start(&owner);
    QTimerEvent own(ticker.id());
    QVERIFY(ticker.count(&own));
    ticker.stop(&owner);
    QCOMPARE(ticker.id(), 0);
    QCOMPARE(ticker.elapsed(), 1);
    ticker.start(&owner);
    QTimerEvent again(ticker.id());
    QVERIFY(ticker.count(&again));
    QCOMPARE(ticker.elapsed(), 2);
    ticker.reset(&owner);
    QCOMPARE(ticker.id(), 0);
    QCOMPARE(ticker.elapsed(), 0);
    ticker.reset(&owner);
    QCOMPARE(ticker.elapsed(), 0);
}

void TestSecondTicker::stoppedTickerCountsNothing()
{
    SecondTicker ticker;
    QTimerEvent zero(0);
    QVERIFY(!ticker.count(&zero));
    QCOMPARE(ticker.elapsed(), 0);
}

QTEST_MAIN(TestSecondTicker)
#include "test-second-ticker.moc"
