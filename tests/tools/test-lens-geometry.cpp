// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/lens-geometry.h"

#include <QtTest>

using namespace lens_geometry;

namespace {
const QSize desktop(1920, 1080);
// left 757, right 1164, top 376, bottom 704, centre (960, 540).
const QRect lens(757, 376, 408, 329);
QRect span(int left, int top, int right, int bottom)
{
    return QRect(QPoint(left, top), QPoint(right, bottom));
}
} // namespace

class TestLensGeometry : public QObject
{
    Q_OBJECT
private slots:
    void initial_data();
    void initial();
    void move_data();
    void move();
    void resize_data();
    void resize();
    void wheelTenUpEndsJustAboveFour();
    void wheelFiveDownEndsJustBelowOne();
    void wheelZeroDeltaZoomsOut();
    void classic_data();
    void classic();
};

void TestLensGeometry::initial_data()
{
    QTest::addColumn<double>("s");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("96 dpi") << 1.0 << lens;
    QTest::newRow("100 dpi") << 100 / 96.0 << QRect(748, 370, 425, 342);
    QTest::newRow("192 dpi") << 2.0 << QRect(553, 212, 816, 658);
}

void TestLensGeometry::initial()
{
    QFETCH(double, s);
    QFETCH(QRect, expected);
    const QRect r = initialLens(desktop, s);
    QCOMPARE(r, expected);
    QCOMPARE(r.center(), QPoint(960, 540));
}

void TestLensGeometry::move_data()
{
    QTest::addColumn<QPoint>("centre");
    QTest::addColumn<QPoint>("result");
    QTest::newRow("inside") << QPoint(1000, 600) << QPoint(1000, 600);
    QTest::newRow("to the origin") << QPoint(0, 0) << QPoint(0, 0);
    QTest::newRow("to the far corner") << QPoint(1920, 1080) << QPoint(1920, 1080);
    QTest::newRow("left of the desktop: x refused") << QPoint(-1, 600) << QPoint(960, 600);
    QTest::newRow("right of the desktop: x refused") << QPoint(1921, 600) << QPoint(960, 600);
    QTest::newRow("above the desktop: y refused") << QPoint(500, -1) << QPoint(500, 540);
    QTest::newRow("below the desktop: y refused") << QPoint(500, 1081) << QPoint(500, 540);
    QTest::newRow("both refused") << QPoint(-5, 2000) << QPoint(960, 540);
}

void TestLensGeometry::move()
{
    QFETCH(QPoint, centre);
    QFETCH(QPoint, result);
    const QRect r = moved(lens, centre, desktop);
    QCOMPARE(r.center(), result);
    QCOMPARE(r.size(), lens.size());
}

