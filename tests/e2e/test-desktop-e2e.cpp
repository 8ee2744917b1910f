// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/desktop-session.h"
#include "tests/e2e/e2e-board.h"
#include "tests/e2e/toolbar-layout.h"
#include "tests/e2e/x11-probe.h"
#include "tests/e2e/xdotool.h"
#include "tests/test-output.h"

#include "common/scale-factor.h"
#include "toolbar/toolbar-geometry.h"

#include <QProcess>
#include <QtTest>

// The real board over a program on a desktop as a user has it: a compositor (xcompmgr)
// but no window manager, openbox with xcompmgr, or xfwm4 with its own compositor
// (PALLO_DESKTOP_WM is "compositor", "openbox" or "xfwm4"). Every check reads what the
// screen shows, as composited.
class TestDesktopE2e : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void programShowsThroughTheCanvas();
    void toolbarLiesAboveTheCanvas();
    void penChosenOnTheToolbarDraws();
    void dockedToolbarShowsItsTab();
    void undoOnTheToolbarUndoes();
    void hideAndShowKeepInkAndPen();
    void escapeAndCloseHideEverything();
    void typingIntoATextItemWorks();
    void desktopOperationLetsClicksThrough();

private:
    QImage screen() const { return probe.grabScreen(); }
    int programPixels(const QImage& picture, QRgb colour) const;
    int inkInProgram() const;
    QRect toolbarRect() const;
    QRect stripRect() const;
    bool tabShown(const QRect& strip) const;
    // The toolbar, brought back from its strip by resting the pointer there if docked.
    bool reachToolbar(QRect* rect);
    bool clickToolbar(const QPoint& inside);
    void drawStroke(int row);
    void saveScreen(const QString& name) const;

    QString wm;
    X11Probe probe;
    ToolbarLayout toolbar;
    DesktopSession desktop;
    QProcess program;
    QRect programRect;
    std::unique_ptr<E2eBoard> board;
};

namespace {

const QRgb programColour = qRgb(0x00, 0xa0, 0x00);
const QRgb clickedColour = qRgb(0x00, 0x00, 0xc0);
const QRect programPlace(100, 200, 800, 600);
// Enough red to be a stroke, not a stray pixel.
const int strokePixels = 200;
// How often the toolbar checks whether to dock.
const int dockCheckMs = 500;

bool closeTo(QRgb a, QRgb b)
{
    return qAbs(qRed(a) - qRed(b)) <= 8 && qAbs(qGreen(a) - qGreen(b)) <= 8 &&
           qAbs(qBlue(a) - qBlue(b)) <= 8;
}

} // namespace

void TestDesktopE2e::initTestCase()
{
    wm = DesktopSession::fromEnvironment();
    QVERIFY(probe.isValid());
    // Measured before any window manager frames the test's own windows.
    toolbar = measureToolbarLayout();
    QVERIFY(!toolbar.size.isEmpty());
    QVERIFY2(desktop.start(wm), qPrintable(QStringLiteral("no desktop ") + wm));

    program.start(QStringLiteral(PALLO_COLOUR_WINDOW_PATH),
                  {QString::number(programPlace.x()), QString::number(programPlace.y()),
                   QString::number(programPlace.width()), QString::number(programPlace.height()),
                   QStringLiteral("00a000"), QStringLiteral("0000c0")});
    QVERIFY(program.waitForStarted(5000));
    QVERIFY(QTest::qWaitFor(
        [this] {
            probe.nudgeWindowManager();
            return !probe.viewableWindowsOf(program.processId()).isEmpty();
        },
        30000));
    programRect = probe.viewableWindowsOf(program.processId()).first().geometry;
    QTRY_VERIFY_WITH_TIMEOUT(programPixels(screen(), programColour) ==
                                 programRect.width() * programRect.height(),
                             10000);

    board = std::make_unique<E2eBoard>();
    QVERIFY(board->startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.canvasOf(board->pid()).id != 0 && toolbarRect().isValid(),
                             10000);
}

void TestDesktopE2e::cleanupTestCase()
{
    if (board) {
        board->closePipe();
        QVERIFY(board->waitForExit(5000));
    }
    board.reset();
    program.kill();
    program.waitForFinished(2000);
    desktop.stop();
}

int TestDesktopE2e::programPixels(const QImage& picture, QRgb colour) const
{
    int count = 0;
    for (int y = programRect.top(); y <= programRect.bottom(); ++y) {
        for (int x = programRect.left(); x <= programRect.right(); ++x) {
            if (closeTo(picture.pixel(x, y), colour))
                ++count;
        }
    }
    return count;
}

int TestDesktopE2e::inkInProgram() const
{
    return countReddish(screen().copy(programRect));
}

QRect TestDesktopE2e::toolbarRect() const
{
    for (const X11Probe::Window& window : probe.viewableWindowsOf(board->pid())) {
        if (window.geometry.size() == toolbar.size)
            return window.geometry;
    }
    return QRect();
}

