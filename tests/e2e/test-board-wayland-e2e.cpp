// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/board-return.h"
#include "tests/e2e/e2e-board.h"
#include "tests/e2e/stroke-ink.h"
#include "tests/e2e/sway-session.h"
#include "tests/e2e/toolbar-layout.h"
#include "tests/e2e/vnc-input.h"
#include "tests/e2e/x11-probe.h"
#include "tests/test-output.h"

#include <QPainter>
#include <QPolygon>
#include <QProcess>
#include <QtTest>

#include <memory>

namespace {

const QColor kFoot(0x00, 0xc0, 0x40);
const QColor kXterm(0x20, 0x40, 0xd0);
// On the left half, where foot lies, clear of the toolbar at the top right.
const QList<QPoint> kStroke{{300, 500}, {400, 540}, {500, 580}, {600, 600}, {700, 640}};
// How far a pen stroke's pixels reach from the line the pointer went along.
constexpr qreal kInkReach = 12;
// Enough red to be a stroke, not a stray pixel.
constexpr int kStrokePixels = 200;

bool near(const QColor& a, const QColor& b)
{
    // The canvas's invisible fill may shift a channel by a step or two.
    return qAbs(a.red() - b.red()) <= 3 && qAbs(a.green() - b.green()) <= 3 &&
           qAbs(a.blue() - b.blue()) <= 3;
}

} // namespace

// The real board in a headless sway session, through XWayland, over a native Wayland
// program (foot) and an X program (xterm), judged by the compositor's own screenshot and
// driven by real pointer input through the compositor.
class TestBoardWaylandE2e : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();

    void programsShowThroughTheCanvas();
    void toolbarShowsAboveTheCanvas();
    void hideAndShowOrHideTakeBoardAwayAndBack();
    void penChosenOnTheToolbarDrawsWhereThePointerWent();
    void toolbarUndoUndoesAfterDrawing();
    void closeButtonAndEscapeTakeToolbarAndCanvasAway();

private:
    QImage screen(const char* name = nullptr) const;
    // The screen without the toolbar, whose colour buttons are not ink.
    QImage ink(QImage shot) const;
    // Where the screen shows neither foot nor xterm outside the toolbar; empty if nowhere.
    QString whereProgramsHide(const QImage& shot) const;
    bool toolbarShown(const QImage& shot) const;
    QRect toolbarRect() const;
    // Brings a docked toolbar back under the pointer and waits until it is whole.
    bool revealToolbar();
    // Waits until no window of the board is viewable and the program shows where the
    // toolbar was; says what did not happen.
    QString boardGone(const QRect& bar);
    // Sends show_or_hide and waits until canvas and toolbar are back, the toolbar whole;
    // says what did not happen.
    QString showOrHideBringsBoardBack();

    std::unique_ptr<SwaySession> session;
    std::unique_ptr<X11Probe> probe;
    std::unique_ptr<E2eBoard> board;
    QProcess xterm;
    VncInput pointer;
    ToolbarLayout layout;
};

