// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/global-key-grab.h"

#include <QSocketNotifier>

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/keysym.h>

#include <array>
#include <utility>

namespace {

// The grab is made on a connection of its own, so its errors and key events never mix
// with those of the GUI's connection.
int s_lastError = 0;

int recordError(Display*, XErrorEvent* event)
{
    s_lastError = event->error_code;
    return 0;
}

KeySym keySymFor(Qt::Key key)
{
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35)
        return XK_F1 + (key - Qt::Key_F1);
    // Latin-1 keys share their codes with their key symbols.
    if (key >= Qt::Key_Space && key <= Qt::Key_ydiaeresis)
        return static_cast<KeySym>(key);
    static const std::array<std::pair<Qt::Key, KeySym>, 17> named = {{
        {Qt::Key_Escape, XK_Escape},
        {Qt::Key_Tab, XK_Tab},
        {Qt::Key_Backspace, XK_BackSpace},
        {Qt::Key_Return, XK_Return},
        {Qt::Key_Enter, XK_KP_Enter},
        {Qt::Key_Insert, XK_Insert},
        {Qt::Key_Delete, XK_Delete},
        {Qt::Key_Pause, XK_Pause},
        {Qt::Key_Print, XK_Print},
        {Qt::Key_Home, XK_Home},
        {Qt::Key_End, XK_End},
        {Qt::Key_Left, XK_Left},
        {Qt::Key_Up, XK_Up},
        {Qt::Key_Right, XK_Right},
        {Qt::Key_Down, XK_Down},
        {Qt::Key_PageUp, XK_Prior},
        {Qt::Key_PageDown, XK_Next},
    }};
    for (const auto& entry : named) {
        if (entry.first == key)
            return entry.second;
    }
    return NoSymbol;
}

unsigned int maskFor(Qt::KeyboardModifiers modifiers)
{
    unsigned int mask = 0;
    if (modifiers & Qt::ShiftModifier)
        mask |= ShiftMask;
    if (modifiers & Qt::ControlModifier)
        mask |= ControlMask;
    if (modifiers & Qt::AltModifier)
        mask |= Mod1Mask;
    if (modifiers & Qt::MetaModifier)
        mask |= Mod4Mask;
    return mask;
}

// Caps Lock and Num Lock must not keep the hotkey from firing, so each of their states
// is grabbed as well.
constexpr std::array<unsigned int, 4> lockStates = {0, LockMask, Mod2Mask, LockMask | Mod2Mask};

} // namespace

struct GlobalKeyGrab::Private
{
    std::function<void()> pressed;
    Display* display = nullptr;
    std::unique_ptr<QSocketNotifier> notifier;
    KeyCode keycode = 0;
    unsigned int mask = 0;
    bool held = false;

    void ungrab()
    {
        const Window root = DefaultRootWindow(display);
        for (unsigned int lock : lockStates)
            XUngrabKey(display, keycode, mask | lock, root);
        XSync(display, False);
    }

    void readEvents()
    {
        while (XPending(display) > 0) {
            XEvent event;
            XNextEvent(display, &event);
            if (event.type == KeyPress && held && event.xkey.keycode == keycode &&
                (event.xkey.state & ~(LockMask | Mod2Mask)) == mask)
                pressed();
        }
    }
};

GlobalKeyGrab::GlobalKeyGrab(std::function<void()> pressed) : d(std::make_unique<Private>())
{
    d->pressed = std::move(pressed);
    d->display = XOpenDisplay(nullptr);
    if (d->display == nullptr)
        return;
    d->notifier =
        std::make_unique<QSocketNotifier>(ConnectionNumber(d->display), QSocketNotifier::Read);
    QObject::connect(d->notifier.get(), &QSocketNotifier::activated, d->notifier.get(),
                     [this] { d->readEvents(); });
}

GlobalKeyGrab::~GlobalKeyGrab()
{
    if (d->display == nullptr)
        return;
    if (d->held)
        d->ungrab();
    d->notifier.reset();
    XCloseDisplay(d->display);
}

bool GlobalKeyGrab::grab(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (d->display == nullptr || d->held)
        return false;
    const KeySym symbol = keySymFor(key);
    const KeyCode keycode = symbol == NoSymbol ? 0 : XKeysymToKeycode(d->display, symbol);
    if (keycode == 0)
        return false;
    d->keycode = keycode;
    d->mask = maskFor(modifiers);

    const Window root = DefaultRootWindow(d->display);
    XSync(d->display, False);
    s_lastError = 0;
    XErrorHandler previous = XSetErrorHandler(recordError);
    for (unsigned int lock : lockStates)
        XGrabKey(d->display, keycode, d->mask | lock, root, True, GrabModeAsync, GrabModeAsync);
    XSync(d->display, False);
    XSetErrorHandler(previous);
    if (s_lastError != 0) {
        // Taken by another program: give back whatever part was granted.
        d->ungrab();
        return false;
    }
    d->held = true;
    return true;
}

bool GlobalKeyGrab::release()
{
    if (!d->held)
        return false;
    d->ungrab();
    d->held = false;
    return true;
}

bool GlobalKeyGrab::isHeld() const
{
    return d->held;
}
