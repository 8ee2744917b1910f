// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/scale-factor.h"
#include "tests/e2e/desktop-session.h"
#include "tests/e2e/e2e-board.h"
#include "tests/e2e/toolbar-layout.h"
#include "tests/e2e/x11-probe.h"
#include "tests/e2e/xdotool.h"
#include "tests/test-output.h"

#include <QClipboard>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QScreen>
#include <QtTest>

// The host's tool messages sent to a real board, and the tools as a user meets them on
// screen: the magnifier, the screenshot with its file, clipboard and pinned picture, and
// the timer window; and the stored hotkeys, which the board never registers. With
// PALLO_DESKTOP_WM set (see desktop-session.h) it tries the tools under that desktop.
class TestBoardToolsE2e : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void magnifierCoversTheScreenOnceAndClosesByItsButton();
    void screenshotIsSavedCopiedPinnedAndSelects();
    void failedSaveIsToldAndKeepsThePicture();
    void timerMessageTogglesTheTimerWindow();
    void storedHotkeysDoNothing();

private:
    int windowsTitled(const QString& title) const;
    X11Probe::Window timerWindow() const;
    // Waits until the tool titled title covers the screen, has painted its picture of the
    // screen (its debug lines start with tag) and holds the focus again after hiding for
    // that picture: only then does a click reach its buttons. The window, or one with id 0.
    X11Probe::Window settledTool(const QString& title, const QByteArray& tag);
    void pickPen();
    // Where the tools place their round buttons under a rectangle of the screen.
    QPoint buttonCentre(const QRect& frame, bool right) const;

    X11Probe probe;
    DesktopSession desktop;
    ToolbarLayout toolbar;
    double s = 1.0;
    QRect screen;
    std::unique_ptr<E2eBoard> board;
    QString shots;
};

namespace {

bool isOrange(QRgb p)
{
    // Brightened first: over the black that a canvas without a compositor shows, the thin
    // frame's anti-aliased pixels are a darker orange.
    if (qRed(p) < 100)
        return false;
    const double k = 0xF5 / double(qRed(p));
    return qAbs(qGreen(p) * k - 0xA6) < 40 && qBlue(p) * k < 90;
}

// The lenses' and the selection's frame colour.
int countOrange(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += isOrange(image.pixel(x, y)) ? 1 : 0;
    }
    return count;
}

int truncated(double value)
{
    return static_cast<int>(value);
}

} // namespace

void TestBoardToolsE2e::initTestCase()
{
    QVERIFY(probe.isValid());
    // Measured before any window manager frames the test's own windows.
    toolbar = measureToolbarLayout();
    QVERIFY(!toolbar.size.isEmpty());
    const QString kind = DesktopSession::fromEnvironment();
    QVERIFY2(desktop.start(kind), qPrintable(QStringLiteral("no desktop ") + kind));
    s = screenScaleFactor();
    screen = QGuiApplication::primaryScreen()->geometry();
}

void TestBoardToolsE2e::init()
{
    board = std::make_unique<E2eBoard>();
    // The tools log each picture they paint; the tests wait for those lines.
    board->showDebugLines();
    // The host keeps the screenshot folder and format in the store it shares.
    shots = QDir(board->folder()).filePath("shots");
    QVERIFY(QDir().mkpath(shots));
    if (QByteArray(QTest::currentTestFunction()) == "failedSaveIsToldAndKeepsThePicture") {
        // A folder beneath a plain file: no one, not even root, can create it.
        QFile blocker(QDir(board->folder()).filePath("not-a-folder"));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        shots = QDir(blocker.fileName()).filePath("shots");
    }
    QFile store(QDir(board->folder()).filePath("bridge.json"));
    QVERIFY(store.open(QIODevice::WriteOnly));
    store.write(
        QJsonDocument(QJsonObject{{"screen.shot.path", shots}, {"screen.shot.format", "png"}})
            .toJson());
    store.close();
    QVERIFY(board->startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board->pid()), 10000);
    QTRY_COMPARE_WITH_TIMEOUT(probe.toolbarOf(board->pid()).geometry.size(), toolbar.size, 5000);
}

