// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include "pallo-version.h"

class TestPalloHost : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void eachCommandSendsItsMessage_data();
    void eachCommandSendsItsMessage();
    void commandsFromStandardInput();
    void rawJsonIsSentAsItIs();
    void unknownCommandIsReportedAndNotSent();
    void overlongMessageIsNotSent();
    void helpListsTheCommands();
    void versionIsTheProjectVersion();
    void relativeNameUsesTheRuntimeFolder();
    void boardExitCodeIsPassedOn();
    void boardThatNeverConnectsEndsTheHost();
    void missingBoardIsReported();
    void verboseSwitchesTheBoardsDebugLinesOn_data();
    void verboseSwitchesTheBoardsDebugLinesOn();

private:
    // Runs pallo-host with the fake board; returns the lines the board wrote.
    QStringList run(const QStringList& arguments, const QByteArray& input = QByteArray(),
                    int* exitCode = nullptr, QByteArray* errors = nullptr,
                    QByteArray* output = nullptr,
                    const QProcessEnvironment& extra = QProcessEnvironment());

    std::unique_ptr<QTemporaryDir> dir_;
};

void TestPalloHost::init()
{
    dir_ = std::make_unique<QTemporaryDir>();
    QVERIFY(dir_->isValid());
}

QStringList TestPalloHost::run(const QStringList& arguments, const QByteArray& input, int* exitCode,
                               QByteArray* errors, QByteArray* output,
                               const QProcessEnvironment& extra)
{
    const QString boardOutput = dir_->filePath("board.txt");
    QFile::remove(boardOutput);
    QProcess host;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("FAKE_BOARD_OUTPUT", boardOutput);
    env.insert(extra);
    host.setProcessEnvironment(env);
    host.start(PALLO_HOST_PATH, QStringList{"--board", FAKE_BOARD_PATH} + arguments);
    if (!host.waitForStarted(5000))
        return {"host did not start"};
    host.write(input);
    host.closeWriteChannel();
    if (!host.waitForFinished(20000)) {
        host.kill();
        return {"host did not finish"};
    }
    if (exitCode != nullptr)
        *exitCode = host.exitCode();
    if (errors != nullptr)
        *errors = host.readAllStandardError();
    if (output != nullptr)
        *output = host.readAllStandardOutput();
    QFile file(boardOutput);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
}

void TestPalloHost::eachCommandSendsItsMessage_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("message");

    for (const char* type : {"show_or_hide", "undo", "redo", "zoom", "shut", "timer", "trash_can",
                             "hide", "circle_mode"}) {
        QTest::newRow(type) << type << QString("{\"type\":\"%1\"}").arg(type);
    }
}

void TestPalloHost::eachCommandSendsItsMessage()
{
    QFETCH(QString, command);
    QFETCH(QString, message);
    const QString pipe = dir_->filePath("pipe");
    int code = -1;
    const QStringList lines = run({"--name", pipe, "--language", "chinese", command}, {}, &code);
    QCOMPARE(code, 0);
    QCOMPARE(lines,
             (QStringList{"name=" + pipe, "language=chinese", "message=" + message, "closed"}));
    QVERIFY(!QFile::exists(pipe));
}

void TestPalloHost::commandsFromStandardInput()
{
    const QString pipe = dir_->filePath("pipe");
    int code = -1;
    QByteArray output;
    const QStringList lines =
        run({"--name", pipe}, "undo\n\n  redo  \nwait 20\nzoom\n", &code, nullptr, &output);
    QCOMPARE(code, 0);
    QCOMPARE(lines,
             (QStringList{"name=" + pipe, "language=english", "message={\"type\":\"undo\"}",
                          "message={\"type\":\"redo\"}", "message={\"type\":\"zoom\"}", "closed"}));
    // No prompt when standard input is not a terminal.
    QVERIFY(!output.contains("pallo-host>"));
}

void TestPalloHost::rawJsonIsSentAsItIs()
{
    const QString pipe = dir_->filePath("pipe");
    const QStringList lines =
        run({"--name", pipe}, "{\"type\":\"undo\",\"data\":1}\n{\"type\":[1]}\nquit\nredo\n");
    QCOMPARE(lines, (QStringList{"name=" + pipe, "language=english",
                                 "message={\"type\":\"undo\",\"data\":1}", "message={\"type\":[1]}",
                                 "closed"}));
}

void TestPalloHost::unknownCommandIsReportedAndNotSent()
{
    const QString pipe = dir_->filePath("pipe");
    int code = -1;
    QByteArray errors;
    const QStringList lines = run({"--name", pipe, "Undo", "redo"}, {}, &code, &errors);
    QCOMPARE(code, 0);
    QVERIFY2(errors.contains("pallo-host: unknown command 'Undo' (try help)"), errors.constData());
    QCOMPARE(lines, (QStringList{"name=" + pipe, "language=english", "message={\"type\":\"redo\"}",
                                 "closed"}));
}

