// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/instance-block-name.h"
#include "app/process-identity.h"
#include "app/runtime-folder.h"
#include "app/single-application.h"
#include "tests/e2e/e2e-board.h"
#include "tests/e2e/x11-probe.h"

#include <QLocalSocket>
#include <QtTest>

#include <memory>
#include <vector>

#include <fcntl.h>
#include <grp.h>
#include <poll.h>
#include <pwd.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

// The real board's single-instance guard under attack: floods of silent connections,
// a lost server, and folders another user made first.
class TestInstanceGuardE2e : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void silentConnectionsDoNotLetASecondBoardStart();
    void lostServerDoesNotLetASecondBoardStart();
    void folderOfAnotherUserIsNotUsed();

private:
    X11Probe probe;
};

namespace {

QString blockNameOf(const E2eBoard& board)
{
    InstanceIdentity identity;
    identity.applicationName = QStringLiteral("pallo-board");
    identity.applicationFilePath = QFileInfo(board.program()).canonicalFilePath();
    identity.userName = currentUserName();
    return instanceBlockName(identity, SingleApplication::User | SingleApplication::System |
                                           SingleApplication::SecondaryNotification);
}

// A second start that sends "show" to the first board and ends with 0, as a user sees
// it: the first board's hidden toolbar comes back. Empty when it went so, else what
// went wrong.
QString secondStartShowsTheFirst(const X11Probe& probe, E2eBoard& first)
{
    if (!first.send(R"({"type":"hide"})") ||
        !QTest::qWaitFor([&]() { return probe.viewableWindowsOf(first.pid()).isEmpty(); }, 5000))
        return QStringLiteral("the first board did not hide");
    std::unique_ptr<E2eBoard> second = first.sibling();
    if (!second->startBare({QStringLiteral("--name"), second->pipePath()}) ||
        !second->waitForExit(10000) || second->exitCode() != 0)
        return QStringLiteral("the second start ended with %1: %2")
            .arg(second->exitCode())
            .arg(QString::fromLocal8Bit(second->errors()));
    if (!QTest::qWaitFor([&]() { return probe.toolbarOf(first.pid()).id != 0; }, 5000))
        return QStringLiteral("the first toolbar stayed hidden: %1")
            .arg(QString::fromLocal8Bit(second->errors() + first.errors()));
    return QString();
}

// Runs fn with the soft limit on open files lowered, so that a board started inside
// inherits the low limit.
template <typename Fn> bool withFileLimit(rlim_t limit, Fn fn)
{
    rlimit saved{};
    if (::getrlimit(RLIMIT_NOFILE, &saved) != 0)
        return false;
    rlimit low = saved;
    low.rlim_cur = limit;
    if (::setrlimit(RLIMIT_NOFILE, &low) != 0)
        return false;
    const bool result = fn();
    ::setrlimit(RLIMIT_NOFILE, &saved);
    return result;
}

// A local user made for one test and removed afterwards.
class OtherUser
{
public:
    OtherUser() : name_(QStringLiteral("pallo-guard-%1").arg(QCoreApplication::applicationPid()))
    {
        if (QProcess::execute(QStringLiteral("useradd"),
                              {QStringLiteral("--system"), QStringLiteral("--no-create-home"),
                               QStringLiteral("--shell"), QStringLiteral("/usr/sbin/nologin"),
                               name_}) != 0)
            return;
        if (const passwd* entry = ::getpwnam(name_.toLocal8Bit().constData())) {
            uid_ = entry->pw_uid;
            gid_ = entry->pw_gid;
        }
    }
    ~OtherUser() { QProcess::execute(QStringLiteral("userdel"), {QStringLiteral("-r"), name_}); }
    bool isValid() const { return uid_ != 0; }
    uid_t uid() const { return uid_; }
    gid_t gid() const { return gid_; }

private:
    QString name_;
    uid_t uid_ = 0;
    gid_t gid_ = 0;
};

// A process of another user that makes the folder a board would fall back to, open to
// all, and listens inside it where the board's server would be, writing one line per
// connection to a file there.
class Squatter
{
public:
    Squatter(const OtherUser& user, const QString& folder, const QString& socketName)
    {
        const QByteArray dir = QFile::encodeName(folder);
        const QByteArray socketPath = QFile::encodeName(folder + QLatin1Char('/') + socketName);
        const QByteArray log = QFile::encodeName(folder + QStringLiteral("/connections"));
        int ready[2];
        if (::pipe(ready) != 0)
            return;
        pid_ = ::fork();
        if (pid_ == 0) {
            ::close(ready[0]);
            if (::setgroups(0, nullptr) != 0 || ::setgid(user.gid()) != 0 ||
                ::setuid(user.uid()) != 0)
                ::_exit(2);
            ::umask(0);
            if (::mkdir(dir.constData(), 0777) != 0)
                ::_exit(3);
            const int server = ::socket(AF_UNIX, SOCK_STREAM, 0);
            sockaddr_un address{};
            address.sun_family = AF_UNIX;
            ::strncpy(address.sun_path, socketPath.constData(), sizeof address.sun_path - 1);
            if (::bind(server, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
                ::listen(server, 16) != 0)
                ::_exit(4);
            ::write(ready[1], "r", 1);
            ::close(ready[1]);
            for (;;) {
                const int client = ::accept(server, nullptr, nullptr);
                if (client < 0)
                    continue;
                const int out = ::open(log.constData(), O_WRONLY | O_CREAT | O_APPEND, 0666);
                ::write(out, "connection\n", 11);
                ::close(out);
                ::close(client);
            }
        }
        ::close(ready[1]);
        char byte = 0;
        ready_ = pid_ > 0 && ::read(ready[0], &byte, 1) == 1;
        ::close(ready[0]);
    }
    ~Squatter()
    {
        if (pid_ > 0) {
            ::kill(pid_, SIGKILL);
            ::waitpid(pid_, nullptr, 0);
        }
    }
    bool isReady() const { return ready_; }

private:
    pid_t pid_ = -1;
    bool ready_ = false;
};

} // namespace

void TestInstanceGuardE2e::initTestCase()
{
    QVERIFY(probe.isValid());
}

void TestInstanceGuardE2e::silentConnectionsDoNotLetASecondBoardStart()
{
    // With few file descriptors, a board that kept every connection would run out
    // and lose its server.
    E2eBoard first;
    QVERIFY(withFileLimit(128, [&first]() { return first.startWithHost(); }));
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(first.pid()), 10000);
    const QString server = instanceServerName(
        first.folder() + QStringLiteral("/pallo-board-instance"), blockNameOf(first));
    QVERIFY(QFileInfo::exists(server));

