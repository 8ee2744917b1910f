// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/instance-block.h"
#include "app/instance-memory.h"
#include "app/runtime-folder.h"

#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

Q_DECLARE_METATYPE(PathStatus)

namespace {

constexpr uint me = 1000;
constexpr uint someoneElse = 1001;
// An id no test user has, for files handed to another user.
constexpr uid_t stranger = 65534;

PathStatus folderStatus(uint owner, uint mode, bool symlink = false)
{
    PathStatus status;
    status.exists = true;
    status.directory = !symlink;
    status.symlink = symlink;
    status.owner = owner;
    status.mode = mode;
    return status;
}

uint modeOf(const QString& path)
{
    struct stat info
    {
    };
    return ::lstat(QFile::encodeName(path).constData(), &info) == 0 ? (info.st_mode & 07777)
                                                                    : 0xffffffffu;
}

} // namespace

class TestRuntimeFolder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void privateFolder_data();
    void privateFolder();
    void privateEntry_data();
    void privateEntry();
    void candidates_data();
    void candidates();
    void sessionFolderIsUsedWhenPrivate();
    void openSessionFolderIsPassedOver();
    void temporaryFolderOpenToOthersIsRefused();
    void foldersOfAnotherUserAreRefused();
    void blockIsCreatedPrivateAndSharedByAttaching();
    void blockOpenToOthersIsRefused();
    void blockOfAnotherUserIsRefused();
    void lastUserOutIsTold();

private:
    QTemporaryDir scratch;
};

void TestRuntimeFolder::init()
{
    QVERIFY(scratch.isValid());
}

void TestRuntimeFolder::privateFolder_data()
{
    QTest::addColumn<PathStatus>("status");
    QTest::addColumn<bool>("isPrivate");
    QTest::newRow("own, 0700") << folderStatus(me, 0700) << true;
    QTest::newRow("own, 0500") << folderStatus(me, 0500) << true;
    QTest::newRow("own, group may read") << folderStatus(me, 0750) << false;
    QTest::newRow("own, others may enter") << folderStatus(me, 0701) << false;
    QTest::newRow("own, world-writable with sticky bit") << folderStatus(me, 01777) << false;
    QTest::newRow("someone else's, 0700") << folderStatus(someoneElse, 0700) << false;
    QTest::newRow("link to an own folder") << folderStatus(me, 0700, true) << false;
    PathStatus file = folderStatus(me, 0700);
    file.directory = false;
    QTest::newRow("a file") << file << false;
    QTest::newRow("missing") << PathStatus() << false;
}

void TestRuntimeFolder::privateFolder()
{
    QFETCH(PathStatus, status);
    QFETCH(bool, isPrivate);
    QCOMPARE(isPrivateFolder(status, me), isPrivate);
}

void TestRuntimeFolder::privateEntry_data()
{
    QTest::addColumn<PathStatus>("status");
    QTest::addColumn<bool>("isPrivate");
    PathStatus file = folderStatus(me, 0600);
    file.directory = false;
    QTest::newRow("own, 0600") << file << true;
    file.mode = 0644;
    QTest::newRow("own, readable by all") << file << false;
    file.mode = 0620;
    QTest::newRow("own, group may write") << file << false;
    file.mode = 0600;
    file.owner = someoneElse;
    QTest::newRow("someone else's") << file << false;
    QTest::newRow("a link") << folderStatus(me, 0600, true) << false;
}

void TestRuntimeFolder::privateEntry()
{
    QFETCH(PathStatus, status);
    QFETCH(bool, isPrivate);
    QCOMPARE(isPrivateEntry(status, me), isPrivate);
}

