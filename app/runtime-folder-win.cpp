// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/runtime-folder.h"

#include <QDir>

// Windows gives every user a temporary folder of their own, and Qt makes a local
// server opened with user access reachable by that user alone.
QString privateRuntimeFolder()
{
    return QDir::tempPath();
}

QString instanceServerName(const QString&, const QString& blockName)
{
    return blockName;
}
