// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/x11-probe.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/shape.h>

#include <cstdio>
#include <cstdlib>
#include <functional>

namespace {

Display* dpy(void* display)
{
    return static_cast<Display*>(display);
}

// The raw bytes of a window property of the given type and format, or nothing.
QByteArray property(Display* display, ::Window window, const char* name, Atom wanted,
                    int wantedFormat)
{
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long after = 0;
    unsigned char* data = nullptr;
    QByteArray bytes;
    if (XGetWindowProperty(display, window, XInternAtom(display, name, False), 0, 1024, False,
                           wanted, &type, &format, &count, &after, &data) == Success &&
        data != nullptr) {
        if (type == wanted && format == wantedFormat) {
            // Xlib hands 32-bit items over as longs.
            const int itemSize = format == 32 ? int(sizeof(long)) : format / 8;
            bytes = QByteArray(reinterpret_cast<const char*>(data), int(count) * itemSize);
        }
        XFree(data);
    }
    return bytes;
}

qint64 windowPid(Display* display, ::Window window)
{
    const QByteArray bytes = property(display, window, "_NET_WM_PID", XA_CARDINAL, 32);
    if (bytes.size() != int(sizeof(unsigned long)))
        return -1;
    return static_cast<qint64>(*reinterpret_cast<const unsigned long*>(bytes.constData()));
}

QString windowTitle(Display* display, ::Window window)
{
    return QString::fromUtf8(
        property(display, window, "_NET_WM_NAME", XInternAtom(display, "UTF8_STRING", False), 8));
}

// The child of the root window that holds window: itself, or the frame it was put in.
::Window topLevelOf(Display* display, ::Window window)
{
    const ::Window rootWindow = DefaultRootWindow(display);
    for (;;) {
        ::Window root = 0;
        ::Window parent = 0;
        ::Window* children = nullptr;
        unsigned int count = 0;
        if (!XQueryTree(display, window, &root, &parent, &children, &count))
            return window;
        if (children != nullptr)
            XFree(children);
        if (parent == rootWindow || parent == 0)
            return window;
        window = parent;
    }
}

} // namespace

X11Probe::X11Probe() : display_(XOpenDisplay(nullptr)) {}

X11Probe::~X11Probe()
{
    if (display_ != nullptr)
        XCloseDisplay(dpy(display_));
}

QList<X11Probe::Window> X11Probe::windowsOf(qint64 pid) const
{
    QList<Window> found;
    Display* display = dpy(display_);
    const ::Window rootWindow = DefaultRootWindow(display);
    QList<::Window> clients;
    // A window manager puts each window it manages in a frame of its own: a client is a
    // child of the root window or lies a few levels down in such a frame.
    std::function<void(::Window, int)> collect = [&](::Window window, int depth) {
        ::Window root = 0;
        ::Window parent = 0;
        ::Window* children = nullptr;
        unsigned int count = 0;
        if (!XQueryTree(display, window, &root, &parent, &children, &count))
            return;
        for (unsigned int i = 0; i < count; ++i) {
            if (windowPid(display, children[i]) == pid)
                clients.append(children[i]);
            else if (depth < 3)
                collect(children[i], depth + 1);
        }
        if (children != nullptr)
            XFree(children);
    };
    collect(rootWindow, 0);
    for (::Window client : clients) {
        XWindowAttributes attributes;
        if (!XGetWindowAttributes(display, client, &attributes))
            continue;
        int x = 0;
        int y = 0;
        ::Window child = 0;
        XTranslateCoordinates(display, client, rootWindow, 0, 0, &x, &y, &child);
        Window window;
        window.id = client;
        window.geometry = QRect(x, y, attributes.width, attributes.height);
        window.viewable = attributes.map_state == IsViewable;
        window.title = windowTitle(display, client);
        found.append(window);
    }
    return found;
}

QList<X11Probe::Window> X11Probe::viewableWindowsOf(qint64 pid) const
{
    QList<Window> viewable;
    for (const Window& window : windowsOf(pid)) {
        if (window.viewable)
            viewable.append(window);
    }
    return viewable;
}