void TestRuntimeFolder::candidates_data()
{
    QTest::addColumn<QString>("session");
    QTest::addColumn<bool>("sessionIsPrivate");
    QTest::addColumn<QString>("temp");
    QTest::addColumn<QString>("cache");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("private session folder first")
        << "/run/user/1000" << true << "/tmp"
        << "/home/u/.cache"
        << QStringList{"/run/user/1000/pallo-board-instance", "/tmp/pallo-board-instance-1000",
                       "/home/u/.cache/pallo-board-instance-1000"};
    QTest::newRow("session folder not private")
        << "/run/user/1000" << false << "/tmp"
        << "/home/u/.cache"
        << QStringList{"/tmp/pallo-board-instance-1000",
                       "/home/u/.cache/pallo-board-instance-1000"};
    QTest::newRow("no session folder") << "" << false << "/var/tmp"
                                       << "/home/u/.cache"
                                       << QStringList{"/var/tmp/pallo-board-instance-1000",
                                                      "/home/u/.cache/pallo-board-instance-1000"};
    QTest::newRow("relative paths are skipped")
        << "run" << true << "tmp"
        << "/home/u/.cache" << QStringList{"/home/u/.cache/pallo-board-instance-1000"};
}

void TestRuntimeFolder::candidates()
{
    QFETCH(QString, session);
    QFETCH(bool, sessionIsPrivate);
    QFETCH(QString, temp);
    QFETCH(QString, cache);
    QFETCH(QStringList, expected);
    QCOMPARE(runtimeFolderCandidates(session, sessionIsPrivate, temp, cache, me), expected);
}

void TestRuntimeFolder::sessionFolderIsUsedWhenPrivate()
{
    const QString session = scratch.filePath(QStringLiteral("session-private"));
    QVERIFY(QDir().mkpath(session));
    QVERIFY(::chmod(QFile::encodeName(session).constData(), 0700) == 0);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(session));
    const QString folder = privateRuntimeFolder();
    QCOMPARE(folder, session + QStringLiteral("/pallo-board-instance"));
    QCOMPARE(modeOf(folder), 0700u);
    // A second look finds the same folder and keeps it as it is.
    QCOMPARE(privateRuntimeFolder(), folder);
}

void TestRuntimeFolder::openSessionFolderIsPassedOver()
{
    const QString session = scratch.filePath(QStringLiteral("session-open"));
    const QString temp = scratch.filePath(QStringLiteral("temp-a"));
    QVERIFY(QDir().mkpath(session));
    QVERIFY(QDir().mkpath(temp));
    QVERIFY(::chmod(QFile::encodeName(session).constData(), 0777) == 0);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(session));
    qputenv("TMPDIR", QFile::encodeName(temp));
    const QString expected = temp + QStringLiteral("/pallo-board-instance-%1").arg(::geteuid());
    QCOMPARE(privateRuntimeFolder(), expected);
    QCOMPARE(modeOf(expected), 0700u);
    QVERIFY(!QFileInfo::exists(session + QStringLiteral("/pallo-board-instance")));
}

void TestRuntimeFolder::temporaryFolderOpenToOthersIsRefused()
{
    // Someone made the folder first and left it open: the cache folder is used.
    const QString temp = scratch.filePath(QStringLiteral("temp-b"));
    const QString squatted = temp + QStringLiteral("/pallo-board-instance-%1").arg(::geteuid());
    QVERIFY(QDir().mkpath(squatted));
    QVERIFY(::chmod(QFile::encodeName(squatted).constData(), 0777) == 0);
    qunsetenv("XDG_RUNTIME_DIR");
    qputenv("TMPDIR", QFile::encodeName(temp));
    qputenv("XDG_CACHE_HOME", QFile::encodeName(scratch.filePath(QStringLiteral("cache-b"))));
    const QString folder = privateRuntimeFolder();
    QCOMPARE(folder,
             scratch.filePath(QStringLiteral("cache-b/pallo-board-instance-%1").arg(::geteuid())));
    QCOMPARE(modeOf(folder), 0700u);
    QCOMPARE(modeOf(squatted), 0777u);
}

void TestRuntimeFolder::foldersOfAnotherUserAreRefused()
{
    if (::geteuid() != 0) {
        QSKIP("Handing folders to another user needs root; run as root to check them.");
    }
    const QString session = scratch.filePath(QStringLiteral("session-other"));
    const QString temp = scratch.filePath(QStringLiteral("temp-c"));
    const QString squatted = temp + QStringLiteral("/pallo-board-instance-0");
    QVERIFY(QDir().mkpath(session));
    QVERIFY(QDir().mkpath(squatted));
    for (const QString& path : {session, squatted}) {
        QVERIFY(::chmod(QFile::encodeName(path).constData(), 0700) == 0);
        QVERIFY(::chown(QFile::encodeName(path).constData(), stranger, stranger) == 0);
    }
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(session));
    qputenv("TMPDIR", QFile::encodeName(temp));
    qputenv("XDG_CACHE_HOME", QFile::encodeName(scratch.filePath(QStringLiteral("cache-c"))));
    QCOMPARE(privateRuntimeFolder(),
             scratch.filePath(QStringLiteral("cache-c/pallo-board-instance-0")));
}

