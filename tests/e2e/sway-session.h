// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

#include <memory>

// A headless sway session with XWayland, a native Wayland program (foot with a green
// background) on the left half of the screen and a VNC server for real pointer input.
// sway refuses to run as root; a root test runs it as an ordinary user of its own and
// lets root's X clients in with xhost from inside the session.
class SwaySession
{
public:
    static constexpr int width = 1920;
    static constexpr int height = 1080;

    SwaySession();
    ~SwaySession();

    // Starts everything and waits until it is there; false with a reason otherwise.
    bool start();
    // Why the session could not start, when the machine cannot have one (no sway, no
    // user to run it as): the test skips instead of failing.
    QString skipReason() const { return m_skipReason; }
    QString error() const { return m_error; }

    // The XWayland display for X clients, e.g. ":2".
    QString display() const { return m_display; }
    QString vncSocket() const;
    // What a Wayland client of the session needs in its environment.
    QProcessEnvironment waylandEnvironment() const;

    // The compositor's own picture of the screen (grim).
    QImage screenshot() const;

private:
    bool fail(const QString& why);
    bool skip(const QString& why);
    bool waitForFile(const QString& path, int timeoutMs) const;
    QString log(const QString& name) const;

    std::unique_ptr<QTemporaryDir> m_dir;
    QProcess m_sway;
    QProcess m_vnc;
    QString m_waylandDisplay;
    QString m_display;
    QString m_skipReason;
    QString m_error;
};
