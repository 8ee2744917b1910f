// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/runtime-folder.h"

namespace {

constexpr uint groupAndOtherBits = 0077;

} // namespace

bool isPrivateFolder(const PathStatus& status, uint user)
{
    return status.exists && status.directory && !status.symlink && status.owner == user &&
           (status.mode & groupAndOtherBits) == 0;
}

bool isPrivateEntry(const PathStatus& status, uint user)
{
    return status.exists && !status.symlink && status.owner == user &&
           (status.mode & groupAndOtherBits) == 0;
}

QStringList runtimeFolderCandidates(const QString& sessionRuntimeFolder,
                                    bool sessionFolderIsPrivate, const QString& tempFolder,
                                    const QString& cacheFolder, uint user)
{
    QStringList candidates;
    const auto absolute = [](const QString& path) { return path.startsWith(QLatin1Char('/')); };
    if (sessionFolderIsPrivate && absolute(sessionRuntimeFolder)) {
        candidates << sessionRuntimeFolder + QStringLiteral("/pallo-board-instance");
    }
    if (absolute(tempFolder)) {
        candidates << tempFolder + QStringLiteral("/pallo-board-instance-%1").arg(user);
    }
    if (absolute(cacheFolder)) {
        candidates << cacheFolder + QStringLiteral("/pallo-board-instance-%1").arg(user);
    }
    return candidates;
}
