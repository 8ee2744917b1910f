// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "private-session-bus.h"

#include <QFile>

PrivateSessionBus::PrivateSessionBus()
{
    const QString config = m_dir.filePath("bus.conf");
    QFile file(config);
    if (!file.open(QIODevice::WriteOnly)) {
        m_error = "cannot write " + config;
        return;
    }
    file.write(
        "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
        " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
        "<busconfig><type>session</type><listen>unix:dir=");
    file.write(m_dir.path().toUtf8());
    file.write("</listen><auth>EXTERNAL</auth>"
               "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
               "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>\n");
    file.close();
    m_daemon.start("dbus-daemon", {"--config-file=" + config, "--nofork", "--print-address=1"});
    if (!m_daemon.waitForStarted(10000)) {
        m_error = "dbus-daemon did not start: " + m_daemon.errorString();
        return;
    }
    while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead(10000)) {
    }
    m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    if (m_address.isEmpty())
        m_error =
            "dbus-daemon gave no address: " + QString::fromUtf8(m_daemon.readAllStandardError());
}

PrivateSessionBus::~PrivateSessionBus()
{
    m_daemon.terminate();
    m_daemon.waitForFinished(5000);
}
