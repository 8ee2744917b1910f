// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/instance-block-name.h"
#include "app/instance-block.h"
#include "app/instance-handshake.h"
#include "app/instance-memory.h"
#include "app/process-identity.h"
#include "app/runtime-folder.h"
#include "app/single-application.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <vector>

namespace {

const QString helperPath = QStringLiteral(PALLO_INSTANCE_HELPER);
constexpr int boardMode =
    SingleApplication::User | SingleApplication::System | SingleApplication::SecondaryNotification;

// One started copy of the helper, with everything it printed so far.
class Board
{
public:
    explicit Board(const QStringList& arguments, const QProcessEnvironment& environment =
                                                     QProcessEnvironment::systemEnvironment())
    {
        process.setProcessEnvironment(environment);
        QObject::connect(&process, &QProcess::readyReadStandardOutput,
                         [this]() { out += QString::fromUtf8(process.readAllStandardOutput()); });
        QObject::connect(&process, &QProcess::readyReadStandardError,
                         [this]() { err += QString::fromUtf8(process.readAllStandardError()); });
        process.start(helperPath, arguments);
    }

    ~Board()
    {
        process.closeWriteChannel();
        if (!process.waitForFinished(5000)) {
            process.kill();
            process.waitForFinished(5000);
        }
    }

    QStringList lines() const { return out.split(QLatin1Char('\n'), Qt::SkipEmptyParts); }

    // A primary ends cleanly when its standard input closes.
    bool stop()
    {
        process.closeWriteChannel();
        return process.waitForFinished(10000) && process.exitStatus() == QProcess::NormalExit &&
               process.exitCode() == 0;
    }

    bool finishedWithZero()
    {
        return process.waitForFinished(10000) && process.exitStatus() == QProcess::NormalExit &&
               process.exitCode() == 0;
    }

    QProcess process;
    QString out;
    QString err;
};

} // namespace

class TestSingleApplication : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void laterStartsAreNumberedSecondaries();
    void primaryReceivesTheMessage();
    void cleanExitLeavesNoPrimaryBehind();
    void anotherApplicationIsAPrimaryOfItsOwn();
    void inconsistentBlockIsTakenOverAfterFiveSeconds();
    void killedPrimaryIsReplacedAtOnce();
    void unreachablePrimaryIsReplaced();
    void exclusiveSecondaryLeavesAndAnnouncesItself();
    void reconnectAnnouncesNothing();
    void badIntroductionIsRefused();
    void serverThatCannotListenIsReported();
    void primaryWithoutServerIsNotReplaced();
    void silentConnectionsAreCappedAndDropped();
    void blockAndServerStayInThePrivateFolder();

private:
    QStringList boardArguments(const QStringList& more = {}) const;
    QString blockName() const;
    QString folder() const { return scratch.filePath(QStringLiteral("pallo-board-instance")); }
    QString serverPath() const { return instanceServerName(folder(), blockName()); }
    std::unique_ptr<Board> startPrimary(const QStringList& more = {});

    QTemporaryDir scratch;
    QString appName;
    int run = 0;
};

void TestSingleApplication::initTestCase()
{
    // The blocks and the servers' sockets go to a private folder of this run
    // (short, because a socket path is limited to about a hundred bytes).
    QVERIFY(scratch.isValid());
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(scratch.path()));
    QCOMPARE(privateRuntimeFolder(), folder());
}

void TestSingleApplication::init()
{
    // A name of its own per test function keeps the tests out of each other's block.
    appName = QStringLiteral("pallo-instance-test-%1-%2")
                  .arg(QCoreApplication::applicationPid())
                  .arg(++run);
}

QStringList TestSingleApplication::boardArguments(const QStringList& more) const
{
    return QStringList{QStringLiteral("--app"), appName} + more;
}

QString TestSingleApplication::blockName() const
{
    InstanceIdentity identity;
    identity.applicationName = appName;
    identity.applicationFilePath = QFileInfo(helperPath).canonicalFilePath();
    identity.userName = currentUserName();
    return instanceBlockName(identity, boardMode);
}

std::unique_ptr<Board> TestSingleApplication::startPrimary(const QStringList& more)
{
    auto board = std::make_unique<Board>(boardArguments(more));
    if (!QTest::qWaitFor([&board]() { return !board->lines().isEmpty(); }, 10000)) {
        return nullptr;
    }
    return board;
}

void TestSingleApplication::laterStartsAreNumberedSecondaries()
{
    auto primary = startPrimary();
    QVERIFY(primary);
    QCOMPARE(primary->lines(), QStringList{"primary 0"});

    Board second(boardArguments());
    QVERIFY(second.finishedWithZero());
    QCOMPARE(second.lines(), (QStringList{"secondary 1", "sent"}));

    Board third(boardArguments());
    QVERIFY(third.finishedWithZero());
    QCOMPARE(third.lines(), (QStringList{"secondary 2", "sent"}));

    QTRY_COMPARE_WITH_TIMEOUT(primary->lines(),
                              (QStringList{"primary 0", "instance-started", "message 1 show",
                                           "instance-started", "message 2 show"}),
                              10000);
    QVERIFY(primary->stop());
}

