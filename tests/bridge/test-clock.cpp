// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/clock.h"

#include <QDateTime>
#include <QtTest>

#include <cstdlib>
#include <ctime>

class TestClock : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void patterns_data();
    void patterns();
    void nowIsTheLocalTime();
    void longResultsAreNotCut();
};

void TestClock::initTestCase()
{
    qputenv("TZ", "UTC");
    tzset();
}

void TestClock::patterns_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("expected");

    QTest::newRow("screenshot name") << "%Y-%m-%d-%H-%M-%S"
                                     << "2024-05-01-13-45-07";
    QTest::newRow("log stamp") << "%m%d-%H:%M:%S"
                               << "0501-13:45:07";
    QTest::newRow("plain text") << "at noon"
                                << "at noon";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("empty result") << "%p"
                                  << "PM";
}

void TestClock::patterns()
{
    QFETCH(QString, pattern);
    QFETCH(QString, expected);
    // 1 May 2024, 13:45:07 UTC.
    const std::time_t when = 1714571107;
    QCOMPARE(QString::fromStdString(bg::Clock().format(pattern.toStdString(), when)), expected);
}

void TestClock::nowIsTheLocalTime()
{
    const QString before = QDateTime::currentDateTime().toString("yyyy-MM-dd");
    const QString now = QString::fromStdString(bg::Clock().format("%Y-%m-%d"));
    const QString after = QDateTime::currentDateTime().toString("yyyy-MM-dd");
    QVERIFY(now == before || now == after);
}

void TestClock::longResultsAreNotCut()
{
    const std::string pattern(500, 'x');
    QCOMPARE(bg::Clock().format(pattern + "%Y", 1714571107), pattern + "2024");
}

QTEST_APPLESS_MAIN(TestClock)
#include "test-clock.moc"
