// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/e2e-board.h"
#include "tests/e2e/x11-probe.h"

#include <QtTest>

#include <sys/stat.h>

// The real board fed broken stores and hostile messages: it starts, goes on, and says
// what was wrong on standard error.
class TestBoardBadInputE2e : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void deeplyNestedBridgeStore();
    void fifoInPlaceOfTheBridgeStore();
    void emptyMessageDoesNotEndTheBoard();
    void controlCharactersAreEscapedInTheErrorLine();
    void brokenIniLineIsReportedWithItsPath();

private:
    X11Probe probe;
};

namespace {

bool writeFile(const QString& path, const QByteArray& contents)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size();
}

} // namespace

void TestBoardBadInputE2e::initTestCase()
{
    QVERIFY(probe.isValid());
}

void TestBoardBadInputE2e::deeplyNestedBridgeStore()
{
    E2eBoard board;
    const QString store = board.folder() + QStringLiteral("/bridge.json");
    QVERIFY(writeFile(store, QByteArray(5000, '[') + QByteArray(5000, ']')));
    QVERIFY(board.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);
    QTRY_VERIFY_WITH_TIMEOUT(board.errors().contains("configuration " + store.toLocal8Bit()), 5000);
    QVERIFY(board.running());
}

void TestBoardBadInputE2e::fifoInPlaceOfTheBridgeStore()
{
    E2eBoard board;
    const QString store = board.folder() + QStringLiteral("/bridge.json");
    QCOMPARE(::mkfifo(QFile::encodeName(store).constData(), 0600), 0);
    QVERIFY(board.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);
    QVERIFY(board.errors().contains("configuration " + store.toLocal8Bit() +
                                    ": is not a regular file"));
    QVERIFY(board.running());
}

void TestBoardBadInputE2e::emptyMessageDoesNotEndTheBoard()
{
    E2eBoard board;
    QVERIFY(board.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);
    QVERIFY(board.send(QByteArray()));
    QVERIFY(board.send(QByteArray()));
    QVERIFY(board.send(R"({"type":"hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board.pid()).isEmpty(), 5000);
    QVERIFY(board.running());
}

void TestBoardBadInputE2e::controlCharactersAreEscapedInTheErrorLine()
{
    E2eBoard board;
    QVERIFY(board.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);
    // A message that would forge a second log line and clear the terminal.
    QVERIFY(board.send("{\"type\":[1],\n\"x\":\"\x1b[2J\"}"));
    const QByteArray line =
        R"(: "receive unsupported message: {"type":[1],\n"x":"\x1b[2J"}, error: )";
    QTRY_VERIFY_WITH_TIMEOUT(board.errors().contains(line), 5000);
    QVERIFY(!board.errors().contains('\x1b'));
    QVERIFY(board.running());
}

void TestBoardBadInputE2e::brokenIniLineIsReportedWithItsPath()
{
    E2eBoard board;
    const QString ini = board.folder() + QStringLiteral("/config/pallo-board/pallo-boardNew.ini");
    QVERIFY(writeFile(ini, "[General\ntimer=Ctrl+M\\\n"));
    QVERIFY(board.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);
    QVERIFY2(
        board.errors().contains("[E] settings file " + ini.toLocal8Bit() + " has a format error"),
        board.errors().constData());
    QVERIFY(board.running());
}

QTEST_MAIN(TestBoardBadInputE2e)
#include "test-board-bad-input-e2e.moc"
