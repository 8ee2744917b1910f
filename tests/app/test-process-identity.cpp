// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/process-identity.h"

#include <QProcess>
#include <QtTest>

#include <QTemporaryDir>

#include <pwd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

class TestProcessIdentity : public QObject
{
    Q_OBJECT

private slots:
    void userNameIsTheAccountName();
    void ownProcessExists();
    void finishedProcessDoesNotExist();
    void invalidIdsDoNotExist();
    void peerOfTheSameUser();
    void peerOfAnotherUser();
};

void TestProcessIdentity::userNameIsTheAccountName()
{
    const passwd* entry = getpwuid(getuid());
    QVERIFY(entry);
    QCOMPARE(currentUserName(), QString::fromLocal8Bit(entry->pw_name));
    QVERIFY(!currentUserName().isEmpty());
}

void TestProcessIdentity::ownProcessExists()
{
    QVERIFY(processExists(QCoreApplication::applicationPid()));
}

void TestProcessIdentity::finishedProcessDoesNotExist()
{
    QProcess child;
    child.start(QStringLiteral("sleep"), {QStringLiteral("30")});
    QVERIFY(child.waitForStarted());
    const qint64 pid = child.processId();
    QVERIFY(processExists(pid));
    child.kill();
    QVERIFY(child.waitForFinished());
    QVERIFY(!processExists(pid));
}

void TestProcessIdentity::invalidIdsDoNotExist()
{
    QVERIFY(!processExists(0));
    QVERIFY(!processExists(-1));
}

void TestProcessIdentity::peerOfTheSameUser()
{
    int pair[2];
    QCOMPARE(::socketpair(AF_UNIX, SOCK_STREAM, 0, pair), 0);
    QVERIFY(peerIsCurrentUser(pair[0]));
    ::close(pair[0]);
    ::close(pair[1]);
    QVERIFY(!peerIsCurrentUser(-1));
}

void TestProcessIdentity::peerOfAnotherUser()
{
    if (::geteuid() != 0) {
        QSKIP("A process of another user needs root to start; run as root to check it.");
    }
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QCOMPARE(::chmod(QFile::encodeName(dir.path()).constData(), 0777), 0);
    const QByteArray path = QFile::encodeName(dir.filePath(QStringLiteral("s")));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ::strncpy(address.sun_path, path.constData(), sizeof address.sun_path - 1);
    const int server = ::socket(AF_UNIX, SOCK_STREAM, 0);
    QVERIFY(server >= 0);
    QCOMPARE(::bind(server, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    QCOMPARE(::chmod(path.constData(), 0777), 0);
    QCOMPARE(::listen(server, 1), 0);

    // A child that becomes nobody and connects.
    const pid_t child = ::fork();
    if (child == 0) {
        const int client = ::socket(AF_UNIX, SOCK_STREAM, 0);
        if (::setgid(65534) != 0 || ::setuid(65534) != 0 ||
            ::connect(client, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
            ::_exit(1);
        }
        char byte;
        ::read(client, &byte, 1);
        ::_exit(0);
    }
    QVERIFY(child > 0);
    const int accepted = ::accept(server, nullptr, nullptr);
    QVERIFY(accepted >= 0);
    QVERIFY(!peerIsCurrentUser(accepted));
    ::close(accepted);
    ::close(server);
    int status = 0;
    QCOMPARE(::waitpid(child, &status, 0), child);
}

QTEST_GUILESS_MAIN(TestProcessIdentity)
#include "test-process-identity.moc"