void TestRuntimeFolder::blockIsCreatedPrivateAndSharedByAttaching()
{
    const QString folder = scratch.filePath(QStringLiteral("blocks-a"));
    QVERIFY(QDir().mkpath(folder));
    InstanceMemory first(folder, QStringLiteral("name"));
    QVERIFY2(first.create(sizeof(InstanceBlock)), qPrintable(first.errorString()));
    QCOMPARE(modeOf(folder + QStringLiteral("/name.block")), 0600u);
    QVERIFY(first.lock());
    resetInstanceBlock(*static_cast<InstanceBlock*>(first.data()));
    claimInstanceBlock(*static_cast<InstanceBlock*>(first.data()), 4242, "someone");
    QVERIFY(first.unlock());

    InstanceMemory second(folder, QStringLiteral("name"));
    QVERIFY(!second.create(sizeof(InstanceBlock)));
    QCOMPARE(second.error(), InstanceMemory::AlreadyExists);
    QVERIFY2(second.attach(sizeof(InstanceBlock)), qPrintable(second.errorString()));
    QVERIFY(second.lock());
    QCOMPARE(static_cast<InstanceBlock*>(second.data())->primaryPid, 4242);
    QVERIFY(instanceBlockIsConsistent(*static_cast<InstanceBlock*>(second.data())));
    QVERIFY(second.unlock());
}

void TestRuntimeFolder::blockOpenToOthersIsRefused()
{
    const QString folder = scratch.filePath(QStringLiteral("blocks-b"));
    QVERIFY(QDir().mkpath(folder));
    {
        InstanceMemory maker(folder, QStringLiteral("name"));
        QVERIFY(maker.create(sizeof(InstanceBlock)));
    }
    QVERIFY(::chmod(QFile::encodeName(folder + QStringLiteral("/name.block")).constData(), 0666) ==
            0);
    InstanceMemory memory(folder, QStringLiteral("name"));
    QVERIFY(!memory.attach(sizeof(InstanceBlock)));
    QCOMPARE(memory.error(), InstanceMemory::NotPrivate);
    QVERIFY(!memory.data());
}

void TestRuntimeFolder::blockOfAnotherUserIsRefused()
{
    if (::geteuid() != 0) {
        QSKIP("Handing a block to another user needs root; run as root to check it.");
    }
    const QString folder = scratch.filePath(QStringLiteral("blocks-c"));
    QVERIFY(QDir().mkpath(folder));
    {
        InstanceMemory maker(folder, QStringLiteral("name"));
        QVERIFY(maker.create(sizeof(InstanceBlock)));
    }
    QVERIFY(::chown(QFile::encodeName(folder + QStringLiteral("/name.block")).constData(), stranger,
                    stranger) == 0);
    InstanceMemory memory(folder, QStringLiteral("name"));
    QVERIFY(!memory.attach(sizeof(InstanceBlock)));
    QCOMPARE(memory.error(), InstanceMemory::NotPrivate);
}

void TestRuntimeFolder::lastUserOutIsTold()
{
    const QString folder = scratch.filePath(QStringLiteral("blocks-d"));
    QVERIFY(QDir().mkpath(folder));
    auto first = std::make_unique<InstanceMemory>(folder, QStringLiteral("name"));
    QVERIFY(first->create(sizeof(InstanceBlock)));
    {
        InstanceMemory second(folder, QStringLiteral("name"));
        QVERIFY(second.attach(sizeof(InstanceBlock)));
        QVERIFY(!second.isLastUser());
    }
    QVERIFY(first->isLastUser());
}

QTEST_GUILESS_MAIN(TestRuntimeFolder)
#include "test-runtime-folder.moc"
