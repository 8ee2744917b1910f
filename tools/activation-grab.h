// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QEvent;
class QObject;
class QWidget;

// Takes a new still picture each time window is activated again after having lost
// activation. The window is hidden during the grab, so the picture never shows the
// window itself. grabbed is the caller's process-wide flag: set while a picture is
// current, cleared on deactivation. Only window's own events count (watched is the
// object an event filter was handed). Returns true when the event is consumed.
bool regrabOnActivation(QWidget* window, QObject* watched, QEvent* event, bool& grabbed,
                        const std::function<void()>& takePicture);
