// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/e2e-board.h"
#include "tests/e2e/x11-probe.h"

#include <QtTest>

// How the board process starts, meets a second start, and ends, seen from outside: its
// exit code, its windows on the X server and what it writes to standard error.
class TestBoardLifecycleE2e : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void closingThePipeEndsTheBoardWithZero();
    void pipeNameAloneIsEnough_data();
    void pipeNameAloneIsEnough();
    void withoutNameNoWindowAndZero();
    void withoutPipeEndsWith255_data();
    void withoutPipeEndsWith255();
    void secondStartShowsTheFirstToolbarAndEndsWithZero();
    void killedBoardIsReplacedByTheNextStart();
    void oversizedMessageEndsTheLinkLikeAClosedPipe();
    void textThatIsNotJsonIsIgnored();
    void typeThatIsNotTextIsLoggedAndTheBoardGoesOn();
    void closingEveryWindowDoesNotEndTheBoard();
    void aNormalRunPrintsNothing();
    void debugLinesShowWhenSwitchedOn();
    void toolkitOptionsReachQtAndKeepTheLanguage_data();
    void toolkitOptionsReachQtAndKeepTheLanguage();

private:
    X11Probe probe;
};

void TestBoardLifecycleE2e::initTestCase()
{
    QVERIFY(probe.isValid());
}

void TestBoardLifecycleE2e::closingThePipeEndsTheBoardWithZero()
{
    E2eBoard board;
    QVERIFY(board.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);

    board.closePipe();
    QVERIFY(board.waitForExit(5000));
    QCOMPARE(board.exitCode(), 0);
}

void TestBoardLifecycleE2e::pipeNameAloneIsEnough_data()
{
    QTest::addColumn<QString>("option");
    // On X11 Qt takes "--name VALUE" for itself as well.
    QTest::newRow("--name") << QStringLiteral("--name");
    QTest::newRow("-n") << QStringLiteral("-n");
}

void TestBoardLifecycleE2e::pipeNameAloneIsEnough()
{
    QFETCH(QString, option);
    E2eBoard board;
    SeqpacketServer host(board.pipePath());
    QVERIFY(host.start());
    QVERIFY(board.startBare({option, board.pipePath()}));
    QVERIFY(host.accept(10000));
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);

    host.closeConnection();
    QVERIFY(board.waitForExit(5000));
    QCOMPARE(board.exitCode(), 0);
}

void TestBoardLifecycleE2e::withoutNameNoWindowAndZero()
{
    E2eBoard board;
    probe.startCountingMaps();
    QVERIFY(board.startBare({QStringLiteral("--language"), QStringLiteral("english")}));
    QVERIFY(board.waitForExit(10000));

    QCOMPARE(board.exitCode(), 0);
    QCOMPARE(probe.mapsCounted(), 0);
    QVERIFY2(board.errors().contains("name"), board.errors().constData());
}

void TestBoardLifecycleE2e::withoutPipeEndsWith255_data()
{
    QTest::addColumn<bool>("socketExists");
    QTest::addColumn<int>("shortestLifeMs");
    // Nothing at the path fails at once; a socket that refuses is retried for 500 ms,
    // and meanwhile the failed link's poll reports a disconnection that must not turn
    // the failure into a clean exit.
    QTest::newRow("nothing at the path") << false << 0;
    QTest::newRow("socket refuses") << true << 450;
}

void TestBoardLifecycleE2e::withoutPipeEndsWith255()
{
    QFETCH(bool, socketExists);
    QFETCH(int, shortestLifeMs);

    E2eBoard board;
    if (socketExists)
        QVERIFY(board.bindPipeOnly());
    probe.startCountingMaps();
    QVERIFY(board.startBare({QStringLiteral("--name"), board.pipePath()}));
    QVERIFY(board.waitForExit(10000));

    QCOMPARE(board.exitCode(), 255);
    QVERIFY2(board.lifetimeMs() >= shortestLifeMs,
             qPrintable(QStringLiteral("ended after %1 ms: %2")
                            .arg(board.lifetimeMs())
                            .arg(QString::fromLocal8Bit(board.errors()))));
    QCOMPARE(probe.mapsCounted(), 0);
}

void TestBoardLifecycleE2e::secondStartShowsTheFirstToolbarAndEndsWithZero()
{
    E2eBoard first;
    QVERIFY(first.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(first.pid()), 10000);
    QVERIFY(first.send(R"({"type":"hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(first.pid()).isEmpty(), 5000);

    std::unique_ptr<E2eBoard> second = first.sibling();
    QVERIFY(second->startBare({QStringLiteral("--name"), second->pipePath()}));
    QVERIFY(second->waitForExit(5000));
    QCOMPARE(second->exitCode(), 0);

    QTRY_VERIFY_WITH_TIMEOUT(probe.toolbarOf(first.pid()).id != 0, 5000);
    QVERIFY(first.running());
}

void TestBoardLifecycleE2e::killedBoardIsReplacedByTheNextStart()
{
    E2eBoard first;
    QVERIFY(first.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(first.pid()), 10000);
    first.killHard();

    std::unique_ptr<E2eBoard> next = first.sibling();
    QVERIFY(next->startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(next->pid()), 10000);
    QVERIFY(next->running());

    next->closePipe();
    QVERIFY(next->waitForExit(5000));
    QCOMPARE(next->exitCode(), 0);
}

void TestBoardLifecycleE2e::oversizedMessageEndsTheLinkLikeAClosedPipe()
{
    E2eBoard board;
    QVERIFY(board.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);

    QByteArray message = R"({"type":"hide","padding":")";
    message += QByteArray(2000 - message.size() - 2, 'x');
    message += R"("})";
    QCOMPARE(message.size(), 2000);
    QVERIFY(board.send(message));

    QVERIFY(board.waitForExit(5000));
    QCOMPARE(board.exitCode(), 0);
}