void TestBoardToolsE2e::cleanup()
{
    if (board) {
        board->closePipe();
        QVERIFY(board->waitForExit(5000));
        QCOMPARE(board->exitCode(), 0);
    }
    board.reset();
}

int TestBoardToolsE2e::windowsTitled(const QString& title) const
{
    int count = 0;
    for (const X11Probe::Window& window : probe.viewableWindowsOf(board->pid()))
        count += window.title == title ? 1 : 0;
    return count;
}

X11Probe::Window TestBoardToolsE2e::timerWindow() const
{
    const QSize size(qRound(424 * s), qRound(366 * s));
    for (const X11Probe::Window& window : probe.viewableWindowsOf(board->pid())) {
        if (window.geometry.size() == size)
            return window;
    }
    return X11Probe::Window();
}

X11Probe::Window TestBoardToolsE2e::settledTool(const QString& title, const QByteArray& tag)
{
    const QByteArray pictureLine =
        tag + "[this->Rect()]:QRect(0,0 " + QByteArray::number(screen.width()) + "x" +
        QByteArray::number(screen.height()) + "),[bgImg.Rect()]:QSize(" +
        QByteArray::number(screen.width()) + ", " + QByteArray::number(screen.height()) + ")";
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 10000) {
        const X11Probe::Window tool = probe.windowTitled(board->pid(), title);
        if (tool.id != 0 && tool.geometry == screen && probe.inputFocus() == tool.id &&
            board->errors().contains(pictureLine))
            return tool;
        QTest::qWait(50);
    }
    return X11Probe::Window();
}

void TestBoardToolsE2e::pickPen()
{
    const X11Probe::Window bar = probe.toolbarOf(board->pid());
    QVERIFY(xdotool::click(bar.geometry.topLeft() + toolbar.penCentre));
    QTRY_VERIFY_WITH_TIMEOUT(!probe.inputShapeEmpty(probe.canvasOf(board->pid()).id), 5000);
}

QPoint TestBoardToolsE2e::buttonCentre(const QRect& frame, bool right) const
{
    const int d = truncated(-22 * s);
    const int y = frame.bottom() + 7 - d;
    return QPoint(right ? frame.center().x() - d + 2 : frame.center().x() - truncated(22 * s) - 2,
                  y);
}

void TestBoardToolsE2e::magnifierCoversTheScreenOnceAndClosesByItsButton()
{
    QVERIFY(board->send(R"({"type":"zoom"})"));
    const X11Probe::Window magnifier = settledTool("ZoomWidget", "[ZOOM]");
    QVERIFY(magnifier.id != 0);
    QVERIFY(probe.stackedAbove(magnifier.id, probe.canvasOf(board->pid()).id));

    // The lens: an orange frame in the middle of the screen.
    QRect lens(0, 0, truncated(408 * s), truncated(329 * s));
    lens.moveCenter(QPoint(screen.width() / 2, screen.height() / 2));
    QTRY_VERIFY_WITH_TIMEOUT(
        countOrange(probe.grabScreen().copy(lens.adjusted(-2, -2, 2, 2))) > lens.width() * 2, 5000);

    keepPicture(probe.grabScreen(), "tools-e2e-magnifier");

    // Asked again while it is open, the board opens no second one.
    QVERIFY(board->send(R"({"type":"zoom"})"));
    QVERIFY(board->send(R"({"type":"redo"})"));
    QTest::qWait(300);
    QCOMPARE(windowsTitled("ZoomWidget"), 1);

    QVERIFY(xdotool::click(buttonCentre(lens, true)));
    QTRY_COMPARE_WITH_TIMEOUT(windowsTitled("ZoomWidget"), 0, 5000);
    QVERIFY(board->running());
    QVERIFY(probe.showsCanvasAndToolbar(board->pid()));

    // A fresh one opens on the next request.
    QVERIFY(board->send(R"({"type":"zoom"})"));
    QTRY_COMPARE_WITH_TIMEOUT(windowsTitled("ZoomWidget"), 1, 5000);
}

