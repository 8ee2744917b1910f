// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/process-identity.h"

#include <QByteArray>

#include <windows.h>

QString currentUserName()
{
    wchar_t name[257];
    DWORD size = 257;
    if (GetUserNameW(name, &size) && size > 0) {
        // size counts the terminating NUL.
        return QString::fromWCharArray(name, static_cast<int>(size) - 1);
    }
    return QString::fromLocal8Bit(qgetenv("USERNAME"));
}

bool processExists(qint64 pid)
{
    if (pid <= 0) {
        return false;
    }
    HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(pid));
    if (!process) {
        return GetLastError() == ERROR_ACCESS_DENIED;
    }
    DWORD exitCode = 0;
    const bool running = GetExitCodeProcess(process, &exitCode) && exitCode == STILL_ACTIVE;
    CloseHandle(process);
    return running;
}

// A local server opened with user access admits its own user only.
bool peerIsCurrentUser(qintptr)
{
    return true;
}
