// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/global-key-grab.h"

#include <QAbstractEventDispatcher>
#include <QAbstractNativeEventFilter>

#include <windows.h>

#include <array>
#include <utility>

namespace {

UINT virtualKeyFor(Qt::Key key)
{
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return VK_F1 + (key - Qt::Key_F1);
    // Digits and letters share their codes with their virtual keys.
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z))
        return static_cast<UINT>(key);
    static const std::array<std::pair<Qt::Key, UINT>, 18> named = {{
        {Qt::Key_Escape, VK_ESCAPE},
        {Qt::Key_Tab, VK_TAB},
        {Qt::Key_Backspace, VK_BACK},
        {Qt::Key_Return, VK_RETURN},
        {Qt::Key_Enter, VK_RETURN},
        {Qt::Key_Insert, VK_INSERT},
        {Qt::Key_Delete, VK_DELETE},
        {Qt::Key_Pause, VK_PAUSE},
        {Qt::Key_Print, VK_SNAPSHOT},
        {Qt::Key_Home, VK_HOME},
        {Qt::Key_End, VK_END},
        {Qt::Key_Left, VK_LEFT},
        {Qt::Key_Up, VK_UP},
        {Qt::Key_Right, VK_RIGHT},
        {Qt::Key_Down, VK_DOWN},
        {Qt::Key_PageUp, VK_PRIOR},
        {Qt::Key_PageDown, VK_NEXT},
        {Qt::Key_Space, VK_SPACE},
    }};
    for (const auto& entry : named) {
        if (entry.first == key)
            return entry.second;
    }
    return 0;
}

UINT modifiersFor(Qt::KeyboardModifiers modifiers)
{
    UINT result = 0;
    if (modifiers & Qt::ShiftModifier)
        result |= MOD_SHIFT;
    if (modifiers & Qt::ControlModifier)
        result |= MOD_CONTROL;
    if (modifiers & Qt::AltModifier)
        result |= MOD_ALT;
    if (modifiers & Qt::MetaModifier)
        result |= MOD_WIN;
    return result;
}

int nextHotKeyId()
{
    static int id = 0;
    return ++id;
}

} // namespace

struct GlobalKeyGrab::Private : QAbstractNativeEventFilter
{
    std::function<void()> pressed;
    int id = nextHotKeyId();
    bool held = false;

    bool nativeEventFilter(const QByteArray&, void* message, long*) override
    {
        const MSG* msg = static_cast<const MSG*>(message);
        if (held && msg->message == WM_HOTKEY && static_cast<int>(msg->wParam) == id)
            pressed();
        return false;
    }
};

GlobalKeyGrab::GlobalKeyGrab(std::function<void()> pressed) : d(std::make_unique<Private>())
{
    d->pressed = std::move(pressed);
    if (QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance())
        dispatcher->installNativeEventFilter(d.get());
}

GlobalKeyGrab::~GlobalKeyGrab()
{
    if (d->held)
        UnregisterHotKey(nullptr, d->id);
    if (QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance())
        dispatcher->removeNativeEventFilter(d.get());
}

bool GlobalKeyGrab::grab(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    const UINT virtualKey = virtualKeyFor(key);
    if (d->held || virtualKey == 0)
        return false;
    d->held = RegisterHotKey(nullptr, d->id, modifiersFor(modifiers) | MOD_NOREPEAT, virtualKey);
    return d->held;
}

bool GlobalKeyGrab::release()
{
    if (!d->held)
        return false;
    d->held = false;
    return UnregisterHotKey(nullptr, d->id) != 0;
}

bool GlobalKeyGrab::isHeld() const
{
    return d->held;
}
