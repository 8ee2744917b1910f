// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/edge-hide-dialog.h"

#include "common/scale-factor.h"
#include "toolbar/edge-tab.h"
#include "toolbar/toolbar-geometry.h"

#include <QElapsedTimer>
#include <QtTest>

class TestEdgeHideDialog : public QObject
{
    Q_OBJECT
private slots:
    void windowFlags();
    void restingRestores();
    void passingOverDoesNotRestore();
    void timerRunsOnce();
    void paintsOutline_data();
    void paintsOutline();
    void tabFollowsTheStrip_data();
    void tabFollowsTheStrip();
    void restingOnTheTabRestores();
    void passingOverTheTabDoesNotRestore();
    void clickOnTheTabRestoresAtOnce();

private:
    static void enter(QWidget* w)
    {
        QEnterEvent e(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        QCoreApplication::sendEvent(w, &e);
    }
    static void leave(QWidget* w)
    {
        QEvent e(QEvent::Leave);
        QCoreApplication::sendEvent(w, &e);
    }
};

void TestEdgeHideDialog::windowFlags()
{
    QWidget parent;
    EdgeHideDialog strip(&parent);
    QCOMPARE(strip.side(), 0);
    QCOMPARE(strip.parentWidget(), &parent);
    const Qt::WindowFlags f = strip.windowFlags();
    QVERIFY(f.testFlag(Qt::FramelessWindowHint));
    QVERIFY(f.testFlag(Qt::WindowStaysOnTopHint));
    QVERIFY(f.testFlag(Qt::X11BypassWindowManagerHint));
    QCOMPARE(f & Qt::WindowType_Mask, Qt::Tool);
}

void TestEdgeHideDialog::restingRestores()
{
    EdgeHideDialog strip;
    QSignalSpy spy(&strip, &EdgeHideDialog::sig_showCtrlBar);
    enter(&strip);
    QVERIFY(strip.isHovering());
    QVERIFY(spy.wait(1000));
    QCOMPARE(spy.count(), 1);
    QVERIFY(!strip.isHovering());
}

void TestEdgeHideDialog::passingOverDoesNotRestore()
{
    EdgeHideDialog strip;
    QSignalSpy spy(&strip, &EdgeHideDialog::sig_showCtrlBar);
    enter(&strip);
    QTest::qWait(50);
    leave(&strip);
    QVERIFY(!strip.isHovering());
    QTest::qWait(400);
    QCOMPARE(spy.count(), 0);
}

void TestEdgeHideDialog::timerRunsOnce()
{
    EdgeHideDialog strip;
    QSignalSpy spy(&strip, &EdgeHideDialog::sig_showCtrlBar);
    enter(&strip);
    enter(&strip);
    QVERIFY(spy.wait(1000));
    QTest::qWait(400);
    QCOMPARE(spy.count(), 1);
}

void TestEdgeHideDialog::paintsOutline_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<QSize>("size");
    // Which of the four outer edges carry the blue line: top, bottom, left, right.
    QTest::addColumn<QVector<bool>>("blue");

    QTest::newRow("none") << 0 << QSize(200, 20) << QVector<bool>{false, false, false, false};
    QTest::newRow("top") << 1 << QSize(200, 20) << QVector<bool>{false, true, true, true};
    QTest::newRow("bottom") << 2 << QSize(200, 20) << QVector<bool>{true, false, true, true};
    QTest::newRow("left") << 3 << QSize(20, 200) << QVector<bool>{true, true, false, true};
    QTest::newRow("right") << 4 << QSize(20, 200) << QVector<bool>{true, true, true, false};
}

void TestEdgeHideDialog::paintsOutline()
{
    QFETCH(int, side);
    QFETCH(QSize, size);
    QFETCH(QVector<bool>, blue);
    EdgeHideDialog strip;
    strip.setSide(side);
    strip.resize(size);
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::black);
    strip.render(&image);

    const QColor line("#009FFF");
    const int w = size.width(), h = size.height();
    const QPoint mids[4] = {{w / 2, 0}, {w / 2, h - 1}, {0, h / 2}, {w - 1, h / 2}};
    for (int i = 0; i < 4; ++i)
        QCOMPARE(image.pixelColor(mids[i]) == line, blue[i]);
    QCOMPARE(image.pixelColor(w / 2, h / 2), QColor(Qt::white));
    if (side == 0) {
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                QCOMPARE(image.pixelColor(x, y), QColor(Qt::white));
    }
}

void TestEdgeHideDialog::tabFollowsTheStrip_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<QRect>("strip");
    QTest::newRow("top") << 1 << QRect(300, 0, 600, 2);
    QTest::newRow("bottom") << 2 << QRect(300, 600, 600, 2);
    QTest::newRow("left") << 3 << QRect(0, 100, 2, 400);
    QTest::newRow("right") << 4 << QRect(798, 100, 2, 400);
}

void TestEdgeHideDialog::tabFollowsTheStrip()
{
    QFETCH(int, side);
    QFETCH(QRect, strip);
    EdgeHideDialog dialog;
    dialog.setSide(side);
    dialog.setGeometry(strip);
    QVERIFY(!dialog.tab()->isVisible());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QVERIFY(dialog.tab()->isVisible());
    QCOMPARE(dialog.tab()->side(), side);
    QCOMPARE(dialog.tab()->geometry(),
             toolbar_geometry::tabRect(dialog.geometry(), side, screenScaleFactor()));

    // Docked again elsewhere: the same strip, and its tab, move along.
    dialog.setGeometry(strip.translated(side <= 2 ? 100 : 0, side <= 2 ? 0 : 50));
    QCOMPARE(dialog.tab()->geometry(),
             toolbar_geometry::tabRect(dialog.geometry(), side, screenScaleFactor()));

    dialog.hide();
    QVERIFY(!dialog.tab()->isVisible());
    dialog.show();
    QVERIFY(dialog.tab()->isVisible());
}

void TestEdgeHideDialog::restingOnTheTabRestores()
{
    EdgeHideDialog strip;
    QSignalSpy spy(&strip, &EdgeHideDialog::sig_showCtrlBar);
    enter(strip.tab());
    QVERIFY(strip.isHovering());
    QVERIFY(spy.wait(1000));
    QCOMPARE(spy.count(), 1);
}

void TestEdgeHideDialog::passingOverTheTabDoesNotRestore()
{
    EdgeHideDialog strip;
    QSignalSpy spy(&strip, &EdgeHideDialog::sig_showCtrlBar);
    // From the strip onto the tab and off again, each in less than 200 ms.
    enter(&strip);
    leave(&strip);
    enter(strip.tab());
    QTest::qWait(50);
    leave(strip.tab());
    QVERIFY(!strip.isHovering());
    QTest::qWait(400);
    QCOMPARE(spy.count(), 0);
}

void TestEdgeHideDialog::clickOnTheTabRestoresAtOnce()
{
    EdgeHideDialog strip;
    strip.setSide(1);
    strip.setGeometry(100, 0, 600, 2);
    strip.show();
    QSignalSpy spy(&strip, &EdgeHideDialog::sig_showCtrlBar);
    enter(strip.tab());
    QTest::mouseClick(strip.tab(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QCOMPARE(spy.count(), 1);
    QVERIFY(!strip.isHovering());
    QTest::qWait(400);
    QCOMPARE(spy.count(), 1);
}

QTEST_MAIN(TestEdgeHideDialog)
#include "test-edge-hide-dialog.moc"