void TestBoardLifecycleE2e::textThatIsNotJsonIsIgnored()
{
    E2eBoard board;
    QVERIFY(board.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);

    QVERIFY(board.send("this is not json {"));
    QVERIFY(board.send(R"({"type":"Hide"})"));
    QVERIFY(!board.waitForExit(300));
    QVERIFY(probe.showsCanvasAndToolbar(board.pid()));

    QVERIFY(board.send(R"({"type":"hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board.pid()).isEmpty(), 5000);
    QVERIFY(board.running());
}

void TestBoardLifecycleE2e::typeThatIsNotTextIsLoggedAndTheBoardGoesOn()
{
    E2eBoard board;
    QVERIFY(board.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);

    const QByteArray message = R"({"type":[1]})";
    const QByteArray line =
        "[E][bg] local-holder.cpp 89  : \"receive unsupported message: " + message + ", error: ";
    QVERIFY(board.send(message));
    QTRY_VERIFY_WITH_TIMEOUT(board.errors().contains(line), 5000);
    QVERIFY(board.running());
    QVERIFY(probe.showsCanvasAndToolbar(board.pid()));

    QVERIFY(board.send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board.pid()).isEmpty(), 5000);
}

void TestBoardLifecycleE2e::closingEveryWindowDoesNotEndTheBoard()
{
    E2eBoard board;
    QVERIFY(board.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);

    for (const X11Probe::Window& window : probe.viewableWindowsOf(board.pid()))
        probe.requestClose(window.id);
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board.pid()).isEmpty(), 5000);
    QVERIFY(!board.waitForExit(500));

    // Still listening to its host: the toolbar and canvas come back.
    QVERIFY(board.send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 5000);
}

void TestBoardLifecycleE2e::aNormalRunPrintsNothing()
{
    E2eBoard board;
    QVERIFY(board.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);

    // The hide is seen through before the show: the board reads its messages in its own
    // time, so windows still up from before the hide would pass for windows back after it.
    QVERIFY(board.send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board.pid()).isEmpty(), 5000);
    for (const char* type : {"show_or_hide", "undo", "redo", "trash_can"})
        QVERIFY(board.send(QByteArray("{\"type\":\"") + type + "\"}"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);
    QVERIFY(board.send(R"({"type":"hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board.pid()).isEmpty(), 5000);

    board.closePipe();
    QVERIFY(board.waitForExit(5000));
    QCOMPARE(board.exitCode(), 0);
    QCOMPARE(board.errors(), QByteArray());
}

void TestBoardLifecycleE2e::debugLinesShowWhenSwitchedOn()
{
    E2eBoard board;
    board.showDebugLines();
    QVERIFY(board.startWithHost());
    QTRY_VERIFY_WITH_TIMEOUT(probe.showsCanvasAndToolbar(board.pid()), 10000);

    QVERIFY(board.send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY_WITH_TIMEOUT(probe.viewableWindowsOf(board.pid()).isEmpty(), 5000);
    QTRY_VERIFY_WITH_TIMEOUT(board.errors().contains("Client Read: 23\n"), 5000);
}

void TestBoardLifecycleE2e::toolkitOptionsReachQtAndKeepTheLanguage_data()
{
    QTest::addColumn<QStringList>("toolkitOptions");
    QTest::newRow("-platform") << QStringList{"-platform", "offscreen"};
    QTest::newRow("--platform") << QStringList{"--platform", "offscreen"};
    QTest::newRow("-style -reverse -platform")
        << QStringList{"-style", "fusion", "-reverse", "-platform", "offscreen"};
}

void TestBoardLifecycleE2e::toolkitOptionsReachQtAndKeepTheLanguage()
{
    QFETCH(QStringList, toolkitOptions);
    E2eBoard board;
    board.showDebugLines();
    // The environment asks for X11: only a "-platform" that reached Qt keeps the board
    // off the X server.
    probe.startCountingMaps();
    QVERIFY(board.startWithHost(QStringList{"-l", "english"} + toolkitOptions));
    QTRY_VERIFY_WITH_TIMEOUT(board.errors().contains("Language \"english\""), 10000);
    QVERIFY2(board.errors().contains(":/language/en-US.ini"), board.errors().constData());

    QVERIFY(board.send(R"({"type":"show"})"));
    QTRY_VERIFY_WITH_TIMEOUT(board.errors().contains("Client Read: "), 5000);
    QCOMPARE(probe.mapsCounted(), 0);
    QVERIFY(board.running());
    board.closePipe();
    QVERIFY(board.waitForExit(5000));
    QCOMPARE(board.exitCode(), 0);
}

QTEST_MAIN(TestBoardLifecycleE2e)
#include "test-board-lifecycle-e2e.moc"
