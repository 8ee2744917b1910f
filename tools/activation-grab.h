// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QEvent;
class QObject;
class QWidget;

// The caller's process-wide state of its still picture. taken is set while a picture is
// current and cleared on deactivation. settling lasts from the hiding for a picture until
// the window is activated again, and while it lasts a deactivation in favour of another
// of the board's windows does not count: on X11 the focus that the hiding took away is
// reported only later, and a window manager that hands it to another window first
// (openbox gives it to the canvas) would otherwise have the window deactivated and, once
// it takes the focus back, picture the screen again, and again.
struct ActivationPicture
{
    bool taken = false;
    bool settling = false;
};

// Takes a new still picture each time window is activated again after having lost
// activation. The window is hidden during the grab, so the picture never shows the
// window itself. Only window's own events count (watched is the object an event filter
// was handed). Returns true when the event is consumed.
bool regrabOnActivation(QWidget* window, QObject* watched, QEvent* event,
                        ActivationPicture& picture, const std::function<void()>& takePicture);
