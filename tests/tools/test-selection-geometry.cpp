// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/frame-handles.h"
#include "tools/selection-geometry.h"

#include <QtTest>

using namespace selection_geometry;

namespace {
const QSize desktop(1920, 1080);
// left 811, right 1110, top 391, bottom 690, centre (960, 540).
const QRect selection(811, 391, 300, 300);
QRect span(int left, int top, int right, int bottom)
{
    return QRect(QPoint(left, top), QPoint(right, bottom));
}
} // namespace

class TestSelectionGeometry : public QObject
{
    Q_OBJECT
private slots:
    void initial_data();
    void initial();
    void move_data();
    void move();
    void resize_data();
    void resize();
    void buttons_data();
    void buttons();
};

void TestSelectionGeometry::initial_data()
{
    QTest::addColumn<double>("s");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("96 dpi: 300 x 300 in the middle") << 1.0 << selection;
    QTest::newRow("100 dpi") << 100 / 96.0 << QRect(805, 385, 312, 312);
    QTest::newRow("192 dpi") << 2.0 << QRect(661, 241, 600, 600);
}

void TestSelectionGeometry::initial()
{
    QFETCH(double, s);
    QFETCH(QRect, expected);
    QCOMPARE(initialSelection(desktop, s), expected);
}

void TestSelectionGeometry::move_data()
{
    QTest::addColumn<QPoint>("centre");
    QTest::addColumn<QPoint>("result");
    QTest::newRow("inside") << QPoint(1000, 600) << QPoint(1000, 600);
    QTest::newRow("touching the top-left") << QPoint(150, 150) << QPoint(150, 150);
    QTest::newRow("touching the bottom-right") << QPoint(1770, 930) << QPoint(1770, 930);
    QTest::newRow("past the left: x refused") << QPoint(149, 600) << QPoint(960, 600);
    QTest::newRow("past the right: x refused") << QPoint(1771, 600) << QPoint(960, 600);
    QTest::newRow("past the top: y refused") << QPoint(500, 149) << QPoint(500, 540);
    QTest::newRow("past the bottom: y refused") << QPoint(500, 931) << QPoint(500, 540);
    QTest::newRow("both refused") << QPoint(0, 1080) << QPoint(960, 540);
}

void TestSelectionGeometry::move()
{
    QFETCH(QPoint, centre);
    QFETCH(QPoint, result);
    const QRect r = moved(selection, centre, desktop);
    QCOMPARE(r.center(), result);
    QCOMPARE(r.size(), selection.size());
}

void TestSelectionGeometry::resize_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QPoint>("cursor");
    QTest::addColumn<double>("s");
    QTest::addColumn<QRect>("expected");
    const double s100 = 100 / 96.0;
    QTest::newRow("0 grows") << 0 << QPoint(700, 300) << 1.0 << span(700, 300, 1110, 690);
    QTest::newRow("0 within 10 of the fixed edges") << 0 << QPoint(1100, 680) << 1.0 << selection;
    QTest::newRow("0 just over 10 away")
        << 0 << QPoint(1099, 679) << 1.0 << span(1099, 679, 1110, 690);
    QTest::newRow("0 past the fixed corner") << 0 << QPoint(1200, 800) << 1.0 << selection;
    QTest::newRow("0 y past, x follows")
        << 0 << QPoint(700, 800) << 1.0 << span(700, 391, 1110, 690);
    QTest::newRow("1 grows") << 1 << QPoint(700, 800) << 1.0 << span(700, 391, 1110, 800);
    QTest::newRow("1 y within 10, x follows")
        << 1 << QPoint(700, 401) << 1.0 << span(700, 391, 1110, 690);
    QTest::newRow("1 y past, x follows")
        << 1 << QPoint(700, 300) << 1.0 << span(700, 391, 1110, 690);
    QTest::newRow("2 grows") << 2 << QPoint(1300, 900) << 1.0 << span(811, 391, 1300, 900);
    QTest::newRow("2 within 10") << 2 << QPoint(821, 401) << 1.0 << selection;
    QTest::newRow("2 x past, y follows")
        << 2 << QPoint(700, 900) << 1.0 << span(811, 391, 1110, 900);
    QTest::newRow("2 beyond the desktop")
        << 2 << QPoint(2500, 1500) << 1.0 << span(811, 391, 2500, 1500);
    QTest::newRow("2 distance grows with s")
        << 2 << QPoint(830, 900) << 2.0 << span(811, 391, 1110, 900);
    QTest::newRow("2 distance is not truncated: 10 < 10.4")
        << 2 << QPoint(821, 900) << s100 << span(811, 391, 1110, 900);
    QTest::newRow("2 distance is not truncated: 11 > 10.4")
        << 2 << QPoint(822, 900) << s100 << span(811, 391, 822, 900);
    QTest::newRow("3 grows") << 3 << QPoint(1300, 300) << 1.0 << span(811, 300, 1300, 690);
    QTest::newRow("3 y past, x follows")
        << 3 << QPoint(1300, 800) << 1.0 << span(811, 391, 1300, 690);
    QTest::newRow("3 x past, y follows")
        << 3 << QPoint(700, 300) << 1.0 << span(811, 300, 1110, 690);
}

void TestSelectionGeometry::resize()
{
    QFETCH(int, mode);
    QFETCH(QPoint, cursor);
    QFETCH(double, s);
    QFETCH(QRect, expected);
    QCOMPARE(resized(selection, mode, cursor, s), expected);
}

void TestSelectionGeometry::buttons_data()
{
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<QRect>("screen");
    QTest::addColumn<int>("leftTop");
    const QRect primary(0, 0, 1920, 1080);
    const QRect second(1920, 0, 1280, 720);
    QTest::newRow("room below") << span(811, 500, 1110, 1000) << primary << 1008;
    QTest::newRow("just fits") << span(811, 500, 1110, 1028) << primary << 1036;
    QTest::newRow("one pixel short: inside") << span(811, 500, 1110, 1029) << primary << 979;
    QTest::newRow("touching the bottom: inside") << span(811, 780, 1110, 1079) << primary << 1029;
    QTest::newRow("the selection's own screen") << span(2000, 300, 2299, 700) << second << 650;
}

void TestSelectionGeometry::buttons()
{
    QFETCH(QRect, frame);
    QFETCH(QRect, screen);
    QFETCH(int, leftTop);
    const frame_handles::ButtonPair pair = frame_handles::buttonsUnder(frame, 44, 1.0);
    const QRect left = keptOnScreen(pair.left, frame, screen);
    const QRect right = keptOnScreen(pair.right, frame, screen);
    QCOMPARE(left.top(), leftTop);
    QCOMPARE(right.top(), leftTop);
    QCOMPARE(left.x(), pair.left.x());
    QCOMPARE(right.x(), pair.right.x());
    QCOMPARE(left.size(), QSize(44, 44));
    QVERIFY(left.bottom() <= screen.bottom());
    if (left.top() < frame.bottom()) // mirrored: inside, 7 pixels above the bottom edge
        QCOMPARE(frame.bottom() - left.bottom(), 7);
}

QTEST_APPLESS_MAIN(TestSelectionGeometry)
#include "test-selection-geometry.moc"