    std::vector<std::unique_ptr<QLocalSocket>> silent;
    for (int i = 0; i < 300; ++i) {
        auto socket = std::make_unique<QLocalSocket>();
        socket->connectToServer(server);
        if (socket->waitForConnected(200))
            silent.push_back(std::move(socket));
    }
    QVERIFY2(silent.size() > 128, qPrintable(QString::number(silent.size())));

    // A start during the flood may not reach the first board, but it must not become a
    // second one.
    std::unique_ptr<E2eBoard> during = first.sibling();
    QVERIFY(during->startBare({QStringLiteral("--name"), during->pipePath()}));
    QVERIFY(during->waitForExit(10000));
    QCOMPARE(during->exitCode(), 0);
    QVERIFY(first.running());
    QVERIFY(QFileInfo::exists(server));

    // Once the silent connections are dropped, a start reaches the first board again.
    QTest::qWait(6000);
    {
        const QString why = secondStartShowsTheFirst(probe, first);
        QVERIFY2(why.isEmpty(), qPrintable(why));
    }
    QVERIFY(first.running());
}

void TestInstanceGuardE2e::lostServerDoesNotLetASecondBoardStart()
{
    E2eBoard first;
    QVERIFY(first.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(first.pid()), 10000);
    const QString server = instanceServerName(
        first.folder() + QStringLiteral("/pallo-board-instance"), blockNameOf(first));
    QVERIFY(QFile::remove(server));

    std::unique_ptr<E2eBoard> second = first.sibling();
    QVERIFY(second->startBare({QStringLiteral("--name"), second->pipePath()}));
    QVERIFY(second->waitForExit(10000));
    QCOMPARE(second->exitCode(), 0);
    QVERIFY(!second->errors().contains("Taking over"));
    QVERIFY(first.running());
    QVERIFY(probe.windowsOf(second->pid()).isEmpty());
}

void TestInstanceGuardE2e::folderOfAnotherUserIsNotUsed()
{
    if (::geteuid() != 0)
        QSKIP("This needs a second local user, made with useradd: run the test as root.");
    OtherUser other;
    QVERIFY(other.isValid());

    // A shared temporary folder like /tmp, where another user made the board's
    // fallback folder first and listens where the board's server would be.
    QTemporaryDir shared;
    QVERIFY(shared.isValid());
    QCOMPARE(::chmod(QFile::encodeName(shared.path()).constData(), 01777), 0);
    E2eBoard first;
    first.setEnvironment(QStringLiteral("XDG_RUNTIME_DIR"), QString());
    first.setEnvironment(QStringLiteral("TMPDIR"), shared.path());
    const QString squatted = shared.filePath(QStringLiteral("pallo-board-instance-0"));
    Squatter squatter(other, squatted, blockNameOf(first));
    QVERIFY(squatter.isReady());

    QVERIFY(first.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(first.pid()), 10000);
    {
        const QString why = secondStartShowsTheFirst(probe, first);
        QVERIFY2(why.isEmpty(), qPrintable(why));
    }
    QVERIFY(first.running());
    QVERIFY(first.errors().contains("belongs to another user or is open to others"));

    // Nothing of the board went to the other user.
    QVERIFY(!QFileInfo::exists(squatted + QStringLiteral("/connections")));
    const QString own = first.folder() + QStringLiteral("/.cache/pallo-board-instance-0");
    QVERIFY(QFileInfo(own).isDir());
    QVERIFY(QFileInfo::exists(instanceServerName(own, blockNameOf(first))));
}

QTEST_MAIN(TestInstanceGuardE2e)
#include "test-instance-guard-e2e.moc"
