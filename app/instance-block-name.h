// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// What tells one application (and, per user, one user's copy of it) from another.
struct InstanceIdentity
{
    QString applicationName;
    QString organizationName;
    QString organizationDomain;
    QString applicationVersion;
    QString applicationFilePath;
    QString userName;
};

// The name shared by the memory block and the local server of one application.
// options are SingleApplication::Mode bits: User adds the user name,
// ExcludeAppVersion and ExcludeAppPath leave those parts out.
QString instanceBlockName(const InstanceIdentity& identity, int options);