void TestBoardWaylandE2e::initTestCase()
{
    session = std::make_unique<SwaySession>();
    if (!session->start()) {
        if (!session->skipReason().isEmpty())
            QSKIP(qPrintable("no Wayland session here: " + session->skipReason()));
        QFAIL(qPrintable(session->error()));
    }
    // The board and the probe are X clients of XWayland, as in a user's Wayland session.
    qputenv("DISPLAY", session->display().toUtf8());
    qputenv("WAYLAND_DISPLAY", session->waylandEnvironment().value("WAYLAND_DISPLAY").toUtf8());
    probe = std::make_unique<X11Probe>();
    QVERIFY(probe->isValid());
    QVERIFY2(pointer.connectTo(session->vncSocket()), qPrintable(pointer.error()));
    layout = measureToolbarLayoutIn(session->waylandEnvironment());
    QVERIFY(!layout.size.isEmpty());
    // The measured toolbar has gone with its program; sway may take a while to draw foot
    // again where it was.
    QTRY_VERIFY_WITH_TIMEOUT(near(screen().pixelColor(20, 20), kFoot), 10000);

    xterm.start("xterm", {"-bg", kXterm.name(), "-fg", kXterm.name()});
    QVERIFY(xterm.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(near(screen().pixelColor(1400, 540), kXterm), 10000);

    board = std::make_unique<E2eBoard>();
    QVERIFY(board->startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(
        probe->canvasOf(board->pid()).id != 0 && probe->toolbarOf(board->pid()).id != 0, 10000);
}

void TestBoardWaylandE2e::cleanupTestCase()
{
    if (board) {
        board->closePipe();
        QVERIFY(board->waitForExit(3000));
    }
    board.reset();
    if (xterm.state() != QProcess::NotRunning) {
        xterm.terminate();
        xterm.waitForFinished();
    }
    probe.reset();
    session.reset();
}

QImage TestBoardWaylandE2e::screen(const char* name) const
{
    const QImage shot = session->screenshot().convertToFormat(QImage::Format_RGB32);
    if (name != nullptr)
        keepPicture(shot, name);
    return shot;
}

QRect TestBoardWaylandE2e::toolbarRect() const
{
    return probe->toolbarOf(board->pid()).geometry;
}

bool TestBoardWaylandE2e::toolbarShown(const QImage& shot) const
{
    const QRect bar = toolbarRect();
    if (bar.width() < layout.size.width() / 2 || bar.height() < layout.size.height() / 2)
        return false;
    // Most of the toolbar's pixels are its own, not the program's beneath.
    int own = 0;
    int all = 0;
    for (int y = bar.top(); y <= bar.bottom(); y += 2) {
        for (int x = bar.left(); x <= bar.right(); x += 2) {
            ++all;
            const QColor c = shot.pixelColor(x, y);
            if (!near(c, kFoot) && !near(c, kXterm))
                ++own;
        }
    }
    return own * 10 > all * 9;
}

bool TestBoardWaylandE2e::revealToolbar()
{
    return revealDockedToolbar([this] { return toolbarRect(); }, layout.size,
                               [this](const QPoint& p) { return pointer.moveTo(p); });
}

QString TestBoardWaylandE2e::boardGone(const QRect& bar)
{
    if (!QTest::qWaitFor([this] { return probe->viewableWindowsOf(board->pid()).isEmpty(); }, 5000))
        return "a window of the board is still viewable";
    if (!QTest::qWaitFor([&] { return near(screen().pixelColor(bar.center()), kXterm); }, 5000))
        return "the program does not show where the toolbar was";
    return QString();
}

QString TestBoardWaylandE2e::showOrHideBringsBoardBack()
{
    const QString windows = showOrHideBringsWindowsBack(*board, *probe);
    if (!windows.isEmpty())
        return windows;
    if (!revealToolbar())
        return "the toolbar does not come out of its dock";
    if (!QTest::qWaitFor([this] { return toolbarShown(screen()); }, 5000)) {
        screen("wayland-toolbar-missing");
        return QString("the toolbar at %1,%2 %3x%4 does not show on the screen")
            .arg(toolbarRect().x())
            .arg(toolbarRect().y())
            .arg(toolbarRect().width())
            .arg(toolbarRect().height());
    }
    return QString();
}

QImage TestBoardWaylandE2e::ink(QImage shot) const
{
    QPainter painter(&shot);
    painter.fillRect(toolbarRect(), Qt::black);
    return shot;
}

QString TestBoardWaylandE2e::whereProgramsHide(const QImage& shot) const
{
    const QRect bar = toolbarRect();
    const QList<QPair<QPoint, QColor>> expected{
        {{20, 20}, kFoot},     {{20, 1060}, kFoot},    {{900, 540}, kFoot},  {{500, 900}, kFoot},
        {{1000, 540}, kXterm}, {{1900, 1060}, kXterm}, {{1400, 900}, kXterm}};
    for (const auto& [p, colour] : expected) {
        if (!bar.contains(p) && !near(shot.pixelColor(p), colour))
            return QString("%1,%2 shows %3 instead of %4")
                .arg(p.x())
                .arg(p.y())
                .arg(shot.pixelColor(p).name(), colour.name());
    }
    return QString();
}

void TestBoardWaylandE2e::programsShowThroughTheCanvas()
{
    const QRect canvas = probe->canvasOf(board->pid()).geometry;
    QCOMPARE(canvas, QRect(0, 0, SwaySession::width, SwaySession::height));
    // The toolbar is first shown elsewhere before it takes its place, and sway may take a
    // moment to draw the programs where it was.
    QTRY_COMPARE_WITH_TIMEOUT(whereProgramsHide(screen()), QString(), 5000);
    keepPicture(screen(), "wayland-see-through");
}

void TestBoardWaylandE2e::toolbarShowsAboveTheCanvas()
{
    QVERIFY(revealToolbar());
    // XWayland's stacking order need not be the compositor's: the screen is what counts.
    QTRY_VERIFY_WITH_TIMEOUT(toolbarShown(screen("wayland-toolbar")), 5000);
}

void TestBoardWaylandE2e::hideAndShowOrHideTakeBoardAwayAndBack()
{
    QVERIFY(revealToolbar());
    const QRect bar = toolbarRect();
    QVERIFY(board->send(R"({"type":"hide"})"));
    QCOMPARE(boardGone(bar), QString());
    QCOMPARE(showOrHideBringsBoardBack(), QString());

    QVERIFY(board->send(R"({"type":"show_or_hide"})"));
    QCOMPARE(boardGone(bar), QString());
    QCOMPARE(showOrHideBringsBoardBack(), QString());
}

void TestBoardWaylandE2e::penChosenOnTheToolbarDrawsWhereThePointerWent()
{
    QVERIFY(revealToolbar());
    QVERIFY(pointer.click(toolbarRect().topLeft() + layout.penCentre));
    const unsigned long canvas = probe->canvasOf(board->pid()).id;
    QTRY_VERIFY_WITH_TIMEOUT(!probe->inputShapeEmpty(canvas), 5000);

    QVERIFY(pointer.drag(kStroke));
    // The compositor draws the pointer into its screenshot; the pen's pointer has red in
    // it, so it is taken onto the toolbar, which is left out of the ink. The toolbar may
    // have docked into its strip while the pointer was away: brought back whole first, it
    // is left out whole, red colour button and all, whatever the compositor shows yet.
    QVERIFY(revealToolbar());
    QVERIFY(pointer.moveTo(toolbarRect().center()));
    // The compositor may show the stroke in parts: the picture is taken once all of it is
    // there, or after five seconds.
    QTRY_VERIFY_WITH_TIMEOUT(countReddish(ink(screen())) > kStrokePixels &&
                                 inkAround(ink(screen()), kStroke.first()) > 0,
                             5000);
    // The stroke begins where the button went down, and there is no ink anywhere else.
    QCOMPARE(strokeInkFault(ink(screen("wayland-stroke")), kStroke, kInkReach, kStrokePixels),
             QString());
}

void TestBoardWaylandE2e::toolbarUndoUndoesAfterDrawing()
{
    QVERIFY(countReddish(ink(screen())) > kStrokePixels);
    QVERIFY(revealToolbar());
    QVERIFY(pointer.click(toolbarRect().topLeft() + layout.undoCentre));
    QTRY_COMPARE_WITH_TIMEOUT(countReddish(ink(screen())), 0, 5000);
    QVERIFY(toolbarShown(screen("wayland-undone")));
}

void TestBoardWaylandE2e::closeButtonAndEscapeTakeToolbarAndCanvasAway()
{
    QVERIFY(revealToolbar());
    const QRect bar = toolbarRect();
    QVERIFY(pointer.click(bar.topLeft() + layout.closeCentre));
    QCOMPARE(boardGone(bar), QString());
    QCOMPARE(showOrHideBringsBoardBack(), QString());

    // The compositor gives the keyboard to the window under a click; a click without a move
    // leaves no ink.
    QVERIFY(pointer.click(QPoint(900, 300)));
    constexpr quint32 kEscape = 0xff1b;
    QVERIFY(pointer.typeKey(kEscape));
    QCOMPARE(boardGone(bar), QString());
    QTRY_COMPARE_WITH_TIMEOUT(whereProgramsHide(screen("wayland-escaped")), QString(), 5000);
    // A toolbar that comes back away from the pointer docks again at once.
    QVERIFY(pointer.moveTo(bar.center()));
    QCOMPARE(showOrHideBringsBoardBack(), QString());
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    int measured = 0;
    if (answerToolbarMeasure(argc, argv, &measured))
        return measured;
    TestBoardWaylandE2e test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}
#include "test-board-wayland-e2e.moc"
