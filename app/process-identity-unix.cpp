// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/process-identity.h"

#include <QByteArray>

#include <cerrno>
#include <pwd.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

QString currentUserName()
{
    if (const passwd* entry = getpwuid(getuid())) {
        return QString::fromLocal8Bit(entry->pw_name);
    }
    return QString::fromLocal8Bit(qgetenv("USER"));
}

bool processExists(qint64 pid)
{
    if (pid <= 0) {
        return false;
    }
    // EPERM: the process exists but belongs to someone else.
    return ::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM;
}

bool peerIsCurrentUser(qintptr socketDescriptor)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    if (::getsockopt(static_cast<int>(socketDescriptor), SOL_SOCKET, SO_PEERCRED, &peer, &size) !=
        0) {
        return false;
    }
    return peer.uid == ::geteuid();
}
