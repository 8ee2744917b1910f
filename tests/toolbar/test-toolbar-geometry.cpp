// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/toolbar-geometry.h"

#include <QtTest>

using namespace toolbar_geometry;

class TestToolbarGeometry : public QObject
{
    Q_OBJECT
private slots:
    void startPosition_data();
    void startPosition();
    void keepOnScreen_data();
    void keepOnScreen();
    void keepOnScreenNeverResizes();
    void dockSide_data();
    void dockSide();
    void stripRect_data();
    void stripRect();
    void tabRect_data();
    void tabRect();
    void menuPosition_data();
    void menuPosition();
};

static const QRect screen(0, 0, 1920, 1080);

void TestToolbarGeometry::startPosition_data()
{
    QTest::addColumn<QSize>("toolbar");
    QTest::addColumn<QRect>("screen");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("full hd") << QSize(902, 83) << QRect(0, 0, 1920, 1080) << QPoint(968, 0);
    QTest::newRow("second screen")
        << QSize(400, 60) << QRect(1920, 100, 1280, 1024) << QPoint(2750, 100);
}

void TestToolbarGeometry::startPosition()
{
    QFETCH(QSize, toolbar);
    QFETCH(QRect, screen);
    QFETCH(QPoint, expected);
    const QPoint at = toolbar_geometry::startPosition(toolbar, screen);
    QCOMPARE(at, expected);
    QCOMPARE(screen.right() - (at.x() + toolbar.width() - 1), toolbar_geometry::rightGap);
}

void TestToolbarGeometry::keepOnScreen_data()
{
    QTest::addColumn<double>("s");
    QTest::addColumn<bool>("flush");
    QTest::addColumn<QRect>("toolbar");
    QTest::addColumn<QPoint>("expected");

    // Far from every edge: stays.
    QTest::newRow("middle 1.0") << 1.0 << true << QRect(500, 400, 600, 80) << QPoint(500, 400);
    QTest::newRow("middle 1.5") << 1.5 << false << QRect(500, 400, 900, 120) << QPoint(500, 400);
    // A drag ending within 10*s of an edge snaps flush to it.
    QTest::newRow("flush left 1.0") << 1.0 << true << QRect(9, 400, 600, 80) << QPoint(0, 400);
    QTest::newRow("flush left 1.5") << 1.5 << true << QRect(14, 400, 900, 120) << QPoint(0, 400);
    QTest::newRow("no snap at 10") << 1.0 << true << QRect(10, 400, 600, 80) << QPoint(10, 400);
    QTest::newRow("no snap at 15 (1.5)")
        << 1.5 << true << QRect(15, 400, 900, 120) << QPoint(15, 400);
    QTest::newRow("flush top 1.0") << 1.0 << true << QRect(300, 5, 600, 80) << QPoint(300, 0);
    QTest::newRow("off left and top") << 1.0 << true << QRect(-40, -30, 600, 80) << QPoint(0, 0);
    // Right and bottom end 2*s past the edge (right = 1919, 1079).
    QTest::newRow("flush right 1.0")
        << 1.0 << true << QRect(1915 - 600, 400, 600, 80) << QPoint(1919 - 600 + 2, 400);
    QTest::newRow("flush right 1.5")
        << 1.5 << true << QRect(1915 - 900, 400, 900, 120) << QPoint(1919 - 900 + 3, 400);
    QTest::newRow("flush bottom 1.5")
        << 1.5 << true << QRect(300, 1100 - 120, 900, 120) << QPoint(300, 1079 - 120 + 3);
    // With the margin (after fold or rotate) the toolbar keeps 12*s away.
    QTest::newRow("margin left 1.0") << 1.0 << false << QRect(3, 3, 600, 80) << QPoint(12, 12);
    QTest::newRow("margin left 1.5") << 1.5 << false << QRect(3, 3, 900, 120) << QPoint(18, 18);
    QTest::newRow("margin right bottom 1.0")
        << 1.0 << false << QRect(1915 - 600, 1075 - 80, 600, 80)
        << QPoint(1919 - 12 - 600 + 2, 1079 - 12 - 80 + 2);
    QTest::newRow("margin right bottom 1.5")
        << 1.5 << false << QRect(1915 - 900, 1075 - 120, 900, 120)
        << QPoint(1919 - 18 - 900 + 3, 1079 - 18 - 120 + 3);
    QTest::newRow("other screen") << 1.0 << true << QRect(1925, 3, 600, 80) << QPoint(1920, 0);
}

