// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/e2e-board.h"
#include "tests/e2e/weston-session.h"
#include "tests/e2e/x11-probe.h"
#include "tests/test-output.h"

#include <QProcess>
#include <QtTest>

#include <memory>

namespace {

const QColor kXterm(0x20, 0x40, 0xd0);
// weston's panel runs along the top, above every window, with a clock that changes.
constexpr int kPanel = 32;
constexpr int kStep = 24;
// How far weston's frame and shadow reach around a window.
constexpr int kFrame = 40;

bool near(const QColor& a, const QColor& b)
{
    // The canvas's invisible fill may shift a channel by a step or two.
    return qAbs(a.red() - b.red()) <= 3 && qAbs(a.green() - b.green()) <= 3 &&
           qAbs(a.blue() - b.blue()) <= 3;
}

} // namespace

// The real board in a headless weston session, through XWayland, over weston's desktop
// and an X program (xterm), judged by the compositor's own screenshot. weston headless
// takes no input, so the board is driven by its host only.
class TestBoardWestonE2e : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();

    void desktopAndProgramShowThroughTheCanvas();
    void toolbarShowsAboveTheCanvas();
    void hideAndShowOrHideTakeBoardAwayAndBack();

private:
    QImage screen(const char* name = nullptr) const;
    QRect toolbarRect() const;
    // Where, outside the toolbar and the panel, the screen differs from the one without
    // the board; empty if nowhere.
    QString whereChanged(const QImage& shot) const;
    // How much of the toolbar's place (below the panel) differs from the screen without
    // the board, out of 100.
    int toolbarCover(const QImage& shot, const QRect& bar) const;

    std::unique_ptr<WestonSession> session;
    std::unique_ptr<X11Probe> probe;
    std::unique_ptr<E2eBoard> board;
    QProcess xterm;
    QRect xtermRect;
    QImage without;
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

    xterm.start("xterm", {"-geometry", "100x30", "-bg", kXterm.name(), "-fg", kXterm.name()});
    QVERIFY(xterm.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(!probe->viewableWindowsOf(xterm.processId()).isEmpty(), 10000);
    xtermRect = probe->viewableWindowsOf(xterm.processId()).first().geometry;
    QTRY_VERIFY_WITH_TIMEOUT(near(screen().pixelColor(xtermRect.center()), kXterm), 10000);
    // The screen as it is without the board, once two pictures of it agree.
    QTRY_VERIFY_WITH_TIMEOUT((without = screen(), whereChanged(screen()).isEmpty()), 10000);
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
    return board ? probe->toolbarOf(board->pid()).geometry : QRect();
}

QString TestBoardWestonE2e::whereChanged(const QImage& shot) const
{
    if (shot.size() != without.size())
        return QStringLiteral("no picture");
    const QRect bar = toolbarRect();
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
    if (shot.size() != without.size() || bar.bottom() <= kPanel)
        return 0;
    int changed = 0;
    int all = 0;
    for (int y = qMax(bar.top(), kPanel); y <= bar.bottom(); y += 2) {
        for (int x = bar.left(); x <= bar.right(); x += 2) {
            ++all;
            if (!near(shot.pixelColor(x, y), without.pixelColor(x, y)))
                ++changed;
        }
    }
    return all > 0 ? changed * 100 / all : 0;
}

void TestBoardWestonE2e::desktopAndProgramShowThroughTheCanvas()
{
    const QRect canvas = probe->canvasOf(board->pid()).geometry;
    QCOMPARE(canvas, QRect(0, 0, WestonSession::width, WestonSession::height));
    QTRY_COMPARE_WITH_TIMEOUT(whereChanged(screen()), QString(), 5000);
    const QImage shot = screen("weston-see-through");
    QVERIFY(near(shot.pixelColor(xtermRect.center()), kXterm));
}

void TestBoardWestonE2e::toolbarShowsAboveTheCanvas()
{
    const QRect bar = toolbarRect();
    QVERIFY(bar.width() > 100 && bar.height() > kPanel / 2);
    // Most of the toolbar's pixels are its own, not the desktop's beneath.
    QTRY_VERIFY_WITH_TIMEOUT(toolbarCover(screen(), bar) > 60, 5000);
    keepPicture(screen(), "weston-toolbar");
}

void TestBoardWestonE2e::hideAndShowOrHideTakeBoardAwayAndBack()
{
    const QRect bar = toolbarRect();
    QVERIFY(board->send(R"({"type":"hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe->viewableWindowsOf(board->pid()).isEmpty(), 5000);
    QTRY_COMPARE_WITH_TIMEOUT(toolbarCover(screen(), bar), 0, 5000);
    keepPicture(screen(), "weston-hidden");

    QVERIFY(board->send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(
        probe->canvasOf(board->pid()).id != 0 && probe->toolbarOf(board->pid()).id != 0, 5000);
    QTRY_VERIFY_WITH_TIMEOUT(toolbarCover(screen(), toolbarRect()) > 60, 5000);
    QTRY_COMPARE_WITH_TIMEOUT(whereChanged(screen()), QString(), 5000);

    QVERIFY(board->send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe->viewableWindowsOf(board->pid()).isEmpty(), 5000);
    QTRY_COMPARE_WITH_TIMEOUT(toolbarCover(screen(), bar), 0, 5000);
    QVERIFY(board->send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe->toolbarOf(board->pid()).id != 0, 5000);
    QTRY_VERIFY_WITH_TIMEOUT(toolbarCover(screen(), toolbarRect()) > 60, 5000);
}

QTEST_MAIN(TestBoardWestonE2e)
#include "test-board-weston-e2e.moc"