void TestBoardToolsE2e::screenshotIsSavedCopiedPinnedAndSelects()
{
    // Something drawn across the middle of the screen, to find in the picture.
    pickPen();
    QVERIFY(xdotool::stroke({{800, 500}, {900, 530}, {1000, 560}, {1100, 590}}));
    QTRY_VERIFY_WITH_TIMEOUT(countReddish(probe.grabScreen().copy(QRect(780, 480, 340, 130))) > 100,
                             5000);

    QVERIFY(board->send(R"({"type":"shut"})"));
    QVERIFY(settledTool("screenShotWidget", "[SCN]").id != 0);
    QRect selection(0, 0, truncated(300 * s), truncated(300 * s));
    selection.moveCenter(QPoint(screen.width() / 2, screen.height() / 2));
    QTRY_VERIFY_WITH_TIMEOUT(countOrange(probe.grabScreen().copy(
                                 selection.adjusted(-2, -2, 2, 2))) > selection.width() * 2,
                             5000);
    keepPicture(probe.grabScreen(), "tools-e2e-screenshot");
    // The stroke under the overlay is part of the still picture it shows.
    const QImage shown = probe.grabScreen().copy(selection.adjusted(3, 3, -3, -3));
    QVERIFY(countReddish(shown) > 100);

    QVERIFY(xdotool::click(buttonCentre(selection, false)));
    QTRY_COMPARE_WITH_TIMEOUT(windowsTitled("screenShotWidget"), 0, 5000);

    // The file, named by the time of saving, holds the selected part of the screen.
    QStringList files;
    QTRY_VERIFY_WITH_TIMEOUT(!(files = QDir(shots).entryList(QDir::Files)).isEmpty(), 5000);
    QCOMPARE(files.size(), 1);
    QVERIFY2(QRegularExpression("^\\d{4}-\\d\\d-\\d\\d-\\d\\d-\\d\\d-\\d\\d\\.png$")
                 .match(files.first())
                 .hasMatch(),
             qPrintable(files.first()));
    // The name is there as soon as the file is created; the picture once it is written.
    QImage saved;
    QTRY_VERIFY_WITH_TIMEOUT(!(saved = QImage(QDir(shots).filePath(files.first()))).isNull(), 5000);
    saved = saved.convertToFormat(QImage::Format_RGB32);
    QCOMPARE(saved.size(), selection.size());
    QVERIFY(countReddish(saved) > 100);

    // The clipboard holds the same picture.
    QTRY_VERIFY_WITH_TIMEOUT(!QGuiApplication::clipboard()->image().isNull(), 5000);
    QCOMPARE(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32),
             saved.convertToFormat(QImage::Format_RGB32));

    // It is pinned on the screen in a window of its own, at (200, 200).
    X11Probe::Window pinned;
    QTRY_VERIFY_WITH_TIMEOUT(
        [&] {
            for (const X11Probe::Window& window : probe.viewableWindowsOf(board->pid())) {
                if (window.geometry.topLeft() == QPoint(200, 200))
                    pinned = window;
            }
            return pinned.id != 0;
        }(),
        5000);
    QVERIFY(pinned.geometry.width() >= selection.width());
    keepPicture(probe.grabScreen(), "tools-e2e-pinned");
    QVERIFY(countReddish(probe.grabScreen().copy(pinned.geometry)) > 100);

    // And the board is back in select mode: clicks go through to the desktop.
    QTRY_VERIFY_WITH_TIMEOUT(probe.inputShapeEmpty(probe.canvasOf(board->pid()).id), 5000);
}

