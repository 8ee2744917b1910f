// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/e2e-board.h"
#include "tests/e2e/toolbar-layout.h"
#include "tests/e2e/x11-probe.h"
#include "tests/e2e/xdotool.h"
#include "tests/test-output.h"

#include <QtTest>

#include <csignal>

// A stroke drawn while the real board is held up: the pointer's motions queue up for it,
// as they do while it is busy painting, and every one of them is still a point of the
// stroke.
class TestQuickStrokeE2e : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void zigzagQueuedWhileTheBoardIsBusyKeepsEveryCorner();

private:
    X11Probe probe;
    ToolbarLayout toolbar;
    std::unique_ptr<E2eBoard> board;
};

namespace {

// A zigzag whose corners lie 60 px off the line that would join its neighbours: a corner
// lost from the stroke leaves no ink near it.
QVector<QPoint> zigzag()
{
    QVector<QPoint> points;
    for (int i = 0; i <= 40; ++i)
        points.append(QPoint(300 + i * 20, 500 + (i % 2) * 60));
    return points;
}

} // namespace

void TestQuickStrokeE2e::initTestCase()
{
    QVERIFY(probe.isValid());
    toolbar = measureToolbarLayout();
    QVERIFY(!toolbar.size.isEmpty());
    board = std::make_unique<E2eBoard>();
    QVERIFY(board->startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board->pid()), 10000);
    QTRY_COMPARE_WITH_TIMEOUT(probe.toolbarOf(board->pid()).geometry.size(), toolbar.size, 5000);
    QVERIFY(xdotool::click(probe.toolbarOf(board->pid()).geometry.topLeft() + toolbar.penCentre));
    QTRY_VERIFY_WITH_TIMEOUT(!probe.inputShapeEmpty(probe.canvasOf(board->pid()).id), 5000);
}

void TestQuickStrokeE2e::cleanupTestCase()
{
    if (board) {
        board->closePipe();
        QVERIFY(board->waitForExit(5000));
    }
    board.reset();
}

void TestQuickStrokeE2e::zigzagQueuedWhileTheBoardIsBusyKeepsEveryCorner()
{
    const QVector<QPoint> points = zigzag();
    QVERIFY(xdotool::run({"mousemove", QString::number(points.first().x()),
                          QString::number(points.first().y()), "sleep", "0.1", "mousedown", "1",
                          "sleep", "0.3"}));
    // Stopped, the board reads nothing: the X server hands each motion on by itself (it
    // merges only those that reach it faster than it dispatches them), and they wait in the
    // board's connection until it goes on.
    QCOMPARE(::kill(board->pid(), SIGSTOP), 0);
    // The stroke's item is made by the first move, from the press alone: that move's point
    // is not a corner. Each move waits until the server has moved the pointer: a server kept
    // from running by a busy machine would merge moves that reach it together, which is not
    // what the board is tested for.
    QStringList moves{"mousemove", "--sync", QString::number(points.first().x() + 1),
                      QString::number(points.first().y())};
    for (const QPoint& p : points.mid(1))
        moves << "mousemove"
              << "--sync" << QString::number(p.x()) << QString::number(p.y());
    const bool moved = xdotool::run(moves);
    QCOMPARE(::kill(board->pid(), SIGCONT), 0);
    QVERIFY(moved);
    QVERIFY(xdotool::run({"sleep", "0.3", "mouseup", "1"}));

    const QRect area(points.first().x() - 10, 490, points.last().x() - points.first().x() + 20, 80);
    QTRY_VERIFY_WITH_TIMEOUT(countReddish(probe.grabScreen().copy(area)) > 1000, 5000);
    const QImage shot = probe.grabScreen();
    keepPicture(shot.copy(area), "quick-stroke");
    QStringList lost;
    for (int i = 1; i + 1 < points.size(); ++i) {
        const QPoint corner = points.at(i);
        if (countReddish(shot.copy(QRect(corner - QPoint(3, 3), QSize(7, 7)))) == 0)
            lost << QString("%1,%2").arg(corner.x()).arg(corner.y());
    }
    QVERIFY2(lost.isEmpty(), qPrintable("no ink at the corners " + lost.join(' ')));
}

QTEST_MAIN(TestQuickStrokeE2e)
#include "test-quick-stroke-e2e.moc"