void TestSingleApplication::primaryReceivesTheMessage()
{
    auto primary = startPrimary();
    QVERIFY(primary);
    Board second(boardArguments({"--message", "hello board"}));
    QVERIFY(second.finishedWithZero());
    QTRY_VERIFY_WITH_TIMEOUT(primary->lines().contains("message 1 hello board"), 10000);
    QVERIFY(primary->stop());
}

void TestSingleApplication::cleanExitLeavesNoPrimaryBehind()
{
    auto first = startPrimary();
    QVERIFY(first);
    Board second(boardArguments());
    QVERIFY(second.finishedWithZero());
    QVERIFY(first->stop());

    auto next = startPrimary();
    QVERIFY(next);
    QCOMPARE(next->lines(), QStringList{"primary 0"});
    QVERIFY2(!next->err.contains("SingleApplication"), qPrintable(next->err));
    Board again(boardArguments());
    QVERIFY(again.finishedWithZero());
    QCOMPARE(again.lines().value(0), QStringLiteral("secondary 1"));
    QVERIFY(next->stop());
}

void TestSingleApplication::anotherApplicationIsAPrimaryOfItsOwn()
{
    auto primary = startPrimary();
    QVERIFY(primary);
    const QString firstApp = appName;
    appName += QStringLiteral("-other");
    auto other = startPrimary();
    QVERIFY(other);
    QCOMPARE(other->lines(), QStringList{"primary 0"});

    Board secondOfOther(boardArguments());
    QVERIFY(secondOfOther.finishedWithZero());
    QTRY_VERIFY_WITH_TIMEOUT(other->lines().contains("message 1 show"), 10000);
    QCOMPARE(primary->lines(), QStringList{"primary 0"});

    QVERIFY(other->stop());
    QVERIFY(primary->stop());
    appName = firstApp;
}

void TestSingleApplication::inconsistentBlockIsTakenOverAfterFiveSeconds()
{
    auto crashed = startPrimary();
    QVERIFY(crashed);

    InstanceMemory memory(folder(), blockName());
    QVERIFY2(memory.attach(sizeof(InstanceBlock)), qPrintable(memory.errorString()));
    QVERIFY(memory.lock());
    auto* block = static_cast<InstanceBlock*>(memory.data());
    QVERIFY(block->primary);
    QVERIFY(instanceBlockIsConsistent(*block));
    block->checksum = static_cast<quint16>(~block->checksum);
    QVERIFY(memory.unlock());

    QElapsedTimer clock;
    clock.start();
    Board next(boardArguments());
    QTRY_VERIFY_WITH_TIMEOUT(!next.lines().isEmpty(), 20000);
    const qint64 waited = clock.elapsed();
    QCOMPARE(next.lines(), QStringList{"primary 0"});
    QVERIFY2(waited >= 5000, qPrintable(QString::number(waited)));
    QVERIFY(next.err.contains(
        "SingleApplication: Shared memory block has been in an inconsistent state from more "
        "than 5s. Assuming primary instance failure."));

    Board later(boardArguments());
    QVERIFY(later.finishedWithZero());
    QCOMPARE(later.lines(), (QStringList{"secondary 1", "sent"}));
    QTRY_VERIFY_WITH_TIMEOUT(next.lines().contains("message 1 show"), 10000);

    QVERIFY(memory.lock());
    QVERIFY(instanceBlockIsConsistent(*block));
    QCOMPARE(block->primaryPid, next.process.processId());
    QVERIFY(memory.unlock());

    QVERIFY(next.stop());
    QVERIFY(crashed->stop());
}

void TestSingleApplication::killedPrimaryIsReplacedAtOnce()
{
    auto killed = startPrimary();
    QVERIFY(killed);
    const qint64 killedPid = killed->process.processId();
    killed->process.kill();
    QVERIFY(killed->process.waitForFinished(5000));

    QElapsedTimer clock;
    clock.start();
    Board next(boardArguments());
    QTRY_VERIFY_WITH_TIMEOUT(!next.lines().isEmpty(), 20000);
    const qint64 waited = clock.elapsed();
    QCOMPARE(next.lines(), QStringList{"primary 0"});
    QVERIFY2(waited < 2500, qPrintable(QString::number(waited)));
    QVERIFY2(next.err.contains(QStringLiteral("SingleApplication: The primary instance (pid %1) "
                                              "ended without cleaning up. Taking over as primary "
                                              "instance.")
                                   .arg(killedPid)),
             qPrintable(next.err));

    Board later(boardArguments());
    QVERIFY(later.finishedWithZero());
    QCOMPARE(later.lines(), (QStringList{"secondary 1", "sent"}));
    QTRY_VERIFY_WITH_TIMEOUT(next.lines().contains("message 1 show"), 10000);
    QVERIFY(next.stop());
}

