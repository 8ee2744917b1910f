// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QString>

class QProcess;

// The desktop a test runs the board on, on the X server of DISPLAY: nothing ("none"),
// a compositor without a window manager ("compositor", xcompmgr), openbox with xcompmgr
// ("openbox"), or xfwm4 with its own compositor ("xfwm4"). The choice comes from
// PALLO_DESKTOP_WM.
class DesktopSession : public QObject
{
    Q_OBJECT
public:
    explicit DesktopSession(QObject* parent = nullptr);
    ~DesktopSession() override;

    static QString fromEnvironment();

    // Starts the desktop's programs and waits until the window manager and the compositor
    // have announced themselves.
    bool start(const QString& kind);
    void stop();

    QString kind() const { return m_kind; }
    bool composited() const { return m_kind != QLatin1String("none"); }

private:
    bool ready() const;
    // A private D-Bus session bus; its address, or an empty string.
    QString startSessionBus();

    QString m_kind;
    QList<QProcess*> m_programs;
};
