// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

// What lstat() says about a path, kept apart so the rules below can be tried on
// made-up answers.
struct PathStatus
{
    bool exists = false;
    bool directory = false;
    bool symlink = false;
    uint owner = 0;
    uint mode = 0; // permission bits only
};

// A folder the user alone can enter: a real directory (no link to one), owned by
// the user, with no rights for group or others. Anything else may be shared with,
// or handed over to, another user.
bool isPrivateFolder(const PathStatus& status, uint user);

// A file in such a folder that is the user's own and open to nobody else.
bool isPrivateEntry(const PathStatus& status, uint user);

// Where the single-instance files may live, best first: the session's runtime
// folder when it is the user's own, then a folder in the temporary folder named
// after the user id, then one in the user's cache folder.
QStringList runtimeFolderCandidates(const QString& sessionRuntimeFolder,
                                    bool sessionFolderIsPrivate, const QString& tempFolder,
                                    const QString& cacheFolder, uint user);

// The first candidate that is, or could be made, private to the user running this
// process; empty if there is none.
QString privateRuntimeFolder();

// The local server name for one block: a socket in the private folder, or the
// name alone where the platform's local servers are not files.
QString instanceServerName(const QString& folder, const QString& blockName);
