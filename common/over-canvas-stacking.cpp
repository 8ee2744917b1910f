// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/over-canvas-stacking.h"

#include "common/x11-display.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <QtEndian>

#include <X11/Xlib.h>

#include <cstring>

namespace {

// What a root window's SubstructureNotify brings: create, destroy, unmap, map, reparent,
// configure, gravity and circulate notifications. Each names the watched window at byte
// 4 and the window it reports on at byte 8.
constexpr int kCreateNotify = 16;
constexpr int kMapNotify = 19;
constexpr int kConfigureNotify = 22;
constexpr int kCirculateNotify = 26;
constexpr int kEventWindow = 4;
constexpr int kWindow = 8;

QSet<unsigned long> unmanagedWindows()
{
    QSet<unsigned long> ours;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->isVisible() && w->windowFlags().testFlag(Qt::X11BypassWindowManagerHint) &&
            w->testAttribute(Qt::WA_WState_Created))
            ours.insert(static_cast<unsigned long>(w->winId()));
    }
    return ours;
}

uint32_t windowAt(const unsigned char* event, int offset)
{
    uint32_t window;
    std::memcpy(&window, event + offset, sizeof window);
    return window;
}

} // namespace

QList<unsigned long> OverCanvasStacking::toRaise(const QList<unsigned long>& bottomToTop,
                                                 const QSet<unsigned long>& ours)
{
    QList<unsigned long> found;
    bool foreignAbove = false;
    for (unsigned long window : bottomToTop) {
        if (ours.contains(window))
            found.append(window);
        else if (!found.isEmpty())
            foreignAbove = true;
    }
    return foreignAbove ? found : QList<unsigned long>();
}

void OverCanvasStacking::raiseOurs()
{
    m_pending = false;
    Display* display = x11Display();
    const QSet<unsigned long> ours = unmanagedWindows();
    if (!display || ours.isEmpty())
        return;
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned int count = 0;
    if (!XQueryTree(display, m_root, &root, &parent, &children, &count))
        return;
    QList<unsigned long> stack;
    for (unsigned int i = 0; i < count; ++i)
        stack.append(children[i]);
    if (children)
        XFree(children);
    for (unsigned long window : toRaise(stack, ours))
        XRaiseWindow(display, window);
    XFlush(display);
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
bool OverCanvasStacking::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
#else
bool OverCanvasStacking::nativeEventFilter(const QByteArray& eventType, void* message, long*)
#endif
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const unsigned char*>(message);
    const int type = event[0] & 0x7f;
    if (type < kCreateNotify || type > kCirculateNotify ||
        windowAt(event, kEventWindow) != m_root || windowAt(event, kWindow) == m_root)
        return false;
    // The board's own restacking reports itself too; only others' call for a raise.
    if ((type == kMapNotify || type == kConfigureNotify) && !m_pending &&
        !unmanagedWindows().contains(windowAt(event, kWindow))) {
        m_pending = true;
        QTimer::singleShot(0, [this] { raiseOurs(); });
    }
    // The toolkit did not ask for these, and would take a window's new size reported to
    // the root for the screen's.
    return m_swallow;
}

void OverCanvasStacking::install()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb") ||
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return;
    Display* display = x11Display();
    if (!display)
        return;
    static OverCanvasStacking stacking;
    stacking.m_root = DefaultRootWindow(display);
    // Added to what the toolkit already listens for on the root window.
    XWindowAttributes attributes;
    if (!XGetWindowAttributes(display, stacking.m_root, &attributes))
        return;
    stacking.m_swallow = !(attributes.your_event_mask & SubstructureNotifyMask);
    XSelectInput(display, stacking.m_root, attributes.your_event_mask | SubstructureNotifyMask);
    XFlush(display);
    QCoreApplication::instance()->installNativeEventFilter(&stacking);
}