void TestSingleApplication::unreachablePrimaryIsReplaced()
{
    // A block naming a live process (this test) as primary, but no server: the
    // recorded process is not the board any more.
    InstanceMemory memory(folder(), blockName());
    QVERIFY2(memory.create(sizeof(InstanceBlock)), qPrintable(memory.errorString()));
    QVERIFY(memory.lock());
    auto* block = static_cast<InstanceBlock*>(memory.data());
    resetInstanceBlock(*block);
    block->secondary = 3;
    claimInstanceBlock(*block, QCoreApplication::applicationPid(), "someone");
    QVERIFY(memory.unlock());

    Board next(boardArguments());
    QTRY_VERIFY_WITH_TIMEOUT(!next.lines().isEmpty(), 20000);
    QCOMPARE(next.lines(), QStringList{"primary 0"});
    QVERIFY2(next.err.contains(QStringLiteral("(pid %1) ended without cleaning up")
                                   .arg(QCoreApplication::applicationPid())),
             qPrintable(next.err));

    Board later(boardArguments());
    QVERIFY(later.finishedWithZero());
    QCOMPARE(later.lines(), (QStringList{"secondary 1", "sent"}));
    QTRY_VERIFY_WITH_TIMEOUT(next.lines().contains("message 1 show"), 10000);

    QVERIFY(memory.lock());
    QCOMPARE(block->primaryPid, next.process.processId());
    QCOMPARE(QString::fromUtf8(block->primaryUser), currentUserName());
    QVERIFY(memory.unlock());
    QVERIFY(next.stop());
}

