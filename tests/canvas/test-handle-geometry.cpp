// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/handle-geometry.h"

#include <QtTest>
#include <cmath>

class TestHandleGeometry : public QObject
{
    Q_OBJECT

private slots:
    void handleCodes_data();
    void handleCodes();
    void rotationAngles_data();
    void rotationAngles();
    void extentIsClamped_data();
    void extentIsClamped();
    void proportionalFactorTakesTheLargerAxis_data();
    void proportionalFactorTakesTheLargerAxis();
    void straightLineKeepsItsThinAxis();
};

void TestHandleGeometry::handleCodes_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("code");
    // Frame 100 by 60 centred on the origin.
    QTest::newRow("bottom-right corner") << QPointF(50, 30) << 1;
    QTest::newRow("bottom-left corner") << QPointF(-50, 30) << 2;
    QTest::newRow("top-left corner") << QPointF(-50, -30) << 3;
    QTest::newRow("top-right corner") << QPointF(50, -30) << 4;
    QTest::newRow("rotation handle") << QPointF(0, -50) << 5;
    QTest::newRow("edge of rotation square") << QPointF(4.9, -54.9) << 5;
    QTest::newRow("between top edge and rotation handle") << QPointF(0, -44) << -1;
    QTest::newRow("corner square outside the outline") << QPointF(54, 34) << 1;
    QTest::newRow("corner square on the outline") << QPointF(48, 28) << 1;
    QTest::newRow("top edge") << QPointF(0, -30) << 0;
    QTest::newRow("within 2.5 of the right edge") << QPointF(52.4, 0) << 0;
    QTest::newRow("just beyond the stroke") << QPointF(53, 0) << -1;
    QTest::newRow("interior") << QPointF(0, 0) << -1;
}

void TestHandleGeometry::handleCodes()
{
    QFETCH(QPointF, point);
    QFETCH(int, code);
    QPainterPath outline;
    outline.addRect(-50, -30, 100, 60);
    QCOMPARE(handles::handleCodeAt(point, outline.boundingRect(), outline), code);
}

void TestHandleGeometry::rotationAngles_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<double>("degrees");
    QTest::newRow("above") << QPointF(0, -10) << 0.0;
    QTest::newRow("upper right") << QPointF(10, -10) << 45.0;
    QTest::newRow("right") << QPointF(10, 0) << 90.0;
    QTest::newRow("lower right") << QPointF(10, 10) << 135.0;
    QTest::newRow("below") << QPointF(0, 10) << 180.0;
    QTest::newRow("lower left") << QPointF(-10, 10) << 225.0;
    QTest::newRow("left") << QPointF(-10, 0) << -90.0;
    QTest::newRow("upper left") << QPointF(-10, -10) << -45.0;
}

void TestHandleGeometry::rotationAngles()
{
    QFETCH(QPointF, point);
    QFETCH(double, degrees);
    const float a = handles::rotationAngle(point.x(), point.y());
    // Single precision with pi as 3.1415926: close to the exact angle, not equal to it.
    QVERIFY2(std::abs(a - degrees) < 1e-4, qPrintable(QString::number(a, 'g', 10)));
    const float expected =
        std::asin(float(point.x()) /
                  std::sqrt(float(point.x() * point.x() + point.y() * point.y()))) *
        180.0f / 3.1415926f;
    QCOMPARE(a, point.y() > 0 ? 180.0f - expected : expected);
}

void TestHandleGeometry::extentIsClamped_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QPointF>("d");
    QTest::addColumn<QPointF>("clamped");
    QTest::newRow("1 free") << 1 << QPointF(40, 30) << QPointF(40, 30);
    QTest::newRow("1 crossed") << 1 << QPointF(-40, 3) << QPointF(10, 10);
    QTest::newRow("2 free") << 2 << QPointF(-40, 30) << QPointF(-40, 30);
    QTest::newRow("2 crossed") << 2 << QPointF(40, -3) << QPointF(-10, 10);
    QTest::newRow("3 free") << 3 << QPointF(-40, -30) << QPointF(-40, -30);
    QTest::newRow("3 crossed") << 3 << QPointF(-5, 30) << QPointF(-10, -10);
    QTest::newRow("4 free") << 4 << QPointF(40, -30) << QPointF(40, -30);
    QTest::newRow("4 crossed") << 4 << QPointF(2, 30) << QPointF(10, -10);
}

void TestHandleGeometry::extentIsClamped()
{
    QFETCH(int, code);
    QFETCH(QPointF, d);
    QFETCH(QPointF, clamped);
    QCOMPARE(handles::clampExtent(code, d), clamped);
}

void TestHandleGeometry::proportionalFactorTakesTheLargerAxis_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QPointF>("d");
    QTest::addColumn<qreal>("factor");
    // A 100 by 50 rectangle.
    QTest::newRow("1 width") << 1 << QPointF(200, 60) << 2.0;
    QTest::newRow("1 height") << 1 << QPointF(110, 75) << 1.5;
    QTest::newRow("2 width") << 2 << QPointF(-150, 50) << 1.5;
    QTest::newRow("2 height") << 2 << QPointF(-50, 100) << 2.0;
    QTest::newRow("3 width") << 3 << QPointF(-300, -50) << 3.0;
    QTest::newRow("3 height") << 3 << QPointF(-100, -60) << 1.2;
    QTest::newRow("4 width") << 4 << QPointF(80, -20) << 0.8;
    QTest::newRow("4 height") << 4 << QPointF(50, -45) << 0.9;
}

void TestHandleGeometry::proportionalFactorTakesTheLargerAxis()
{
    QFETCH(int, code);
    QFETCH(QPointF, d);
    QFETCH(qreal, factor);
    const QRectF rect(0, 0, 100, 50);
    const QPointF grabbed = handles::grabbedCorner(code, rect);
    const QPointF anchor = handles::anchorCorner(code, rect);
    const qreal slope = (grabbed.y() - anchor.y()) / (grabbed.x() - anchor.x());
    QCOMPARE(handles::proportionalFactor(d, rect.size(), slope, handles::scaleDirection(code)),
             factor);
}

void TestHandleGeometry::straightLineKeepsItsThinAxis()
{
    // A horizontal line has no height: that axis keeps its size instead of dividing by zero.
    QCOMPARE(handles::axisFactor(40, 0), 1.0);
    QCOMPARE(handles::axisFactor(40, 80), 0.5);
}

QTEST_MAIN(TestHandleGeometry)
#include "test-handle-geometry.moc"