void TestToolbarGeometry::keepOnScreen()
{
    QFETCH(double, s);
    QFETCH(bool, flush);
    QFETCH(QRect, toolbar);
    QFETCH(QPoint, expected);
    const QRect target =
        QTest::currentDataTag() == QByteArray("other screen") ? QRect(1920, 0, 1280, 1024) : screen;
    const QRect r = toolbar_geometry::keepOnScreen(toolbar, target, flush, s);
    QCOMPARE(r.topLeft(), expected);
    QCOMPARE(r.size(), toolbar.size());
}

void TestToolbarGeometry::keepOnScreenNeverResizes()
{
    const QRect folded(1900, 1070, 60, 60);
    const QRect r = toolbar_geometry::keepOnScreen(folded, screen, false, 1.0);
    QCOMPARE(r.size(), folded.size());
    QVERIFY(r.right() <= screen.right() - 12 + 2);
    QVERIFY(r.bottom() <= screen.bottom() - 12 + 2);
}

void TestToolbarGeometry::dockSide_data()
{
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<QRect>("toolbar");
    QTest::addColumn<int>("side");

    QTest::newRow("free") << true << QRect(500, 500, 600, 80) << int(DockNone);
    QTest::newRow("top") << true << QRect(500, 0, 600, 80) << int(DockTop);
    QTest::newRow("bottom") << true << QRect(500, 1000, 600, 80) << int(DockBottom);
    QTest::newRow("left") << true << QRect(5, 500, 600, 80) << int(DockLeft);
    QTest::newRow("right") << true << QRect(1320, 500, 600, 80) << int(DockRight);
    // Horizontal: top wins over left.
    QTest::newRow("top and left, horizontal") << true << QRect(3, 3, 600, 80) << int(DockTop);
    QTest::newRow("bottom and right, horizontal")
        << true << QRect(1320, 1000, 600, 80) << int(DockBottom);
    // Vertical: the sides win.
    QTest::newRow("top and left, vertical") << false << QRect(3, 3, 80, 600) << int(DockLeft);
    QTest::newRow("bottom and right, vertical")
        << false << QRect(1840, 480, 80, 600) << int(DockRight);
    QTest::newRow("top, vertical") << false << QRect(500, 2, 80, 600) << int(DockTop);
    QTest::newRow("bottom, vertical") << false << QRect(500, 480, 80, 600) << int(DockBottom);
    QTest::newRow("ten away") << true << QRect(10, 500, 600, 80) << int(DockNone);
}

void TestToolbarGeometry::dockSide()
{
    QFETCH(bool, horizontal);
    QFETCH(QRect, toolbar);
    QFETCH(int, side);
    QCOMPARE(toolbar_geometry::dockSide(toolbar, screen, horizontal), side);
}

void TestToolbarGeometry::stripRect_data()
{
    QTest::addColumn<double>("s");
    QTest::addColumn<int>("side");
    QTest::addColumn<QRect>("strip");

    const QRect g(100, 200, 600, 80); // right 699, bottom 279
    QTest::newRow("top 1.0") << 1.0 << 1 << QRect(100, 200, 600, 2);
    QTest::newRow("bottom 1.0") << 1.0 << 2 << QRect(100, 277, 600, 2);
    QTest::newRow("left 1.0") << 1.0 << 3 << QRect(100, 200, 2, 80);
    QTest::newRow("right 1.0") << 1.0 << 4 << QRect(697, 200, 2, 80);
    QTest::newRow("top 1.5") << 1.5 << 1 << QRect(100, 200, 600, 3);
    QTest::newRow("bottom 1.5") << 1.5 << 2 << QRect(100, 276, 600, 3);
    QTest::newRow("left 1.5") << 1.5 << 3 << QRect(100, 200, 3, 80);
    QTest::newRow("right 1.5") << 1.5 << 4 << QRect(696, 200, 3, 80);
    QTest::newRow("none") << 1.0 << 0 << QRect();
}

void TestToolbarGeometry::stripRect()
{
    QFETCH(double, s);
    QFETCH(int, side);
    QFETCH(QRect, strip);
    QCOMPARE(toolbar_geometry::stripRect(QRect(100, 200, 600, 80), side, s), strip);
}