QRect TestDesktopE2e::stripRect() const
{
    // Docked, the strip lies along the top edge where the toolbar was.
    for (const X11Probe::Window& window : probe.viewableWindowsOf(board->pid())) {
        if (window.geometry.top() == 0 && window.geometry.height() < 20 &&
            window.geometry.width() > 100)
            return window.geometry;
    }
    return QRect();
}

// The tab hanging from the strip is on screen: a window of the board where it belongs,
// and on the composited picture white with the strip's blue outline and arrow.
bool TestDesktopE2e::tabShown(const QRect& strip) const
{
    const QRect tab =
        toolbar_geometry::tabRect(strip, toolbar_geometry::DockTop, screenScaleFactor());
    bool mapped = false;
    for (const X11Probe::Window& window : probe.viewableWindowsOf(board->pid()))
        mapped = mapped || window.geometry == tab;
    if (!mapped)
        return false;
    const QImage picture = screen().copy(tab);
    int white = 0;
    int blue = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb p = picture.pixel(x, y);
            white += closeTo(p, qRgb(255, 255, 255)) ? 1 : 0;
            blue += (qBlue(p) > 200 && qRed(p) < 80) ? 1 : 0;
        }
    }
    const int area = tab.width() * tab.height();
    return white > area / 3 && blue > area / 20;
}

bool TestDesktopE2e::reachToolbar(QRect* rect)
{
    // A shown toolbar docks at its next check while the pointer is outside it, and one that
    // checked just before the pointer came would be gone by the click; with the pointer
    // inside it stays. So the pointer goes onto it, and the toolbar must outlast a check.
    for (int attempt = 0; attempt < 3; ++attempt) {
        if (!toolbarRect().isValid()) {
            const QRect strip = stripRect();
            if (!strip.isValid())
                return false;
            xdotool::run({QStringLiteral("mousemove"), QString::number(strip.center().x()),
                          QString::number(strip.top())});
            if (!QTest::qWaitFor([this] { return toolbarRect().isValid(); }, 5000))
                return false;
        }
        const QRect bar = toolbarRect();
        if (!bar.isValid())
            continue;
        xdotool::run({QStringLiteral("mousemove"), QString::number(bar.center().x()),
                      QString::number(bar.center().y())});
        QTest::qWait(dockCheckMs + 100);
        if (toolbarRect() == bar) {
            *rect = bar;
            return true;
        }
    }
    return false;
}

bool TestDesktopE2e::clickToolbar(const QPoint& inside)
{
    QRect bar;
    if (!reachToolbar(&bar))
        return false;
    return xdotool::click(bar.topLeft() + inside);
}

void TestDesktopE2e::drawStroke(int row)
{
    const int y = programRect.top() + row;
    const int x = programRect.left() + 100;
    QVERIFY(xdotool::stroke({{x, y},
                             {x + 100, y + 40},
                             {x + 200, y + 60},
                             {x + 300, y + 40},
                             {x + 400, y + 80},
                             {x + 500, y + 60}}));
}

void TestDesktopE2e::saveScreen(const QString& name) const
{
    keepPicture(screen(), QStringLiteral("desktop-%1-%2").arg(wm, name));
}

void TestDesktopE2e::programShowsThroughTheCanvas()
{
    const X11Probe::Window canvas = probe.canvasOf(board->pid());
    QCOMPARE(canvas.geometry, QRect(0, 0, 1920, 1080));
    const unsigned long programWindow = probe.viewableWindowsOf(program.processId()).first().id;
    QVERIFY(probe.stackedAbove(canvas.id, programWindow));
    // Every pixel of the program, none covered by the toolbar, shows as it is.
    QVERIFY(!toolbarRect().intersects(programRect));
    QTRY_COMPARE_WITH_TIMEOUT(programPixels(screen(), programColour),
                              programRect.width() * programRect.height(), 5000);
    saveScreen(QStringLiteral("start"));
}

void TestDesktopE2e::toolbarLiesAboveTheCanvas()
{
    const X11Probe::Window canvas = probe.canvasOf(board->pid());
    QRect bar;
    QVERIFY(reachToolbar(&bar));
    for (const X11Probe::Window& window : probe.viewableWindowsOf(board->pid())) {
        if (window.geometry == bar)
            QVERIFY(probe.stackedAbove(window.id, canvas.id));
    }
}

void TestDesktopE2e::penChosenOnTheToolbarDraws()
{
    QVERIFY(clickToolbar(toolbar.penCentre));
    const unsigned long canvas = probe.canvasOf(board->pid()).id;
    QTRY_VERIFY_WITH_TIMEOUT(!probe.inputShapeEmpty(canvas), 5000);
    drawStroke(100);
    QTRY_VERIFY_WITH_TIMEOUT(inkInProgram() > strokePixels, 5000);
    // Outside the ink the program still shows.
    QVERIFY(programPixels(screen(), programColour) >
            programRect.width() * programRect.height() * 95 / 100);
    saveScreen(QStringLiteral("drawn"));
}

