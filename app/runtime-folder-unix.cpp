// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/runtime-folder.h"

#include "logging/log-categories.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace {

PathStatus statusOf(const QString& path)
{
    PathStatus status;
    struct stat info
    {
    };
    if (::lstat(QFile::encodeName(path).constData(), &info) != 0) {
        return status;
    }
    status.exists = true;
    status.directory = S_ISDIR(info.st_mode);
    status.symlink = S_ISLNK(info.st_mode);
    status.owner = info.st_uid;
    status.mode = info.st_mode & 07777;
    return status;
}

// Creates the folder with no rights for others, or checks the one already there.
// A folder someone else made first, or one others may enter, is refused.
bool makePrivateFolder(const QString& path, uint user)
{
    const QFileInfo info(path);
    QDir().mkpath(info.absolutePath());
    if (::mkdir(QFile::encodeName(path).constData(), 0700) != 0 && errno != EEXIST) {
        return false;
    }
    if (isPrivateFolder(statusOf(path), user)) {
        return true;
    }
    qCWarning(lcApp).noquote() << "SingleApplication: Not using" << path
                               << "for this user's instance files: it belongs to another user "
                                  "or is open to others.";
    return false;
}

} // namespace

QString privateRuntimeFolder()
{
    const uint user = ::geteuid();
    const QString session = QFile::decodeName(qgetenv("XDG_RUNTIME_DIR"));
    const bool sessionIsPrivate = !session.isEmpty() && isPrivateFolder(statusOf(session), user);
    const QStringList candidates = runtimeFolderCandidates(
        session, sessionIsPrivate, QDir::tempPath(),
        QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation), user);
    for (const QString& candidate : candidates) {
        if (makePrivateFolder(candidate, user)) {
            return candidate;
        }
    }
    return QString();
}

QString instanceServerName(const QString& folder, const QString& blockName)
{
    // A socket path may be only about a hundred bytes long; in a folder of the user's
    // own, a part of the name is unique enough.
    return folder + QLatin1Char('/') + blockName.left(16);
}
