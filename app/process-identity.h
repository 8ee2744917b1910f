// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The name of the user running this process; the environment's idea of it when
// the system cannot say.
QString currentUserName();

// Whether a process with this id is still running.
bool processExists(qint64 pid);

// Whether the process at the other end of a connected local socket runs as the
// same user as this one.
bool peerIsCurrentUser(qintptr socketDescriptor);
