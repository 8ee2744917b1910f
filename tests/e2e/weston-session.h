// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QList>
#include <QPoint>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

// A weston session (its desktop shell, pixman rendering) with XWayland and a native
// Wayland program (foot, maximised, with a green background), nested in an Xvfb of its
// own through weston's X11 backend. That backend gives weston a seat: xdotool on the
// outer X server moves weston's pointer and presses its keys, and weston hands them on to
// its Wayland clients and to XWayland's, as a user's mouse and keyboard would. Its
// screenshot needs weston started with --debug. Like sway, it is run as an ordinary user
// of its own when the test runs as root, and lets root's X clients in with xhost.
class WestonSession
{
public:
    static constexpr int width = 1920;
    static constexpr int height = 1080;
    // weston's panel runs along the top, above every window, with a clock that changes.
    static constexpr int panelHeight = 32;

    WestonSession();
    ~WestonSession();

    // Starts the outer X server, weston, its X server and foot, and waits until all are
    // there.
    bool start();
    // Why the session could not start on this machine; the test then skips.
    QString skipReason() const { return m_skipReason; }
    QString error() const { return m_error; }

    // The XWayland display for X clients, e.g. ":1".
    QString display() const { return m_display; }
    QProcessEnvironment waylandEnvironment() const;

    // The compositor's own picture of the screen (weston-screenshooter).
    QImage screenshot() const;

    // Real input through weston's seat.
    bool moveTo(const QPoint& p) const;
    bool click(const QPoint& p) const;
    // Presses the left button at the first point, moves through the others and releases.
    bool drag(const QList<QPoint>& points) const;
    // A key by its X keysym name, e.g. "Escape".
    bool pressKey(const QString& name) const;
    // Text, key by key.
    bool type(const QString& text) const;

private:
    bool fail(const QString& why);
    bool skip(const QString& why);
    QString log(const QString& name) const;
    bool startOuterServer();
    bool syncPointer() const;
    // Runs a program of the session as the session's user, in its environment.
    void startAsUser(QProcess& process, const QStringList& command, const QString& logName);

    std::unique_ptr<QTemporaryDir> m_dir;
    QProcess m_xvfb;
    QProcess m_weston;
    QProcess m_foot;
    QStringList m_asUser;
    QString m_outerDisplay;
    QString m_display;
    QString m_skipReason;
    QString m_error;
};