void TestDesktopE2e::dockedToolbarShowsItsTab()
{
    // The pointer left the toolbar to draw: it docks, and its tab shows where it went.
    QTRY_VERIFY_WITH_TIMEOUT(!toolbarRect().isValid() && stripRect().isValid(), 5000);
    const QRect strip = stripRect();
    QTRY_VERIFY_WITH_TIMEOUT(tabShown(strip), 5000);
    saveScreen(QStringLiteral("docked"));

    // Hidden and shown again, the strip and its tab come back together.
    QVERIFY(board->send(R"({"type":"hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board->pid()).isEmpty(), 5000);
    QVERIFY(board->send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(stripRect() == strip && tabShown(strip), 5000);

    // Resting on the tab, away from the screen edge, brings the toolbar back.
    const QRect tab =
        toolbar_geometry::tabRect(strip, toolbar_geometry::DockTop, screenScaleFactor());
    QVERIFY(xdotool::run({QStringLiteral("mousemove"), QString::number(tab.center().x()),
                          QString::number(tab.bottom() - 2)}));
    QTRY_VERIFY_WITH_TIMEOUT(toolbarRect().isValid(), 5000);
    QVERIFY(!stripRect().isValid());
}

void TestDesktopE2e::undoOnTheToolbarUndoes()
{
    QVERIFY(inkInProgram() > strokePixels);
    QVERIFY(clickToolbar(toolbar.undoCentre));
    QTRY_COMPARE_WITH_TIMEOUT(inkInProgram(), 0, 5000);
}

void TestDesktopE2e::hideAndShowKeepInkAndPen()
{
    drawStroke(200);
    QTRY_VERIFY_WITH_TIMEOUT(inkInProgram() > strokePixels, 5000);
    const int drawn = inkInProgram();

    QVERIFY(board->send(R"({"type":"hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board->pid()).isEmpty(), 5000);
    QTRY_COMPARE_WITH_TIMEOUT(inkInProgram(), 0, 5000);

    QVERIFY(board->send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.canvasOf(board->pid()).id != 0, 5000);
    QTRY_COMPARE_WITH_TIMEOUT(inkInProgram(), drawn, 5000);
    QRect bar;
    QVERIFY(reachToolbar(&bar));

    drawStroke(400);
    QTRY_VERIFY_WITH_TIMEOUT(inkInProgram() > drawn + strokePixels, 5000);
    saveScreen(QStringLiteral("shown-again"));
}

void TestDesktopE2e::escapeAndCloseHideEverything()
{
    const int drawn = inkInProgram();
    QVERIFY(drawn > strokePixels);
    // Escape on the canvas, which has the keyboard since the last stroke.
    QVERIFY(xdotool::run({QStringLiteral("key"), QStringLiteral("Escape")}));
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board->pid()).isEmpty(), 5000);
    QTRY_COMPARE_WITH_TIMEOUT(inkInProgram(), 0, 5000);
    QVERIFY(board->send(R"({"type":"show_or_hide"})"));
    QTRY_COMPARE_WITH_TIMEOUT(inkInProgram(), drawn, 5000);

    // The toolbar's cross.
    QVERIFY(clickToolbar(toolbar.closeCentre));
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board->pid()).isEmpty(), 5000);
    QTRY_COMPARE_WITH_TIMEOUT(inkInProgram(), 0, 5000);
    QVERIFY(board->send(R"({"type":"show_or_hide"})"));
    QTRY_COMPARE_WITH_TIMEOUT(inkInProgram(), drawn, 5000);
    QRect bar;
    QVERIFY(reachToolbar(&bar));
}

void TestDesktopE2e::typingIntoATextItemWorks()
{
    // A part of the program with no ink on it yet.
    const QRect place(programRect.left() + 620, programRect.top() + 300, 160, 80);
    QCOMPARE(countReddish(screen().copy(place)), 0);
    QVERIFY(clickToolbar(toolbar.textCentre));
    QVERIFY(xdotool::click(place.topLeft() + QPoint(10, 10)));
    QVERIFY(xdotool::run({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("80"),
                          QStringLiteral("HHHH")}));
    QTRY_VERIFY_WITH_TIMEOUT(countReddish(screen().copy(place)) > 60, 5000);
    saveScreen(QStringLiteral("typed"));
}

void TestDesktopE2e::desktopOperationLetsClicksThrough()
{
    QVERIFY(clickToolbar(toolbar.chooseCentre));
    const unsigned long canvas = probe.canvasOf(board->pid()).id;
    QTRY_VERIFY_WITH_TIMEOUT(probe.inputShapeEmpty(canvas), 5000);
    const QPoint free(programRect.right() - 50, programRect.bottom() - 50);
    QVERIFY(closeTo(screen().pixel(free), programColour));

    QVERIFY(xdotool::click(free));
    QTRY_VERIFY_WITH_TIMEOUT(closeTo(screen().pixel(free), clickedColour), 5000);
    // The ink stays on screen over the program.
    QVERIFY(inkInProgram() > strokePixels);
    saveScreen(QStringLiteral("clicked-through"));
}

QTEST_MAIN(TestDesktopE2e)
#include "test-desktop-e2e.moc"
