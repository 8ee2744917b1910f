// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

#include <memory>

// A headless weston session (its desktop shell, pixman rendering) with XWayland. weston
// headless has no seat, so it takes no input: programs in it are driven otherwise. Its
// screenshot needs weston started with --debug. Like sway, it is run as an ordinary user
// of its own when the test runs as root, and lets root's X clients in with xhost.
class WestonSession
{
public:
    static constexpr int width = 1920;
    static constexpr int height = 1080;

    WestonSession();
    ~WestonSession();

    // Starts weston and its X server and waits until both are there.
    bool start();
    // Why the session could not start on this machine; the test then skips.
    QString skipReason() const { return m_skipReason; }
    QString error() const { return m_error; }

    // The XWayland display for X clients, e.g. ":1".
    QString display() const { return m_display; }
    QProcessEnvironment waylandEnvironment() const;

    // The compositor's own picture of the screen (weston-screenshooter).
    QImage screenshot() const;

private:
    bool fail(const QString& why);
    bool skip(const QString& why);
    QString log() const;

    std::unique_ptr<QTemporaryDir> m_dir;
    QProcess m_weston;
    QStringList m_asUser;
    QString m_display;
    QString m_skipReason;
    QString m_error;
};
