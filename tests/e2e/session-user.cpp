// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/session-user.h"

#include <QFile>
#include <QProcess>

#include <pwd.h>
#include <unistd.h>

namespace {
const char* const kUser = "pallo-wayland";
} // namespace

SessionUser prepareSessionUser(const QString& folder, const QString& compositor)
{
    SessionUser result;
    if (geteuid() != 0)
        return result;
    if (getpwnam(kUser) == nullptr) {
        QProcess add;
        add.start("useradd",
                  {"--system", "--no-create-home", "--shell", "/usr/sbin/nologin", kUser});
        // Another test may make the same user at the same moment.
        add.waitForFinished(30000);
        if (getpwnam(kUser) == nullptr) {
            result.skipReason =
                QString("running as root and the user %1 for %2 cannot be made: %3")
                    .arg(kUser, compositor, QString::fromUtf8(add.readAllStandardError()));
            return result;
        }
    }
    const passwd* user = getpwnam(kUser);
    if (chown(QFile::encodeName(folder).constData(), user->pw_uid, user->pw_gid) != 0) {
        result.failReason = "cannot give the runtime folder to " + QString(kUser);
        return result;
    }
    result.runAs = QStringList{"runuser", "-u", kUser, "--"};
    return result;
}

void stopSessionPrograms(std::initializer_list<QProcess*> programs)
{
    for (QProcess* p : programs) {
        if (p->state() == QProcess::NotRunning)
            continue;
        p->terminate();
        if (!p->waitForFinished(5000))
            p->kill();
        p->waitForFinished(2000);
    }
}