void TestToolbarGeometry::tabRect_data()
{
    QTest::addColumn<double>("s");
    QTest::addColumn<QRect>("strip");
    QTest::addColumn<int>("side");
    QTest::addColumn<QRect>("tab");

    // From the middle of the strip, on its side away from the screen edge.
    QTest::newRow("top 1.0") << 1.0 << QRect(100, 0, 600, 2) << 1 << QRect(364, 2, 72, 16);
    QTest::newRow("bottom 1.0") << 1.0 << QRect(100, 1078, 600, 2) << 2 << QRect(364, 1062, 72, 16);
    QTest::newRow("left 1.0") << 1.0 << QRect(0, 200, 2, 400) << 3 << QRect(2, 364, 16, 72);
    QTest::newRow("right 1.0") << 1.0 << QRect(1918, 200, 2, 400) << 4 << QRect(1902, 364, 16, 72);
    QTest::newRow("top 2.0") << 2.0 << QRect(100, 0, 600, 4) << 1 << QRect(328, 4, 144, 32);
    QTest::newRow("left 1.5") << 1.5 << QRect(0, 200, 3, 400) << 3 << QRect(3, 346, 24, 108);
    // Never longer than the strip it hangs from.
    QTest::newRow("short strip") << 1.0 << QRect(100, 0, 40, 2) << 1 << QRect(100, 2, 40, 16);
    QTest::newRow("none") << 1.0 << QRect(100, 0, 600, 2) << 0 << QRect();
}

void TestToolbarGeometry::tabRect()
{
    QFETCH(double, s);
    QFETCH(QRect, strip);
    QFETCH(int, side);
    QFETCH(QRect, tab);
    QCOMPARE(toolbar_geometry::tabRect(strip, side, s), tab);
}

void TestToolbarGeometry::menuPosition_data()
{
    QTest::addColumn<int>("anchor");
    QTest::addColumn<QRect>("button");
    QTest::addColumn<QSize>("menu");
    QTest::addColumn<QPoint>("expected");

    const QRect b(1000, 100, 40, 40); // bottom centre (1020, 139), top centre (1020, 100)
    QTest::newRow("size 1.0") << int(MenuAnchor::Centre) << b << QSize(90, 120)
                              << QPoint(1020 - 22, 143);
    QTest::newRow("size 1.5") << int(MenuAnchor::Centre) << b << QSize(135, 180)
                              << QPoint(1020 - 33, 143);
    QTest::newRow("pen 1.0") << int(MenuAnchor::Beside) << b << QSize(48, 100)
                             << QPoint(1020 + 24, 143);
    QTest::newRow("pen 1.5") << int(MenuAnchor::Beside) << b << QSize(72, 150)
                             << QPoint(1020 + 36, 143);

    // Near the bottom the menus flip above the button.
    const QRect low(1000, 1000, 40, 40);
    QTest::newRow("size flipped 1.0")
        << int(MenuAnchor::Centre) << low << QSize(90, 120) << QPoint(1020 - 22, 1000 - 4 - 120);
    QTest::newRow("size flipped 1.5")
        << int(MenuAnchor::Centre) << low << QSize(135, 180) << QPoint(1020 - 33, 1000 - 4 - 180);
    // Pen-side menus flip around top-left + top-right / 2 = (1000 + 520, 1000 + 500).
    QTest::newRow("pen flipped 1.0")
        << int(MenuAnchor::Beside) << low << QSize(48, 100) << QPoint(1520 + 24, 1500 - 4 - 100);
    QTest::newRow("pen flipped 1.5")
        << int(MenuAnchor::Beside) << low << QSize(72, 150) << QPoint(1520 + 36, 1500 - 4 - 150);
    // Exactly touching the bottom still fits.
    QTest::newRow("just fits") << int(MenuAnchor::Centre) << QRect(1000, 917, 40, 40)
                               << QSize(90, 120) << QPoint(1020 - 22, 960);
    QTest::newRow("one pixel over") << int(MenuAnchor::Centre) << QRect(1000, 918, 40, 40)
                                    << QSize(90, 120) << QPoint(1020 - 22, 918 - 4 - 120);
}

void TestToolbarGeometry::menuPosition()
{
    QFETCH(int, anchor);
    QFETCH(QRect, button);
    QFETCH(QSize, menu);
    QFETCH(QPoint, expected);
    QCOMPARE(toolbar_geometry::menuPosition(MenuAnchor(anchor), button, menu, 1079), expected);
}

QTEST_APPLESS_MAIN(TestToolbarGeometry)
#include "test-toolbar-geometry.moc"
