// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/board-return.h"
#include "tests/e2e/e2e-board.h"
#include "tests/e2e/stroke-ink.h"
#include "tests/e2e/toolbar-layout.h"
#include "tests/e2e/weston-session.h"
#include "tests/e2e/x11-probe.h"
#include "tests/test-output.h"
#include "toolbar/toolbar-geometry.h"

#include <QPainter>
#include <QProcess>
#include <QtTest>

#include <memory>

namespace {

const QColor kFoot(0x00, 0xc0, 0x40);
const QColor kXterm(0x20, 0x40, 0xd0);
constexpr int kPanel = WestonSession::panelHeight;
constexpr int kStep = 24;
// How far weston's frame and shadow reach around a window.
constexpr int kFrame = 40;
// Over weston's panel, left of its clock: the pointer rests there, out of the pictures.
const QPoint kRest(400, 10);
// Over foot, clear of xterm at the top left and of the toolbar at the top right.
const QList<QPoint> kStroke{{700, 500}, {800, 540}, {900, 580}, {1000, 600}, {1100, 640}};
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

// The real board in a weston session, through XWayland, over a native Wayland program
// (foot) and an X program (xterm), driven by real pointer and keyboard input through
// weston's seat and judged by the compositor's own screenshot.
class TestBoardWestonE2e : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();

    void programsShowThroughTheCanvas();
    void toolbarShowsAboveTheCanvasBelowThePanel();
    void penChosenOnTheToolbarDrawsWhereThePointerWent();
    void toolbarUndoUndoesAfterDrawing();
    void escapeOnTheCanvasTakesToolbarAndCanvasAway();
    void hideAndShowOrHideTakeBoardAwayAndBack();
    void typingIntoATextItemWorks();
    void magnifierOpensAndClosesByItsButton();

private:
    QImage screen(const char* name = nullptr) const;
    QRect toolbarRect() const;
    // Where the toolbar lies when whole, also while it is docked into its strip.
    QRect toolbarPlace() const;
    // Brings a docked toolbar back under the pointer and waits until it is whole.
    bool revealToolbar();
    // Where, outside the toolbar's place and the panel, the screen differs from the one
    // without the board; empty if nowhere.
    QString whereChanged(const QImage& shot) const;
    // How much of the toolbar's place differs from the screen without the board, out of
    // 100.
    int toolbarCover(const QImage& shot, const QRect& bar) const;
    // The screen without the toolbar, whose colour buttons are not ink.
    QImage ink(QImage shot) const;
    // Waits until no window of the board is viewable and the screen is as without it;
    // says what did not happen.
    QString boardGone(const QRect& bar);
    // Sends show_or_hide and waits until canvas and toolbar are back, the toolbar whole
    // and drawn; says what did not happen.
    QString showOrHideBringsBoardBack();

    std::unique_ptr<WestonSession> session;
    std::unique_ptr<X11Probe> probe;
    std::unique_ptr<E2eBoard> board;
    QProcess xterm;
    QRect xtermRect;
    QImage without;
    ToolbarLayout layout;
};

