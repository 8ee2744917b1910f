// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>

// Forgets a tool window at once and deletes it once control has left it: the window
// announces its end from inside its own close or button handling.
template <typename Window> void dropLater(QPointer<Window>& window)
{
    if (window)
        window->deleteLater();
    window = nullptr;
}
