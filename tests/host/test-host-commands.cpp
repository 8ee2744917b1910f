// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/host-commands.h"

#include <QtTest>

class TestHostCommands : public QObject
{
    Q_OBJECT

private slots:
    void lines_data();
    void lines();
    void helpNamesEveryCommand();
};

void TestHostCommands::lines_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("waitMs");

    for (const char* type : {"show_or_hide", "undo", "redo", "zoom", "shut", "timer", "trash_can",
                             "hide", "circle_mode"}) {
        QTest::newRow(type) << type << int(HostInput::Message)
                            << QString("{\"type\":\"%1\"}").arg(type) << 0;
    }
    QTest::newRow("blanks around") << " \tundo \r\n"
                                   << int(HostInput::Message) << "{\"type\":\"undo\"}" << 0;
    QTest::newRow("raw json") << "{\"type\":\"x\"}" << int(HostInput::Message) << "{\"type\":\"x\"}"
                              << 0;
    QTest::newRow("raw not checked") << "{oops" << int(HostInput::Message) << "{oops" << 0;
    QTest::newRow("help") << "help" << int(HostInput::Help) << "" << 0;
    QTest::newRow("--help") << "--help" << int(HostInput::Help) << "" << 0;
    QTest::newRow("quit") << "quit" << int(HostInput::Quit) << "" << 0;
    QTest::newRow("exit") << "exit" << int(HostInput::Quit) << "" << 0;
    QTest::newRow("wait") << "wait 250" << int(HostInput::Wait) << "" << 250;
    QTest::newRow("wait negative") << "wait -1" << int(HostInput::Unknown) << "wait -1" << 0;
    QTest::newRow("wait word") << "wait soon" << int(HostInput::Unknown) << "wait soon" << 0;
    QTest::newRow("empty") << "   " << int(HostInput::Empty) << "" << 0;
    QTest::newRow("case matters") << "Undo" << int(HostInput::Unknown) << "Undo" << 0;
}

void TestHostCommands::lines()
{
    QFETCH(QString, line);
    QFETCH(int, kind);
    QFETCH(QString, text);
    QFETCH(int, waitMs);
    const HostInput input = parseHostInput(line.toStdString());
    QCOMPARE(int(input.kind), kind);
    QCOMPARE(QString::fromStdString(input.text), text);
    QCOMPARE(input.waitMs, waitMs);
}

void TestHostCommands::helpNamesEveryCommand()
{
    const std::string help = hostHelpText();
    QCOMPARE(hostCommandNames().size(), std::size_t(9));
    for (const std::string& name : hostCommandNames())
        QVERIFY2(help.find("  " + name + "\n") != std::string::npos, name.c_str());
}

QTEST_APPLESS_MAIN(TestHostCommands)
#include "test-host-commands.moc"