void TestBoardWestonE2e::initTestCase()
{
    session = std::make_unique<WestonSession>();
    if (!session->start()) {
        if (!session->skipReason().isEmpty())
            QSKIP(qPrintable("no weston session here: " + session->skipReason()));
        QFAIL(qPrintable(session->error()));
    }
    qputenv("DISPLAY", session->display().toUtf8());
    qputenv("WAYLAND_DISPLAY", session->waylandEnvironment().value("WAYLAND_DISPLAY").toUtf8());
    probe = std::make_unique<X11Probe>();
    QVERIFY(probe->isValid());
    layout = measureToolbarLayoutIn(session->waylandEnvironment());
    QVERIFY(!layout.size.isEmpty());
    // The measured toolbar has gone with its program; weston may take a while to draw foot
    // again where it lay, at the top right below the panel.
    const QPoint measuredAt(WestonSession::width - toolbar_geometry::rightGap -
                                layout.size.width() / 2,
                            kPanel + layout.size.height() / 2);
    QTRY_VERIFY_WITH_TIMEOUT(near(screen().pixelColor(measuredAt), kFoot), 10000);

    xterm.start("xterm", {"-geometry", "100x30", "-bg", kXterm.name(), "-fg", kXterm.name()});
    QVERIFY(xterm.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(!probe->viewableWindowsOf(xterm.processId()).isEmpty(), 10000);
    xtermRect = probe->viewableWindowsOf(xterm.processId()).first().geometry;
    QVERIFY(session->moveTo(kRest));
    QTRY_VERIFY_WITH_TIMEOUT(near(screen().pixelColor(xtermRect.center()), kXterm), 10000);
    // The screen as it is without the board, once two pictures of it agree.
    QTRY_COMPARE_WITH_TIMEOUT((without = screen(), whereChanged(screen())), QString(), 10000);
    keepPicture(without, "weston-without-board");

    board = std::make_unique<E2eBoard>();
    QVERIFY(board->startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(
        probe->canvasOf(board->pid()).id != 0 && probe->toolbarOf(board->pid()).id != 0, 10000);
}

void TestBoardWestonE2e::cleanupTestCase()
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

QImage TestBoardWestonE2e::screen(const char* name) const
{
    const QImage shot = session->screenshot().convertToFormat(QImage::Format_RGB32);
    if (name != nullptr)
        keepPicture(shot, name);
    return shot;
}

QRect TestBoardWestonE2e::toolbarRect() const
{
    // The widest of the board's windows narrower than the screen: a tooltip of a button
    // under the resting pointer is another.
    QRect widest;
    if (!board)
        return widest;
    for (const X11Probe::Window& window : probe->viewableWindowsOf(board->pid())) {
        const QRect g = window.geometry;
        if (g.width() < WestonSession::width && g.height() > 1 && g.width() > widest.width())
            widest = g;
    }
    return widest;
}

QRect TestBoardWestonE2e::toolbarPlace() const
{
    const QRect bar = toolbarRect();
    return bar.isNull() ? bar : QRect(bar.topLeft(), layout.size);
}

bool TestBoardWestonE2e::revealToolbar()
{
    return revealDockedToolbar([this] { return toolbarRect(); }, layout.size,
                               [this](const QPoint& p) { return session->moveTo(p); });
}

QString TestBoardWestonE2e::whereChanged(const QImage& shot) const
{
    if (shot.size() != without.size())
        return QStringLiteral("no picture");
    const QRect bar = toolbarPlace();
    // weston draws xterm's frame lighter or darker as xterm gains or loses the focus.
    const QRect frame = xtermRect.adjusted(-kFrame, -kFrame, kFrame, kFrame);
    for (int y = kPanel; y < shot.height(); y += kStep) {
        for (int x = kStep / 2; x < shot.width(); x += kStep) {
            const QPoint p(x, y);
            const bool ofFrame = frame.contains(p) && !xtermRect.contains(p);
            if (!bar.contains(p) && !ofFrame && !near(shot.pixelColor(p), without.pixelColor(p)))
                return QString("%1,%2 shows %3 instead of %4")
                    .arg(x)
                    .arg(y)
                    .arg(shot.pixelColor(p).name(), without.pixelColor(p).name());
        }
    }
    return QString();
}

int TestBoardWestonE2e::toolbarCover(const QImage& shot, const QRect& bar) const
{
    if (shot.size() != without.size() || bar.isEmpty())
        return 0;
    int changed = 0;
    int all = 0;
    for (int y = bar.top(); y <= bar.bottom(); y += 2) {
        for (int x = bar.left(); x <= bar.right(); x += 2) {
            ++all;
            if (!near(shot.pixelColor(x, y), without.pixelColor(x, y)))
                ++changed;
        }
    }
    return all > 0 ? changed * 100 / all : 0;
}

QImage TestBoardWestonE2e::ink(QImage shot) const
{
    QPainter painter(&shot);
    painter.fillRect(toolbarPlace(), Qt::black);
    return shot;
}

QString TestBoardWestonE2e::boardGone(const QRect& bar)
{
    if (!QTest::qWaitFor([this] { return probe->viewableWindowsOf(board->pid()).isEmpty(); }, 5000))
        return "a window of the board is still viewable";
    if (!QTest::qWaitFor([&] { return toolbarCover(screen(), bar) == 0; }, 5000))
        return "the toolbar still shows";
    if (!QTest::qWaitFor([&] { return countReddish(screen()) == 0; }, 5000))
        return "ink still shows";
    return QString();
}

QString TestBoardWestonE2e::showOrHideBringsBoardBack()
{
    const QString windows = showOrHideBringsWindowsBack(*board, *probe);
    if (!windows.isEmpty())
        return windows;
    if (!revealToolbar())
        return "the toolbar does not come out of its dock";
    if (!QTest::qWaitFor([this] { return toolbarCover(screen(), toolbarRect()) > 60; }, 5000)) {
        screen("weston-toolbar-missing");
        return "the toolbar does not show on the screen";
    }
    return QString();
}

void TestBoardWestonE2e::programsShowThroughTheCanvas()
{
    // weston keeps the canvas out of its panel, which lies above every window anyway. It
    // moves the frame it put the canvas in to its place a moment after mapping it.
    QTRY_COMPARE_WITH_TIMEOUT(
        probe->canvasOf(board->pid()).geometry,
        QRect(0, kPanel, WestonSession::width, WestonSession::height - kPanel), 5000);
    QTRY_COMPARE_WITH_TIMEOUT(whereChanged(screen()), QString(), 5000);
    const QImage shot = screen("weston-see-through");
    QVERIFY(near(shot.pixelColor(xtermRect.center()), kXterm));
    QVERIFY(near(shot.pixelColor(kStroke.first()), kFoot));
}

void TestBoardWestonE2e::toolbarShowsAboveTheCanvasBelowThePanel()
{
    QVERIFY(revealToolbar());
    const QRect bar = toolbarRect();
    QCOMPARE(bar.size(), layout.size);
    // Clear of the panel, where clicks would go to the panel instead.
    QCOMPARE(bar.top(), kPanel);
    // Most of the toolbar's pixels are its own, not the programs' beneath.
    QTRY_VERIFY_WITH_TIMEOUT(toolbarCover(screen(), bar) > 60, 5000);
    keepPicture(screen(), "weston-toolbar");

    // Left, it docks into a strip below the panel, and the pointer there brings it back.
    // The pointer rests on the pen button until its tooltip shows, so the toolbar has
    // surely seen it come and go.
    QVERIFY(session->moveTo(bar.topLeft() + layout.penCentre));
    QTRY_VERIFY_WITH_TIMEOUT(probe->viewableWindowsOf(board->pid()).size() > 2, 5000);
    QVERIFY(session->moveTo(kRest));
    QTRY_VERIFY_WITH_TIMEOUT(toolbarRect().height() < layout.size.height() / 2, 5000);
    QCOMPARE(toolbarRect().top(), kPanel);
    QVERIFY(revealToolbar());
    QTRY_VERIFY_WITH_TIMEOUT(toolbarCover(screen(), toolbarRect()) > 60, 5000);
}

void TestBoardWestonE2e::penChosenOnTheToolbarDrawsWhereThePointerWent()
{
    QVERIFY(revealToolbar());
    QVERIFY(session->click(toolbarRect().topLeft() + layout.penCentre));
    const unsigned long canvas = probe->canvasOf(board->pid()).id;
    QTRY_VERIFY_WITH_TIMEOUT(!probe->inputShapeEmpty(canvas), 5000);

    QVERIFY(session->drag(kStroke));
    // weston draws the pointer into its screenshot; the pen's pointer has red in it, so it
    // is taken onto the toolbar, which is left out of the ink.
    QVERIFY(session->moveTo(toolbarRect().center()));
    QTRY_VERIFY_WITH_TIMEOUT(countReddish(ink(screen())) > kStrokePixels &&
                                 inkAround(ink(screen()), kStroke.first()) > 0,
                             5000);
    // The stroke begins where the button went down, and there is no ink anywhere else.
    QCOMPARE(strokeInkFault(ink(screen("weston-stroke")), kStroke, kInkReach, kStrokePixels),
             QString());
}

void TestBoardWestonE2e::toolbarUndoUndoesAfterDrawing()
{
    QVERIFY(countReddish(ink(screen())) > kStrokePixels);
    QVERIFY(revealToolbar());
    QVERIFY(session->click(toolbarRect().topLeft() + layout.undoCentre));
    QTRY_COMPARE_WITH_TIMEOUT(countReddish(ink(screen())), 0, 5000);
    QVERIFY(toolbarCover(screen("weston-undone"), toolbarRect()) > 60);
}

void TestBoardWestonE2e::escapeOnTheCanvasTakesToolbarAndCanvasAway()
{
    QVERIFY(session->drag(kStroke));
    QVERIFY(session->moveTo(kRest));
    QTRY_VERIFY_WITH_TIMEOUT(countReddish(ink(screen())) > kStrokePixels, 5000);
    const QRect bar = toolbarPlace();

    // weston gave the keyboard to the canvas when the stroke began on it.
    QVERIFY(session->pressKey("Escape"));
    QCOMPARE(boardGone(bar), QString());
    QTRY_COMPARE_WITH_TIMEOUT(whereChanged(screen("weston-escaped")), QString(), 5000);

    QCOMPARE(showOrHideBringsBoardBack(), QString());
    QTRY_VERIFY_WITH_TIMEOUT(countReddish(ink(screen())) > kStrokePixels, 5000);
    QVERIFY(session->click(toolbarRect().topLeft() + layout.undoCentre));
    QTRY_COMPARE_WITH_TIMEOUT(countReddish(ink(screen())), 0, 5000);
}

void TestBoardWestonE2e::hideAndShowOrHideTakeBoardAwayAndBack()
{
    QVERIFY(revealToolbar());
    const QRect bar = toolbarPlace();
    QVERIFY(session->moveTo(kRest));
    QVERIFY(board->send(R"({"type":"hide"})"));
    QCOMPARE(boardGone(bar), QString());
    keepPicture(screen(), "weston-hidden");
    QCOMPARE(showOrHideBringsBoardBack(), QString());
    QVERIFY(session->moveTo(kRest));
    QTRY_COMPARE_WITH_TIMEOUT(whereChanged(screen()), QString(), 5000);

    QVERIFY(board->send(R"({"type":"show_or_hide"})"));
    QCOMPARE(boardGone(bar), QString());
    QCOMPARE(showOrHideBringsBoardBack(), QString());
}

void TestBoardWestonE2e::typingIntoATextItemWorks()
{
    // A part of foot with no ink on it.
    const QRect place(1300, 600, 160, 80);
    QCOMPARE(countReddish(screen().copy(place)), 0);
    QVERIFY(revealToolbar());
    QVERIFY(session->click(toolbarRect().topLeft() + layout.textCentre));
    QVERIFY(session->click(place.topLeft() + QPoint(10, 10)));
    QVERIFY(session->type("HHHH"));
    QVERIFY(session->moveTo(kRest));
    QTRY_VERIFY_WITH_TIMEOUT(countReddish(screen().copy(place)) > 60, 5000);
    keepPicture(screen(), "weston-typed");
}

void TestBoardWestonE2e::magnifierOpensAndClosesByItsButton()
{
    // weston 10's X window manager aborted, ending the whole session, when the magnifier, a
    // window that bypasses it, was put in the full-screen state.
    const QPoint spot(200, 1000);
    QVERIFY(session->moveTo(kRest));
    QTRY_VERIFY_WITH_TIMEOUT(near(screen().pixelColor(spot), without.pixelColor(spot)), 5000);
    QVERIFY(board->send(R"({"type":"zoom"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe->windowTitled(board->pid(), "ZoomWidget").id != 0, 5000);
    // With no desktop portal in this session it has no picture of the screen and says so,
    // over the programs.
    QTRY_VERIFY_WITH_TIMEOUT(!near(screen().pixelColor(spot), without.pixelColor(spot)), 5000);
    keepPicture(screen(), "weston-magnifier");

    // Its close button lies under the lens, which starts in the middle of the screen.
    QRect lens(0, 0, 408, 329);
    lens.moveCenter(QPoint(WestonSession::width / 2, WestonSession::height / 2));
    QVERIFY(session->click(QPoint(lens.center().x() + 24, lens.bottom() + 29)));
    QTRY_VERIFY_WITH_TIMEOUT(probe->windowTitled(board->pid(), "ZoomWidget").id == 0, 5000);
    QTRY_VERIFY_WITH_TIMEOUT(near(screen().pixelColor(spot), without.pixelColor(spot)), 5000);
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    int measured = 0;
    if (answerToolbarMeasure(argc, argv, &measured))
        return measured;
    TestBoardWestonE2e test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}
#include "test-board-weston-e2e.moc"
