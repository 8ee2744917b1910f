// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/arrow-path.h"

#include <QtTest>

class TestArrowPath : public QObject
{
    Q_OBJECT

private slots:
    void headSize_data();
    void headSize();
    void headIsEquilateral_data();
    void headIsEquilateral();
    void shaftStartsAtTail();
    void emptyWhenTailIsHead();
};

void TestArrowPath::headSize_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("size");
    QTest::newRow("1") << 1 << 10;
    QTest::newRow("2") << 2 << 10;
    QTest::newRow("3") << 3 << 20;
    QTest::newRow("6") << 6 << 30;
    QTest::newRow("9") << 9 << 10;
}

void TestArrowPath::headSize()
{
    QFETCH(int, width);
    QTEST(arrowHeadSize(width), "size");
}

void TestArrowPath::headIsEquilateral_data()
{
    headSize_data();
}

void TestArrowPath::headIsEquilateral()
{
    QFETCH(int, width);
    QFETCH(int, size);
    const QPointF head(200, 40);
    const QPainterPath path = arrowPath(QPointF(10, 140), head, width);
    QCOMPARE(path.elementCount(), 7);
    const QPointF outer1 = path.elementAt(2);
    const QPointF outer2 = path.elementAt(4);
    QCOMPARE(QPointF(path.elementAt(3)), head);
    QVERIFY(qAbs(QLineF(outer1, outer2).length() - size) < 1e-9);
    QVERIFY(qAbs(QLineF(outer1, head).length() - size) < 1e-9);
    QVERIFY(qAbs(QLineF(outer2, head).length() - size) < 1e-9);
    const QPointF inner1 = path.elementAt(1);
    const QPointF inner2 = path.elementAt(5);
    QVERIFY(qAbs(QLineF(inner1, inner2).length() - size / 2.0) < 1e-9);
}

void TestArrowPath::shaftStartsAtTail()
{
    const QPainterPath path = arrowPath(QPointF(0, 0), QPointF(100, 0), 1);
    QCOMPARE(QPointF(path.elementAt(0)), QPointF(0, 0));
    QCOMPARE(QPointF(path.elementAt(6)), QPointF(0, 0));
    QVERIFY(path.contains(QPointF(99, 0)));
    QVERIFY(!path.contains(QPointF(50, 4)));
}

void TestArrowPath::emptyWhenTailIsHead()
{
    QVERIFY(arrowPath(QPointF(5, 5), QPointF(5, 5), 3).isEmpty());
}

QTEST_GUILESS_MAIN(TestArrowPath)
#include "test-arrow-path.moc"
