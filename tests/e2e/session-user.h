// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <initializer_list>

class QProcess;

// Wayland compositors refuse to run as root, so a root test runs its session as an
// ordinary user of its own, made on first use.
struct SessionUser
{
    // Empty when the test does not run as root; else the command prefix that runs a
    // program as the session's user.
    QStringList runAs;
    // Why the user could not be made (the test skips), or the folder not handed over
    // (the test fails); both empty on success.
    QString skipReason;
    QString failReason;
};

// When running as root, makes the session's user if needed and gives it folder.
SessionUser prepareSessionUser(const QString& folder, const QString& compositor);
// Ends a session's programs, in the order given: asked first, killed if they linger.
void stopSessionPrograms(std::initializer_list<QProcess*> programs);
