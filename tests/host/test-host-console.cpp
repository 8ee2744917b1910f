// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/board-output.h"
#include "host/board-process.h"
#include "host/host-console.h"

#include <QtTest>

#include <unistd.h>

#include <mutex>
#include <sstream>
#include <string>
#include <vector>

class TestHostConsole : public QObject
{
    Q_OBJECT

private slots:
    void splitsLines_data();
    void splitsLines();
    void boardLineWhilePromptShownRedrawsThePrompt();
    void boardLineWithoutPromptIsPlain();
    void readsEveryLineFromTheDescriptor();
    void verboseRulesKeepTheUsersOwn_data();
    void verboseRulesKeepTheUsersOwn();
};

void TestHostConsole::splitsLines_data()
{
    QTest::addColumn<QStringList>("pieces");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("rest");

    QTest::newRow("one line") << QStringList{"Client Read: 23\n"} << QStringList{"Client Read: 23"}
                              << "";
    QTest::newRow("cut inside a line") << QStringList{"Client R", "ead: 23\nAddI", "tem Redo\n"}
                                       << QStringList{"Client Read: 23", "AddItem Redo"} << "";
    QTest::newRow("two in one piece") << QStringList{"a\nb\n"} << QStringList{"a", "b"} << "";
    QTest::newRow("empty line kept") << QStringList{"a\n\nb\n"} << QStringList{"a", "", "b"} << "";
    QTest::newRow("unfinished last line") << QStringList{"a\nhalf"} << QStringList{"a"} << "half";
}

void TestHostConsole::splitsLines()
{
    QFETCH(QStringList, pieces);
    QFETCH(QStringList, lines);
    QFETCH(QString, rest);

    LineSplitter splitter;
    QStringList got;
    for (const QString& piece : pieces) {
        const std::string bytes = piece.toStdString();
        for (const std::string& line : splitter.feed(bytes.data(), bytes.size()))
            got << QString::fromStdString(line);
    }
    QCOMPARE(got, lines);
    QCOMPARE(QString::fromStdString(splitter.takeRest()), rest);
    QCOMPARE(QString::fromStdString(splitter.takeRest()), QString());
}

void TestHostConsole::boardLineWhilePromptShownRedrawsThePrompt()
{
    std::ostringstream out;
    std::ostringstream err;
    HostConsole console(out, err, true);
    console.prompt();
    QCOMPARE(out.str(), std::string("pallo-host> "));
    console.boardLine("Client Read: 23");
    // The prompt's line is cleared, the board's line printed alone, the prompt redrawn.
    QCOMPARE(out.str(), std::string("pallo-host> \r\033[Kpallo-host> "));
    QCOMPARE(err.str(), std::string("pallo-board: Client Read: 23\n"));

    console.answered();
    console.boardLine("AddItem Redo");
    QCOMPARE(out.str(), std::string("pallo-host> \r\033[Kpallo-host> "));
    QCOMPARE(err.str(), std::string("pallo-board: Client Read: 23\npallo-board: AddItem Redo\n"));
}

void TestHostConsole::boardLineWithoutPromptIsPlain()
{
    std::ostringstream out;
    std::ostringstream err;
    HostConsole console(out, err, false);
    console.prompt();
    console.boardLine("Client Read: 23");
    console.answered();
    QCOMPARE(out.str(), std::string());
    QCOMPARE(err.str(), std::string("pallo-board: Client Read: 23\n"));
}

void TestHostConsole::readsEveryLineFromTheDescriptor()
{
    int ends[2];
    QCOMPARE(::pipe(ends), 0);
    std::mutex mutex;
    std::vector<std::string> lines;
    BoardOutput output;
    output.start(ends[0], [&](const std::string& line) {
        std::lock_guard<std::mutex> lock(mutex);
        lines.push_back(line);
    });
    const std::string text = "first\nsec";
    QCOMPARE(::write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    QCOMPARE(::write(ends[1], "ond\nlast", 8), static_cast<ssize_t>(8));
    ::close(ends[1]);
    output.finish();
    QCOMPARE(lines, (std::vector<std::string>{"first", "second", "last"}));
}

void TestHostConsole::verboseRulesKeepTheUsersOwn_data()
{
    QTest::addColumn<QString>("existing");
    QTest::addColumn<bool>("set");
    QTest::addColumn<QString>("rules");
    QTest::newRow("none") << QString() << false << "pallo.*.debug=true";
    QTest::newRow("empty") << QString() << true << "pallo.*.debug=true";
    QTest::newRow("the user's") << "qt.qpa.*=true" << true << "qt.qpa.*=true;pallo.*.debug=true";
}

void TestHostConsole::verboseRulesKeepTheUsersOwn()
{
    QFETCH(QString, existing);
    QFETCH(bool, set);
    QFETCH(QString, rules);
    const QByteArray bytes = existing.toUtf8();
    QCOMPARE(QString::fromStdString(verboseLoggingRules(set ? bytes.constData() : nullptr)), rules);
}

QTEST_APPLESS_MAIN(TestHostConsole)
#include "test-host-console.moc"
