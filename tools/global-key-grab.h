// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

#include <functional>
#include <memory>

// One key combination held system-wide for this process; the platform's half of
// QxtGlobalShortcut.
class GlobalKeyGrab
{
public:
    explicit GlobalKeyGrab(std::function<void()> pressed);
    ~GlobalKeyGrab();

    GlobalKeyGrab(const GlobalKeyGrab&) = delete;
    GlobalKeyGrab& operator=(const GlobalKeyGrab&) = delete;

    bool grab(Qt::Key key, Qt::KeyboardModifiers modifiers);
    bool release();
    bool isHeld() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
