// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/desktop-session.h"

#include <QDir>
#include <QProcess>
#include <QtTest>

#include <X11/Xatom.h>
#include <X11/Xlib.h>

DesktopSession::DesktopSession(QObject* parent) : QObject(parent) {}

DesktopSession::~DesktopSession()
{
    stop();
}

QString DesktopSession::fromEnvironment()
{
    return qEnvironmentVariable("PALLO_DESKTOP_WM", QStringLiteral("none"));
}

bool DesktopSession::ready() const
{
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr)
        return false;
    bool ready = true;
    if (m_kind == QLatin1String("openbox") || m_kind == QLatin1String("xfwm4")) {
        Atom type = None;
        int format = 0;
        unsigned long count = 0;
        unsigned long after = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(display, DefaultRootWindow(display),
                           XInternAtom(display, "_NET_SUPPORTING_WM_CHECK", False), 0, 1, False,
                           XA_WINDOW, &type, &format, &count, &after, &data);
        ready = count == 1;
        if (data != nullptr)
            XFree(data);
    }
    // The compositor announces itself by owning the manager selection.
    if (composited())
        ready = ready &&
                XGetSelectionOwner(display, XInternAtom(display, "_NET_WM_CM_S0", False)) != None;
    XCloseDisplay(display);
    return ready;
}

QString DesktopSession::startSessionBus()
{
    auto* bus = new QProcess(this);
    bus->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    bus->start(QStringLiteral("dbus-daemon"),
               {QStringLiteral("--session"), QStringLiteral("--nofork"),
                QStringLiteral("--print-address=1")});
    m_programs.append(bus);
    if (!bus->waitForStarted(5000))
        return QString();
    while (!bus->canReadLine()) {
        if (!bus->waitForReadyRead(5000))
            return QString();
    }
    return QString::fromLocal8Bit(bus->readLine()).trimmed();
}

bool DesktopSession::start(const QString& kind)
{
    m_kind = kind;
    QList<QStringList> commands;
    if (kind == QLatin1String("openbox"))
        commands = {{QStringLiteral("openbox")}, {QStringLiteral("xcompmgr")}};
    else if (kind == QLatin1String("xfwm4"))
        // Without waiting for vertical blanks xfwm4 paints its composited picture straight
        // onto the screen, where the tests read it as on any other desktop.
        commands = {{QStringLiteral("xfwm4"), QStringLiteral("--compositor=on"),
                     QStringLiteral("--vblank=off")}};
    else if (kind == QLatin1String("compositor"))
        commands = {{QStringLiteral("xcompmgr")}};
    else if (kind != QLatin1String("none"))
        return false;
    // Window managers read their settings from the home folder and stop without one.
    if (!QDir().mkpath(QDir::homePath()))
        return false;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // xfwm4 reads its settings through xfconf, which it reaches over a session bus; without
    // one it stops. A bus of the session's own keeps the test away from the user's.
    if (kind == QLatin1String("xfwm4")) {
        const QString address = startSessionBus();
        if (address.isEmpty())
            return false;
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
    }
    for (const QStringList& command : commands) {
        auto* process = new QProcess(this);
        process->setProcessChannelMode(QProcess::ForwardedChannels);
        process->setProcessEnvironment(environment);
        process->setWorkingDirectory(QDir::homePath());
        process->start(command.first(), command.mid(1));
        if (!process->waitForStarted(5000))
            return false;
        m_programs.append(process);
    }
    return QTest::qWaitFor([this] { return ready(); }, 20000);
}

void DesktopSession::stop()
{
    // Last started first: the bus outlives the window manager that uses it.
    for (auto it = m_programs.crbegin(); it != m_programs.crend(); ++it) {
        QProcess* process = *it;
        process->terminate();
        if (!process->waitForFinished(3000))
            process->kill();
    }
    qDeleteAll(m_programs);
    m_programs.clear();
}
