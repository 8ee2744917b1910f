// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

// A session bus of the test's own: a dbus-daemon on a fresh socket that activates no
// services, so only what the test starts answers on it.
class PrivateSessionBus
{
public:
    PrivateSessionBus();
    ~PrivateSessionBus();

    bool isRunning() const { return !m_address.isEmpty(); }
    QString address() const { return m_address; }
    QString error() const { return m_error; }

private:
    QTemporaryDir m_dir;
    QProcess m_daemon;
    QString m_address;
    QString m_error;
};
