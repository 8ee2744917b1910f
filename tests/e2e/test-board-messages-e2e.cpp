// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/e2e-board.h"
#include "tests/e2e/toolbar-layout.h"
#include "tests/e2e/x11-probe.h"
#include "tests/e2e/xdotool.h"

#include <QtTest>

// Every host message sent over the real pipe to a real board, and what it does on
// screen: windows mapped and unmapped, clicks falling through or not, strokes drawn,
// taken back and cleared.
class TestBoardMessagesE2e : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void startShowsCanvasAndToolbarInDesktopOperation();
    void showOrHideTogglesCanvasAndToolbar();
    void hideHidesAndLeavesHiddenAsItIs();
    void circleModeTogglesBetweenDesktopOperationAndDrag();
    void trashCanClearsTheCanvas();
    void undoAndRedoOfAStroke();

private:
    // Picks the pen on the board's own toolbar, as a user would.
    void pickPen();
    void drawStroke();
    int redInStrokeArea() const;

    X11Probe probe;
    ToolbarLayout toolbar;
    std::unique_ptr<E2eBoard> board;
};

namespace {

const QRect strokeArea(200, 300, 800, 400);
// Enough red to be a stroke, not a stray pixel.
const int strokePixels = 200;

} // namespace

void TestBoardMessagesE2e::initTestCase()
{
    QVERIFY(probe.isValid());
    toolbar = measureToolbarLayout();
    QVERIFY(!toolbar.size.isEmpty());
}

void TestBoardMessagesE2e::init()
{
    board = std::make_unique<E2eBoard>();
    QVERIFY(board->startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board->pid()), 10000);
}

void TestBoardMessagesE2e::cleanup()
{
    if (board) {
        board->closePipe();
        QVERIFY(board->waitForExit(5000));
        QCOMPARE(board->exitCode(), 0);
    }
    board.reset();
}

void TestBoardMessagesE2e::pickPen()
{
    QTRY_COMPARE_WITH_TIMEOUT(probe.toolbarOf(board->pid()).geometry.size(), toolbar.size, 5000);
    const X11Probe::Window bar = probe.toolbarOf(board->pid());
    QVERIFY(xdotool::click(bar.geometry.topLeft() + toolbar.penCentre));
    const unsigned long canvas = probe.canvasOf(board->pid()).id;
    QTRY_VERIFY_WITH_TIMEOUT(!probe.inputShapeEmpty(canvas), 5000);
}

void TestBoardMessagesE2e::drawStroke()
{
    QVERIFY(
        xdotool::stroke({{300, 400}, {400, 450}, {500, 500}, {600, 520}, {700, 560}, {800, 600}}));
    QTRY_VERIFY_WITH_TIMEOUT(redInStrokeArea() > strokePixels, 5000);
}

int TestBoardMessagesE2e::redInStrokeArea() const
{
    return countReddish(probe.grabScreen().copy(strokeArea));
}

void TestBoardMessagesE2e::startShowsCanvasAndToolbarInDesktopOperation()
{
    const X11Probe::Window canvas = probe.canvasOf(board->pid());
    QCOMPARE(canvas.geometry, QRect(0, 0, 1920, 1080));
    const X11Probe::Window toolbar = probe.toolbarOf(board->pid());
    QVERIFY(toolbar.geometry.intersects(canvas.geometry));
    // The toolbar is raised over the canvas once both are mapped, a moment after.
    QTRY_VERIFY_WITH_TIMEOUT(probe.stackedAbove(toolbar.id, canvas.id), 5000);
    // The select tool is on: clicks go through the canvas to the desktop.
    QTRY_VERIFY_WITH_TIMEOUT(probe.inputShapeEmpty(canvas.id), 5000);
}

void TestBoardMessagesE2e::showOrHideTogglesCanvasAndToolbar()
{
    QVERIFY(board->send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board->pid()).isEmpty(), 5000);

    QVERIFY(board->send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board->pid()), 5000);
}

void TestBoardMessagesE2e::hideHidesAndLeavesHiddenAsItIs()
{
    QVERIFY(board->send(R"({"type":"hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board->pid()).isEmpty(), 5000);

    QVERIFY(board->send(R"({"type":"hide"})"));
    QVERIFY(!board->waitForExit(300));
    QVERIFY(probe.viewableWindowsOf(board->pid()).isEmpty());

    QVERIFY(board->send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board->pid()), 5000);
}

void TestBoardMessagesE2e::circleModeTogglesBetweenDesktopOperationAndDrag()
{
    const unsigned long canvas = probe.canvasOf(board->pid()).id;
    QVERIFY(probe.inputShapeEmpty(canvas));

    QVERIFY(board->send(R"({"type":"circle_mode"})"));
    QTRY_VERIFY_WITH_TIMEOUT(!probe.inputShapeEmpty(canvas), 5000);

    QVERIFY(board->send(R"({"type":"circle_mode"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.inputShapeEmpty(canvas), 5000);
}

void TestBoardMessagesE2e::trashCanClearsTheCanvas()
{
    QCOMPARE(redInStrokeArea(), 0);
    pickPen();
    drawStroke();

    QVERIFY(board->send(R"({"type":"trash_can"})"));
    QTRY_COMPARE_WITH_TIMEOUT(redInStrokeArea(), 0, 5000);
    QVERIFY(probe.showsCanvasAndToolbar(board->pid()));
}

void TestBoardMessagesE2e::undoAndRedoOfAStroke()
{
    pickPen();
    drawStroke();
    const int drawn = redInStrokeArea();

    // Types are compared exactly: "Undo" is not "undo".
    QVERIFY(board->send(R"({"type":"Undo"})"));
    QTest::qWait(300);
    QCOMPARE(redInStrokeArea(), drawn);

    QVERIFY(board->send(R"({"type":"undo","data":1})"));
    QTRY_COMPARE_WITH_TIMEOUT(redInStrokeArea(), 0, 5000);

    QVERIFY(board->send(R"({"type":"redo"})"));
    QTRY_COMPARE_WITH_TIMEOUT(redInStrokeArea(), drawn, 5000);
}

QTEST_MAIN(TestBoardMessagesE2e)
#include "test-board-messages-e2e.moc"
