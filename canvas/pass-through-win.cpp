// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/pass-through.h"

#include <QWidget>
#include <qt_windows.h>

void setMousePassThrough(QWidget* window, bool passThrough)
{
    if (!window)
        return;
    const auto hwnd = reinterpret_cast<HWND>(window->winId());
    const LONG_PTR style = GetWindowLongPtrW(hwnd, GWL_EXSTYLE);
    if (passThrough) {
        SetWindowLongPtrW(hwnd, GWL_EXSTYLE, style | WS_EX_TRANSPARENT);
    } else {
        SetWindowLongPtrW(hwnd, GWL_EXSTYLE, style & ~LONG_PTR(WS_EX_TRANSPARENT));
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    }
}
