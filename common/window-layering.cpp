// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/window-layering.h"

#ifndef Q_OS_WIN
#include "common/window-manager-name.h"
#include "common/x11-root-geometry.h"
#endif

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

// The canvas is an ordinary managed window (so the window manager gives it the keyboard
// for text and Escape) that is sized to its screen but never put in the full-screen
// state: XWayland compositors (sway, weston) draw an opaque black backdrop behind a
// full-screen window and stop drawing what lies beneath, and X11 window managers
// (openbox) lift a focused full-screen window above every stay-on-top window, the
// toolbar's included.
//
// The toolbar and its strip bypass the window manager (override-redirect). Window
// managers and XWayland compositors stack such windows above all managed ones, so a click
// that focuses, and raises, the canvas cannot cover them, and no frame window of the
// manager lies over them to swallow their clicks. They never need the keyboard. So do
// the pinned pictures, and the magnifier and the screenshot overlay, which cover the
// screen: a window manager would stack them by its own rules (xfwm4 left the magnifier
// beneath the canvas, openbox never gave the overlay the focus it waits for); unmanaged,
// they take the focus themselves when shown. Being unmanaged, they are sized to the screen
// and not put in the full-screen state, which no window manager acts on for them, and which
// made weston 10's X window manager abort, taking the whole session down, when the
// magnifier was opened. The timer window and the settings panel are transient for the
// canvas, which keeps them above it as well.
//
// weston's X window manager (weston 10) puts a managed frameless window inside a frame
// with a margin for its shadow and places that frame by its own rules, whatever position
// the window asks for (the canvas lay 64 pixels in from the screen's top-left corner and
// hung over the other edges), and it gives the keyboard only to the windows it manages:
// an unmanaged canvas never saw Escape or typed text, and the X focus cannot be taken
// behind its back. A maximised window it places exactly over the area its panel leaves
// free, without a frame or shadow, and activates it on a click. So there the canvas is
// managed and maximised; the strip under the panel is not lost, since the panel lies
// above every X window anyway. The toolbar keeps to the same area (canvasArea).
namespace {

bool westonManagesWindows()
{
#ifndef Q_OS_WIN
    return x11WindowManagerName() == QLatin1String("Weston WM");
#else
    return false;
#endif
}

// Where weston has put the canvas, as the X server has it; null where weston does not
// manage and maximise the canvas.
QRect westonCanvasFrame(const QWidget* canvas)
{
#ifndef Q_OS_WIN
    if (canvas && canvas->isWindow() && canvas->isMaximized() && westonManagesWindows())
        return x11RootGeometry(canvas->winId());
#else
    Q_UNUSED(canvas)
#endif
    return QRect();
}

} // namespace

namespace window_layering {

Qt::WindowFlags canvasFlags()
{
    return Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
}

Qt::WindowFlags overCanvasFlags()
{
    Qt::WindowFlags flags = Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
#ifndef Q_OS_WIN
    flags |= Qt::X11BypassWindowManagerHint;
#endif
    return flags;
}

void showToolOverScreen(QWidget* tool)
{
#ifndef Q_OS_WIN
    tool->setWindowFlags(tool->windowFlags() | Qt::X11BypassWindowManagerHint |
                         Qt::FramelessWindowHint);
#endif
    if (QScreen* screen = QGuiApplication::primaryScreen())
        tool->setGeometry(screen->geometry());
#ifndef Q_OS_WIN
    // As showing full screen would: the tool waits for the focus to take its picture.
    tool->show();
    tool->activateWindow();
#else
    tool->showFullScreen();
#endif
}

void showCanvasOverScreen(QWidget* canvas)
{
    // Mapped with the whole screen's size first, the canvas was now and then left by
    // weston with its frame where it was mapped, so that X placed it 32 pixels right of
    // where weston showed it and clicks went astray.
    if (westonManagesWindows()) {
        canvas->showMaximized();
        return;
    }
    QScreen* screen = canvas->screen();
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (screen)
        canvas->setGeometry(screen->geometry());
    canvas->show();
}

QRect canvasArea(const QWidget* canvas, const QRect& screen)
{
    const QRect area = screen & westonCanvasFrame(canvas);
    return area.isEmpty() ? screen : area;
}

// weston moves the frame it put the maximised canvas in a moment after mapping it, and
// tells neither the canvas nor the toolkit, whose idea of the canvas's place then stays
// 32 pixels off. The scene finds the items under a press by its place on the screen, so it
// missed the text item the press had just made, which lost the focus and was dropped.
void followCanvasFrame(QWidget* canvas)
{
    const QRect real = westonCanvasFrame(canvas);
    if (!real.isNull() && canvas->windowHandle() && real.topLeft() != canvas->geometry().topLeft())
        canvas->windowHandle()->setPosition(real.topLeft());
}

} // namespace window_layering