void TestBoardToolsE2e::failedSaveIsToldAndKeepsThePicture()
{
    const QList<X11Probe::Window> before = probe.viewableWindowsOf(board->pid());
    QVERIFY(board->send(R"({"type":"shut"})"));
    QVERIFY(settledTool("screenShotWidget", "[SCN]").id != 0);
    QRect selection(0, 0, truncated(300 * s), truncated(300 * s));
    selection.moveCenter(QPoint(screen.width() / 2, screen.height() / 2));
    QVERIFY(xdotool::click(buttonCentre(selection, false)));
    QTRY_COMPARE_WITH_TIMEOUT(windowsTitled("screenShotWidget"), 0, 5000);

    // Said on standard error, with the path.
    QTRY_VERIFY_WITH_TIMEOUT(
        board->errors().contains("[E] screenshot not saved to " + QFile::encodeName(shots)), 5000);
    // And on the screen: a message in the middle, white text on red.
    X11Probe::Window notice;
    QTRY_VERIFY_WITH_TIMEOUT(
        [&] {
            for (const X11Probe::Window& window : probe.viewableWindowsOf(board->pid())) {
                const QPoint off = window.geometry.center() - screen.center();
                if (off.manhattanLength() <= 2 && window.geometry.width() < screen.width())
                    notice = window;
            }
            return notice.id != 0;
        }(),
        5000);
    keepPicture(probe.grabScreen(), "tools-e2e-save-failed");
    const QImage shown = probe.grabScreen().copy(notice.geometry);
    int red = 0;
    int white = 0;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            const QRgb p = shown.pixel(x, y);
            red += (qAbs(qRed(p) - 0xb3) < 24 && qGreen(p) < 70 && qBlue(p) < 70) ? 1 : 0;
            white += qGray(p) > 220 ? 1 : 0;
        }
    }
    QVERIFY2(red > shown.width() * shown.height() / 2 && white > 50,
             qPrintable(QStringLiteral("%1 red, %2 white").arg(red).arg(white)));

    // No file anywhere, and the picture still reached the clipboard and the board.
    QVERIFY(!QFileInfo::exists(shots));
    QTRY_VERIFY_WITH_TIMEOUT(!QGuiApplication::clipboard()->image().isNull(), 5000);
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board->pid()).size() >= before.size() + 2,
                             5000);
}

void TestBoardToolsE2e::timerMessageTogglesTheTimerWindow()
{
    QVERIFY(timerWindow().id == 0);
    QVERIFY(board->send(R"({"type":"timer"})"));
    QTRY_VERIFY_WITH_TIMEOUT(timerWindow().id != 0, 5000);
    QVERIFY(probe.stackedAbove(timerWindow().id, probe.canvasOf(board->pid()).id));
    keepPicture(probe.grabScreen(), "tools-e2e-timer");
    QVERIFY(board->send(R"({"type":"timer"})"));
    QTRY_VERIFY_WITH_TIMEOUT(timerWindow().id == 0, 5000);
    QVERIFY(probe.showsCanvasAndToolbar(board->pid()));
}

// The settings hold Ctrl+M for the timer, Ctrl+B for the magnifier and Alt+S for the
// screenshot, but nothing registers them: pressing them opens nothing.
void TestBoardToolsE2e::storedHotkeysDoNothing()
{
    const int before = probe.viewableWindowsOf(board->pid()).size();
    for (const char* keys : {"ctrl+m", "ctrl+b", "alt+s"})
        QVERIFY(xdotool::run({"key", keys}));
    QTest::qWait(500);
    QCOMPARE(probe.viewableWindowsOf(board->pid()).size(), before);
    QCOMPARE(timerWindow().id, 0ul);
    QCOMPARE(windowsTitled("ZoomWidget"), 0);
    QCOMPARE(windowsTitled("screenShotWidget"), 0);
}

QTEST_MAIN(TestBoardToolsE2e)
#include "test-board-tools-e2e.moc"