X11Probe::Window X11Probe::canvasOf(qint64 pid) const
{
    Display* display = dpy(display_);
    const QSize screen(DisplayWidth(display, DefaultScreen(display)),
                       DisplayHeight(display, DefaultScreen(display)));
    // As wide as the screen; a compositor may keep it out of a panel of its own.
    for (const Window& window : viewableWindowsOf(pid)) {
        if (window.geometry.width() == screen.width() &&
            window.geometry.height() > screen.height() / 2)
            return window;
    }
    return Window();
}

X11Probe::Window X11Probe::toolbarOf(qint64 pid) const
{
    Display* display = dpy(display_);
    const QSize screen(DisplayWidth(display, DefaultScreen(display)),
                       DisplayHeight(display, DefaultScreen(display)));
    for (const Window& window : viewableWindowsOf(pid)) {
        if (window.geometry.width() < screen.width() && window.geometry.height() > 1)
            return window;
    }
    return Window();
}

bool X11Probe::showsCanvasAndToolbar(qint64 pid) const
{
    return canvasOf(pid).id != 0 && toolbarOf(pid).id != 0;
}

X11Probe::Window X11Probe::windowTitled(qint64 pid, const QString& title) const
{
    for (const Window& window : viewableWindowsOf(pid)) {
        if (window.title == title)
            return window;
    }
    return Window();
}

bool X11Probe::stackedAbove(unsigned long upper, unsigned long lower) const
{
    Display* display = dpy(display_);
    ::Window root = 0;
    ::Window parent = 0;
    ::Window* children = nullptr;
    unsigned int count = 0;
    if (!XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count))
        return false;
    // Children come bottom first; a framed window stacks as its frame does.
    const ::Window upperTop = topLevelOf(display, upper);
    const ::Window lowerTop = topLevelOf(display, lower);
    int upperIndex = -1;
    int lowerIndex = -1;
    for (unsigned int i = 0; i < count; ++i) {
        if (children[i] == upperTop)
            upperIndex = static_cast<int>(i);
        if (children[i] == lowerTop)
            lowerIndex = static_cast<int>(i);
    }
    if (children != nullptr)
        XFree(children);
    return upperIndex >= 0 && lowerIndex >= 0 && upperIndex > lowerIndex;
}

unsigned long X11Probe::inputFocus() const
{
    ::Window focus = 0;
    int revertTo = 0;
    XGetInputFocus(dpy(display_), &focus, &revertTo);
    return focus;
}

bool X11Probe::inputShapeEmpty(unsigned long window) const
{
    int count = 0;
    int ordering = 0;
    XRectangle* rectangles =
        XShapeGetRectangles(dpy(display_), window, ShapeInput, &count, &ordering);
    if (rectangles != nullptr)
        XFree(rectangles);
    return count == 0;
}

void X11Probe::requestClose(unsigned long window) const
{
    Display* display = dpy(display_);
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, window, False, NoEventMask, &event);
    XFlush(display);
}

void X11Probe::nudgeWindowManager() const
{
    Display* display = dpy(display_);
    const unsigned char value = 1;
    XChangeProperty(display, DefaultRootWindow(display),
                    XInternAtom(display, "PALLO_TEST_NUDGE", False), XA_CARDINAL, 8,
                    PropModeReplace, &value, 1);
    XFlush(display);
}

void X11Probe::startCountingMaps()
{
    Display* display = dpy(display_);
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    XSync(display, False);
    XEvent event;
    while (XPending(display) > 0)
        XNextEvent(display, &event);
    maps_ = 0;
}

int X11Probe::mapsCounted()
{
    Display* display = dpy(display_);
    XSync(display, False);
    XEvent event;
    while (XPending(display) > 0) {
        XNextEvent(display, &event);
        if (event.type == MapNotify)
            ++maps_;
    }
    return maps_;
}

QImage X11Probe::grabScreen() const
{
    QScreen* screen = QGuiApplication::primaryScreen();
    return screen->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
}

bool isReddish(QRgb pixel)
{
    // Without a compositor the canvas's clear pixels show black, and the edges of a thin
    // stroke over them a darker red.
    return qRed(pixel) >= 120 && qRed(pixel) - qGreen(pixel) >= 80 &&
           qRed(pixel) - qBlue(pixel) >= 80;
}

int countReddish(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (isReddish(line[x]))
                ++count;
        }
    }
    return count;
}