void TestLensGeometry::resize_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QPoint>("cursor");
    QTest::addColumn<double>("s");
    QTest::addColumn<QRect>("expected");
    const double s100 = 100 / 96.0;
    // Press centre (960, 540); the mirrored point is 2 * centre - cursor.
    QTest::newRow("0 grows") << 0 << QPoint(700, 400) << 1.0 << span(700, 400, 1220, 680);
    QTest::newRow("0 across the centre: no flip") << 0 << QPoint(1220, 680) << 1.0 << lens;
    QTest::newRow("0 x across, y follows")
        << 0 << QPoint(1220, 400) << 1.0 << span(757, 400, 1164, 680);
    QTest::newRow("1 grows") << 1 << QPoint(700, 700) << 1.0 << span(700, 380, 1220, 700);
    QTest::newRow("1 y across, x follows")
        << 1 << QPoint(700, 400) << 1.0 << span(700, 376, 1220, 704);
    QTest::newRow("2 grows") << 2 << QPoint(1200, 750) << 1.0 << span(720, 330, 1200, 750);
    QTest::newRow("2 shrinks to the minimum width")
        << 2 << QPoint(1060, 750) << 1.0 << span(860, 330, 1060, 750);
    QTest::newRow("2 below the minimum width: y still follows")
        << 2 << QPoint(1059, 750) << 1.0 << span(757, 330, 1164, 750);
    QTest::newRow("2 below the minimum height: x still follows")
        << 2 << QPoint(1200, 639) << 1.0 << span(720, 376, 1200, 704);
    QTest::newRow("2 across the centre: x stops")
        << 2 << QPoint(700, 750) << 1.0 << span(757, 330, 1164, 750);
    QTest::newRow("2 on the centre line: x stops")
        << 2 << QPoint(960, 750) << 1.0 << span(757, 330, 1164, 750);
    QTest::newRow("2 as wide as the desktop")
        << 2 << QPoint(1920, 750) << 1.0 << span(0, 330, 1920, 750);
    QTest::newRow("2 wider than the desktop: x refused")
        << 2 << QPoint(1921, 750) << 1.0 << span(757, 330, 1164, 750);
    QTest::newRow("2 taller than the desktop: y refused")
        << 2 << QPoint(1200, 1081) << 1.0 << span(720, 376, 1200, 704);
    QTest::newRow("2 minimum grows with s")
        << 2 << QPoint(1150, 750) << 2.0 << span(757, 330, 1164, 750);
    QTest::newRow("2 minimum is not truncated: 208 < 208.3")
        << 2 << QPoint(1064, 750) << s100 << span(757, 330, 1164, 750);
    QTest::newRow("2 minimum is not truncated: 210 > 208.3")
        << 2 << QPoint(1065, 750) << s100 << span(855, 330, 1065, 750);
    QTest::newRow("3 grows") << 3 << QPoint(1220, 400) << 1.0 << span(700, 400, 1220, 680);
    QTest::newRow("3 x across, y follows")
        << 3 << QPoint(700, 400) << 1.0 << span(757, 400, 1164, 680);
    QTest::newRow("3 y across, x follows")
        << 3 << QPoint(1220, 700) << 1.0 << span(700, 376, 1220, 704);
}

void TestLensGeometry::resize()
{
    QFETCH(int, mode);
    QFETCH(QPoint, cursor);
    QFETCH(double, s);
    QFETCH(QRect, expected);
    const QPoint pressCentre = lens.center();
    QCOMPARE(resized(lens, mode, cursor, pressCentre, 2 * pressCentre - cursor, desktop, s),
             expected);
}

void TestLensGeometry::wheelTenUpEndsJustAboveFour()
{
    float factor = 2.0f;
    factor = zoomStep(factor, 120);
    QCOMPARE(factor, 2.2f);
    for (int i = 1; i < 10; ++i)
        factor = zoomStep(factor, 120);
    QVERIFY2(factor > 4.0f && factor < 4.0001f, qPrintable(QString::number(factor, 'g', 9)));
    QCOMPARE(zoomStep(factor, 120), factor);
    // The other way is still open.
    QVERIFY(zoomStep(factor, -120) < factor);
}

void TestLensGeometry::wheelFiveDownEndsJustBelowOne()
{
    float factor = 2.0f;
    for (int i = 0; i < 5; ++i)
        factor = zoomStep(factor, -120);
    QVERIFY2(factor < 1.0f && factor > 0.9999f, qPrintable(QString::number(factor, 'g', 9)));
    QCOMPARE(zoomStep(factor, -120), factor);
    QVERIFY(zoomStep(factor, 120) > factor);
}

void TestLensGeometry::wheelZeroDeltaZoomsOut()
{
    QCOMPARE(zoomStep(2.0f, 0), 2.0f - 0.2f);
}

void TestLensGeometry::classic_data()
{
    QTest::addColumn<QPoint>("angle");
    QTest::addColumn<int>("delta");
    QTest::newRow("up") << QPoint(0, 120) << 120;
    QTest::newRow("down") << QPoint(0, -120) << -120;
    QTest::newRow("sideways") << QPoint(120, 0) << 120;
    QTest::newRow("mostly down") << QPoint(30, -120) << -120;
    QTest::newRow("none") << QPoint(0, 0) << 0;
}

void TestLensGeometry::classic()
{
    QFETCH(QPoint, angle);
    QFETCH(int, delta);
    QCOMPARE(classicDelta(angle), delta);
}

QTEST_APPLESS_MAIN(TestLensGeometry)
#include "test-lens-geometry.moc"
