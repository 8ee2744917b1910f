// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

// A still picture of the whole primary screen, or why there is none.
struct ScreenPicture
{
    QImage image;
    QString failure;

    bool ok() const { return !image.isNull() && failure.isEmpty(); }
};

// Reads what the screen shows. An X client under a Wayland compositor (XWayland) sees only
// the X windows in the root window, never the native Wayland ones beneath, so there the
// picture comes from the desktop portal; on X11 (and Windows) the window system's own grab
// serves.
class ScreenGrabber
{
public:
    enum class Way
    {
        WindowSystem,
        Portal,
    };

    // The way that pictures the real screen for a session with these variables.
    static Way wayFor(const QByteArray& waylandDisplay);

    // Takes the picture the current session needs; on failure logs the reason and returns
    // a picture with no image and a message for the user.
    static ScreenPicture grab();
    static ScreenPicture grabWindowSystem();

    // What the user reads when the screen could not be pictured.
    static QString failureMessage();
};