void TestSingleApplication::exclusiveSecondaryLeavesAndAnnouncesItself()
{
    const QStringList exclusive{"--exclusive", "--mode", QString::number(boardMode)};
    auto primary = startPrimary(exclusive);
    QVERIFY(primary);
    QCOMPARE(primary->lines(), QStringList{"primary 0"});

    Board second(boardArguments(exclusive));
    QVERIFY(second.finishedWithZero());
    QVERIFY(second.lines().isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(primary->lines(), (QStringList{"primary 0", "instance-started"}),
                              10000);

    Board third(boardArguments(exclusive));
    QVERIFY(third.finishedWithZero());
    QTRY_COMPARE_WITH_TIMEOUT(primary->lines().count("instance-started"), 2, 10000);
    QVERIFY(primary->stop());
}

void TestSingleApplication::reconnectAnnouncesNothing()
{
    const QStringList userOnly{"--mode", QString::number(SingleApplication::User)};
    auto primary = startPrimary(userOnly);
    QVERIFY(primary);

    Board second(boardArguments(userOnly));
    QVERIFY(second.finishedWithZero());
    QCOMPARE(second.lines(), (QStringList{"secondary 1", "sent"}));
    QTRY_COMPARE_WITH_TIMEOUT(primary->lines(), (QStringList{"primary 0", "message 1 show"}),
                              10000);
    QVERIFY(primary->stop());
}

void TestSingleApplication::badIntroductionIsRefused()
{
    auto primary = startPrimary();
    QVERIFY(primary);

    QLocalSocket stranger;
    stranger.connectToServer(serverPath());
    QVERIFY(stranger.waitForConnected(5000));
    stranger.write(encodeInstanceHandshake("not-this-board", ConnectionType::Reconnect, 9) +
                   "show");
    QVERIFY(stranger.waitForBytesWritten(5000));
    QTRY_COMPARE_WITH_TIMEOUT(stranger.state(), QLocalSocket::UnconnectedState, 10000);
    QTRY_VERIFY_WITH_TIMEOUT(primary->err.contains("did not introduce itself"), 10000);

    QLocalSocket broken;
    broken.connectToServer(serverPath());
    QVERIFY(broken.waitForConnected(5000));
    QByteArray corrupted = encodeInstanceHandshake(blockName(), ConnectionType::Reconnect, 9);
    corrupted[corrupted.size() - 1] = static_cast<char>(corrupted.at(corrupted.size() - 1) ^ 1);
    broken.write(corrupted + "show");
    QVERIFY(broken.waitForBytesWritten(5000));
    QTRY_COMPARE_WITH_TIMEOUT(broken.state(), QLocalSocket::UnconnectedState, 10000);

    QLocalSocket friendly;
    friendly.connectToServer(serverPath());
    QVERIFY(friendly.waitForConnected(5000));
    friendly.write(encodeInstanceHandshake(blockName(), ConnectionType::Reconnect, 9) + "hello");
    QVERIFY(friendly.waitForBytesWritten(5000));
    QTRY_COMPARE_WITH_TIMEOUT(primary->lines(), (QStringList{"primary 0", "message 9 hello"}),
                              10000);
    friendly.write("again");
    QVERIFY(friendly.waitForBytesWritten(5000));
    QTRY_COMPARE_WITH_TIMEOUT(
        primary->lines(), (QStringList{"primary 0", "message 9 hello", "message 9 again"}), 10000);
    QVERIFY(primary->stop());
}

void TestSingleApplication::serverThatCannotListenIsReported()
{
    // A socket path longer than the system allows cannot be listened on.
    const QString deep = scratch.filePath(QString(120, QLatin1Char('d')));
    QVERIFY(QDir().mkpath(deep));
    QVERIFY(QFile::setPermissions(deep, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), deep);
    Board primary(boardArguments(), environment);
    QTRY_VERIFY_WITH_TIMEOUT(!primary.lines().isEmpty(), 10000);
    QCOMPARE(primary.lines(), QStringList{"primary 0"});
    QTRY_VERIFY_WITH_TIMEOUT(
        primary.err.contains("SingleApplication: Unable to listen for later instances:"), 10000);
    QVERIFY(primary.stop());
}

void TestSingleApplication::primaryWithoutServerIsNotReplaced()
{
    // A primary that lost its server (as when it ran out of file descriptors) still
    // runs, so a later start must not become a second primary.
    auto primary = startPrimary();
    QVERIFY(primary);
    QVERIFY(QFile::remove(serverPath()));

    Board later(boardArguments());
    QVERIFY(later.finishedWithZero());
    QCOMPARE(later.lines(), (QStringList{"secondary 1", "not sent"}));
    QVERIFY2(!later.err.contains("Taking over"), qPrintable(later.err));
    QCOMPARE(primary->process.state(), QProcess::Running);

    InstanceMemory memory(folder(), blockName());
    QVERIFY(memory.attach(sizeof(InstanceBlock)));
    QVERIFY(memory.lock());
    QCOMPARE(static_cast<InstanceBlock*>(memory.data())->primaryPid, primary->process.processId());
    QVERIFY(memory.unlock());
    QVERIFY(primary->stop());
}

void TestSingleApplication::silentConnectionsAreCappedAndDropped()
{
    auto primary = startPrimary();
    QVERIFY(primary);

    std::vector<std::unique_ptr<QLocalSocket>> silent;
    for (int i = 0; i < 40; ++i) {
        silent.push_back(std::make_unique<QLocalSocket>());
        silent.back()->connectToServer(serverPath());
        QVERIFY(silent.back()->waitForConnected(5000));
    }
    const auto closed = [&silent]() {
        int count = 0;
        for (const auto& socket : silent) {
            socket->waitForReadyRead(0);
            count += socket->state() == QLocalSocket::UnconnectedState ? 1 : 0;
        }
        return count;
    };
    // Beyond the first few, silent connections are turned away at once ...
    QTRY_VERIFY_WITH_TIMEOUT(closed() >= 24, 4000);
    QVERIFY2(closed() < 40, qPrintable(QString::number(closed())));
    // ... and the rest once they have kept silent for a while.
    QTRY_COMPARE_WITH_TIMEOUT(closed(), 40, 15000);

    Board later(boardArguments());
    QVERIFY(later.finishedWithZero());
    QCOMPARE(later.lines(), (QStringList{"secondary 1", "sent"}));
    QTRY_VERIFY_WITH_TIMEOUT(primary->lines().contains("message 1 show"), 10000);
    QVERIFY(primary->stop());
}

void TestSingleApplication::blockAndServerStayInThePrivateFolder()
{
    auto primary = startPrimary();
    QVERIFY(primary);
    struct stat info
    {
    };
    QCOMPARE(::lstat(QFile::encodeName(folder()).constData(), &info), 0);
    QCOMPARE(info.st_mode & 0777, 0700u);
    // Others cannot even enter the folder; the block itself is closed to them too.
    for (const QString& path : {serverPath(), serverPath() + ".lock"}) {
        QCOMPARE(::lstat(QFile::encodeName(path).constData(), &info), 0);
        QCOMPARE(info.st_uid, ::geteuid());
    }
    QCOMPARE(::lstat(QFile::encodeName(folder() + "/" + blockName() + ".block").constData(), &info),
             0);
    QCOMPARE(info.st_uid, ::geteuid());
    QCOMPARE(info.st_mode & 0777, 0600u);
    QVERIFY(primary->stop());
}

QTEST_GUILESS_MAIN(TestSingleApplication)
#include "test-single-application.moc"
