// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/e2e-board.h"
#include "tests/e2e/toolbar-layout.h"
#include "tests/e2e/x11-probe.h"
#include "tests/e2e/xdotool.h"

#include <QtTest>

// A board with ink on its canvas and a stroke selected, put away the ways a user does
// (Escape, the toolbar's cross) and ended by its host, tearing down the toolbar, the
// canvas and the drawing with the selection still on. Built with the sanitizers, the
// board must end without a report.
class TestBoardCloseE2e : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void endsCleanlyWithInkAndASelection_data();
    void endsCleanlyWithInkAndASelection();

private:
    X11Probe probe;
    ToolbarLayout toolbar;
};

namespace {

const QRect strokeArea(200, 300, 800, 400);
const QPoint onTheStroke(500, 500);
// Enough red to be a stroke, not a stray pixel.
const int strokePixels = 200;

} // namespace

void TestBoardCloseE2e::initTestCase()
{
    QVERIFY(probe.isValid());
    toolbar = measureToolbarLayout();
    QVERIFY(!toolbar.size.isEmpty());
}

void TestBoardCloseE2e::endsCleanlyWithInkAndASelection_data()
{
    QTest::addColumn<QString>("putAway");
    QTest::newRow("host ends it while shown") << QString();
    QTest::newRow("Escape, then the host ends it") << QStringLiteral("escape");
    QTest::newRow("the toolbar's cross, then the host ends it") << QStringLiteral("cross");
}

void TestBoardCloseE2e::endsCleanlyWithInkAndASelection()
{
    QFETCH(QString, putAway);
    E2eBoard board;
    // The canvas says in its debug lines when its selection changes.
    board.showDebugLines();
    QVERIFY(board.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);
    QTRY_COMPARE_WITH_TIMEOUT(probe.toolbarOf(board.pid()).geometry.size(), toolbar.size, 5000);
    const QPoint bar = probe.toolbarOf(board.pid()).geometry.topLeft();
    const unsigned long canvas = probe.canvasOf(board.pid()).id;

    QVERIFY(xdotool::click(bar + toolbar.penCentre));
    QTRY_VERIFY_WITH_TIMEOUT(!probe.inputShapeEmpty(canvas), 5000);
    QVERIFY(
        xdotool::stroke({{300, 400}, {400, 450}, onTheStroke, {600, 520}, {700, 560}, {800, 600}}));
    QTRY_VERIFY_WITH_TIMEOUT(countReddish(probe.grabScreen().copy(strokeArea)) > strokePixels,
                             5000);

    // The host's mode switch goes from the pen to moving strokes, where a click selects one.
    // The board notes a message once it has acted on it.
    const int before = board.errors().size();
    QVERIFY(board.send(R"({"type":"circle_mode"})"));
    QTRY_VERIFY_WITH_TIMEOUT(board.errors().mid(before).contains("Client Read: "), 5000);
    const int unselected = board.errors().size();
    QVERIFY(xdotool::click(onTheStroke));
    QTRY_VERIFY_WITH_TIMEOUT(board.errors().mid(unselected).contains("select Changed slot start"),
                             5000);

    if (putAway == QLatin1String("escape")) {
        QVERIFY(xdotool::run({QStringLiteral("key"), QStringLiteral("Escape")}));
    } else if (putAway == QLatin1String("cross")) {
        // The toolbar at the top edge docks once the pointer leaves it; resting the pointer
        // on its strip brings it back.
        QVERIFY(xdotool::run({QStringLiteral("mousemove"),
                              QString::number(bar.x() + toolbar.size.width() / 2),
                              QStringLiteral("0")}));
        QTRY_COMPARE_WITH_TIMEOUT(probe.toolbarOf(board.pid()).geometry, QRect(bar, toolbar.size),
                                  5000);
        QVERIFY(xdotool::click(bar + toolbar.closeCentre));
    }
    if (!putAway.isEmpty())
        QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board.pid()).isEmpty(), 5000);

    board.closePipe();
    QVERIFY(board.waitForExit(10000));
    QCOMPARE(board.exitCode(), 0);
    QCOMPARE(board.trouble(), QString());
}

QTEST_MAIN(TestBoardCloseE2e)
#include "test-board-close-e2e.moc"