void TestPalloHost::overlongMessageIsNotSent()
{
    const QString pipe = dir_->filePath("pipe");
    QByteArray errors;
    const QString big = "{\"type\":\"undo\",\"pad\":\"" + QString(1100, 'x') + "\"}";
    const QStringList lines = run({"--name", pipe, big, "undo"}, {}, nullptr, &errors);
    QVERIFY2(errors.contains("more than the board takes (1024)"), errors.constData());
    QCOMPARE(lines, (QStringList{"name=" + pipe, "language=english", "message={\"type\":\"undo\"}",
                                 "closed"}));
}

void TestPalloHost::helpListsTheCommands()
{
    QProcess host;
    host.start(PALLO_HOST_PATH, {"--help"});
    QVERIFY(host.waitForFinished(5000));
    QCOMPARE(host.exitCode(), 0);
    const QByteArray text = host.readAllStandardOutput();
    for (const char* word :
         {"--name", "--language", "--board", "show_or_hide", "circle_mode", "trash_can", "quit"})
        QVERIFY2(text.contains(word), word);

    QByteArray output;
    const QString pipe = dir_->filePath("pipe");
    const QStringList lines = run({"--name", pipe}, "help\n", nullptr, nullptr, &output);
    QVERIFY(output.contains("trash_can"));
    QCOMPARE(lines, (QStringList{"name=" + pipe, "language=english", "closed"}));
}

void TestPalloHost::versionIsTheProjectVersion()
{
    // Asks for nothing else: no board is started and no pipe is made.
    QProcess host;
    host.setWorkingDirectory(dir_->path());
    host.start(PALLO_HOST_PATH, {"--version"});
    QVERIFY(host.waitForFinished(5000));
    QCOMPARE(host.exitCode(), 0);
    QCOMPARE(host.readAllStandardOutput(), QByteArray("pallo-host " PALLO_VERSION "\n"));
    QCOMPARE(host.readAllStandardError(), QByteArray());
    QVERIFY(QDir(dir_->path()).isEmpty());
}

void TestPalloHost::relativeNameUsesTheRuntimeFolder()
{
    QProcessEnvironment env;
    env.insert("XDG_RUNTIME_DIR", dir_->path());
    const QStringList lines =
        run({"--name", "board-pipe", "hide"}, {}, nullptr, nullptr, nullptr, env);
    QCOMPARE(lines, (QStringList{"name=board-pipe", "language=english",
                                 "message={\"type\":\"hide\"}", "closed"}));
}

void TestPalloHost::boardExitCodeIsPassedOn()
{
    QProcessEnvironment env;
    env.insert("FAKE_BOARD_EXIT", "7");
    int code = -1;
    QByteArray errors;
    run({"--name", dir_->filePath("pipe"), "undo"}, {}, &code, &errors, nullptr, env);
    QCOMPARE(code, 7);
    QVERIFY(errors.contains("pallo-board ended with code 7"));
}

void TestPalloHost::boardThatNeverConnectsEndsTheHost()
{
    // /bin/true stands for a board that quits before it connects.
    QProcess host;
    host.start(PALLO_HOST_PATH, {"--board", "/bin/true", "--name", dir_->filePath("pipe"), "undo"});
    QVERIFY(host.waitForFinished(10000));
    QVERIFY(host.exitCode() != 0);
    QVERIFY(host.readAllStandardError().contains("the board ended before it connected"));
    QVERIFY(!QFile::exists(dir_->filePath("pipe")));
}

void TestPalloHost::missingBoardIsReported()
{
    QProcess host;
    host.start(PALLO_HOST_PATH,
               {"--board", dir_->filePath("no-board"), "--name", dir_->filePath("pipe"), "undo"});
    QVERIFY(host.waitForFinished(10000));
    QVERIFY(host.exitCode() != 0);
    QVERIFY(host.readAllStandardError().contains("cannot start"));
}

void TestPalloHost::verboseSwitchesTheBoardsDebugLinesOn_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("debugLines");
    QTest::newRow("quiet") << QStringList{} << false;
    QTest::newRow("--verbose") << QStringList{"--verbose"} << true;
}

void TestPalloHost::verboseSwitchesTheBoardsDebugLinesOn()
{
    QFETCH(QStringList, options);
    QFETCH(bool, debugLines);

    QProcess host;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    // As a user starts it: no logging rules of the test's own.
    env.remove("QT_LOGGING_RULES");
    env.insert("FAKE_BOARD_OUTPUT", dir_->filePath("board.txt"));
    env.insert("FAKE_BOARD_SAY", "half a line");
    host.setProcessEnvironment(env);
    host.start(PALLO_HOST_PATH,
               QStringList{"--board", FAKE_BOARD_PATH, "--name", dir_->filePath("pipe")} + options +
                   QStringList{"undo", "wait 200", "redo"});
    QVERIFY(host.waitForFinished(20000));
    QCOMPARE(host.exitCode(), 0);
    const QByteArray errors = host.readAllStandardError();
    // The pipe client's line for each message read, as the board writes it, on a line of
    // its own with the board's name in front.
    QCOMPARE(errors.count("pallo-board: Client Read: 15\n"), debugLines ? 2 : 0);
    QVERIFY2(errors.contains("pallo-board: half a line\n"), errors.constData());
    QVERIFY(!host.readAllStandardOutput().contains("half a line"));
}

QTEST_GUILESS_MAIN(TestPalloHost)
#include "test-pallo-host.moc"
