// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/bridge.h"
#include "host/local-holder.h"
#include "tests/bridge/stderr-capture.h"
#include "tests/host/seqpacket-server.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Every signal of a holder by name, in the order they come.
class SignalLog : public QObject
{
public:
    explicit SignalLog(LocalHolder* holder)
    {
        record(holder, &LocalHolder::HolderDisconnected, "HolderDisconnected");
        record(holder, &LocalHolder::ShowOrHideBoard, "ShowOrHideBoard");
        record(holder, &LocalHolder::BoardUndo, "BoardUndo");
        record(holder, &LocalHolder::BoardRedo, "BoardRedo");
        record(holder, &LocalHolder::OpenOrCloseZoom, "OpenOrCloseZoom");
        record(holder, &LocalHolder::OpenOrCloseShut, "OpenOrCloseShut");
        record(holder, &LocalHolder::OpenOrCloseTimer, "OpenOrCloseTimer");
        record(holder, &LocalHolder::BoardTrashCan, "BoardTrashCan");
        record(holder, &LocalHolder::HideBoard, "HideBoard");
        record(holder, &LocalHolder::CircleEditMode, "CircleEditMode");
    }

    QStringList order;

private:
    void record(LocalHolder* holder, void (LocalHolder::*signal)(), const QString& name)
    {
        connect(holder, signal, this, [this, name] { order.append(name); });
    }
};

// Messages after the one under test show that it has been handled: one poll reads
// one message, in order.
const QByteArray kSentinel = "{\"type\":\"redo\"}";

} // namespace

class TestLocalHolder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void messagesBecomeSignals_data();
    void messagesBecomeSignals();
    void unreadableTypeWritesTheErrorLine_data();
    void unreadableTypeWritesTheErrorLine();
    void withoutBridgeNothingIsLogged();
    void messageHandedInDirectly();
    void hostClosingEmitsDisconnectedOnce();
    void messagesBeforeTheCloseStillCount();
    void connectTwiceIsRefused();
    void failedConnectStillEndsInDisconnected();

private:
    bool connectHolder(LocalHolder& holder, SeqpacketServer& server);

    std::unique_ptr<QTemporaryDir> dir_;
};

void TestLocalHolder::init()
{
    dir_ = std::make_unique<QTemporaryDir>();
    QVERIFY(dir_->isValid());
    char program[] = "pallo-board";
    char* argv[] = {program, nullptr};
    QVERIFY(bg::InitBridge(1, argv));
}

void TestLocalHolder::cleanup()
{
    bg::UninitBridge();
}

bool TestLocalHolder::connectHolder(LocalHolder& holder, SeqpacketServer& server)
{
    return server.start() && holder.Connect(dir_->filePath("pipe")) && server.accept();
}

void TestLocalHolder::messagesBecomeSignals_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QStringList>("emitted");

    QTest::newRow("show_or_hide") << QByteArray("{\"type\":\"show_or_hide\"}")
                                  << QStringList{"ShowOrHideBoard"};
    QTest::newRow("undo with data")
        << QByteArray("{\"type\":\"undo\",\"data\":1}") << QStringList{"BoardUndo"};
    QTest::newRow("redo") << QByteArray("{\"type\":\"redo\"}") << QStringList{"BoardRedo"};
    QTest::newRow("zoom") << QByteArray("{\"type\":\"zoom\"}") << QStringList{"OpenOrCloseZoom"};
    QTest::newRow("shut") << QByteArray("{\"type\":\"shut\"}") << QStringList{"OpenOrCloseShut"};
    QTest::newRow("timer") << QByteArray("{\"type\":\"timer\"}") << QStringList{"OpenOrCloseTimer"};
    QTest::newRow("trash_can") << QByteArray("{\"type\":\"trash_can\"}")
                               << QStringList{"BoardTrashCan"};
    QTest::newRow("hide") << QByteArray("{\"type\":\"hide\"}") << QStringList{"HideBoard"};
    QTest::newRow("circle_mode") << QByteArray("{\"type\":\"circle_mode\"}")
                                 << QStringList{"CircleEditMode"};
    QTest::newRow("blanks and order")
        << QByteArray(" { \"x\": [1,2], \"type\" : \"zoom\" } ") << QStringList{"OpenOrCloseZoom"};
    QTest::newRow("wrong case") << QByteArray("{\"type\":\"Undo\"}") << QStringList{};
    QTest::newRow("unknown type") << QByteArray("{\"type\":\"paint\"}") << QStringList{};
    QTest::newRow("no type") << QByteArray("{\"kind\":\"undo\"}") << QStringList{};
    QTest::newRow("number type") << QByteArray("{\"type\":1}") << QStringList{};
    QTest::newRow("null type") << QByteArray("{\"type\":null}") << QStringList{};
    QTest::newRow("not json") << QByteArray("undo") << QStringList{};
    QTest::newRow("cut json") << QByteArray("{\"type\":\"undo\"") << QStringList{};
    QTest::newRow("with comment") << QByteArray("{\"type\":\"hide\" /* why */}")
                                  << QStringList{"HideBoard"};
}

void TestLocalHolder::messagesBecomeSignals()
{
    QFETCH(QByteArray, message);
    QFETCH(QStringList, emitted);

    SeqpacketServer server(dir_->filePath("pipe"));
    LocalHolder holder;
    SignalLog log(&holder);
    QVERIFY(connectHolder(holder, server));
    StderrCapture capture;
    QVERIFY(server.send(message));
    QVERIFY(server.send(kSentinel));
    QTRY_COMPARE(log.order, emitted + QStringList{"BoardRedo"});
    QTest::qWait(30);
    QCOMPARE(log.order, emitted + QStringList{"BoardRedo"});
    for (const QString& line : capture.lines())
        QVERIFY2(line.startsWith("Client Read: "), qPrintable(line));
}

void TestLocalHolder::unreadableTypeWritesTheErrorLine_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QString>("error");

    QTest::newRow("array type") << QByteArray("{\"type\":[1]}")
                                << "Type is not convertible to string";
    QTest::newRow("object type") << QByteArray("{\"type\":{\"a\":1}}")
                                 << "Type is not convertible to string";
    QTest::newRow("forged line") << QByteArray("{\"type\":[1],\n\"x\":\"\x1b[2J\"}")
                                 << "Type is not convertible to string";
    QTest::newRow("array message") << QByteArray("[1]")
                                   << "in Json::Value::resolveReference(key, end): requires "
                                      "objectValue";
}

void TestLocalHolder::unreadableTypeWritesTheErrorLine()
{
    QFETCH(QByteArray, message);
    QFETCH(QString, error);

    SeqpacketServer server(dir_->filePath("pipe"));
    LocalHolder holder;
    SignalLog log(&holder);
    QVERIFY(connectHolder(holder, server));
    StderrCapture capture;
    QVERIFY(server.send(message));
    QVERIFY(server.send(kSentinel));
    QTRY_COMPARE(log.order, QStringList{"BoardRedo"});
    const QStringList lines = capture.lines();

    const QRegularExpression pattern(
        "^\\d{4}-\\d{2}:\\d{2}:\\d{2}\\[E\\]\\[bg\\] local-holder\\.cpp 89  : "
        "\"receive unsupported message: (.*), error: (.*)\"$");
    QStringList errorLines;
    for (const QString& line : lines) {
        if (!line.startsWith("Client Read: "))
            errorLines.append(line);
    }
    QCOMPARE(errorLines.size(), 1);
    const QRegularExpressionMatch match = pattern.match(errorLines.first());
    QVERIFY2(match.hasMatch(), qPrintable(errorLines.first()));
    QString shown = QString::fromUtf8(message);
    shown.replace("\n", "\\n").replace("\x1b", "\\x1b");
    QCOMPARE(match.captured(1), shown);
    QCOMPARE(match.captured(2), error);
    QCOMPARE(lines.filter("Client Read: ").size(), 2);
}

void TestLocalHolder::withoutBridgeNothingIsLogged()
{
    bg::UninitBridge();
    LocalHolder holder;
    SignalLog log(&holder);
    StderrCapture capture;
    const QByteArray message("{\"type\":[1]}");
    holder.OnPipeMessage(message.constData(), message.size());
    QCOMPARE(capture.finish(), QByteArray());
    QVERIFY(log.order.isEmpty());
}

void TestLocalHolder::messageHandedInDirectly()
{
    LocalHolder holder;
    SignalLog log(&holder);
    // Only the given length counts, not what follows it.
    const char text[] = "{\"type\":\"timer\"}{\"type\":\"zoom\"}";
    holder.OnPipeMessage(text, 16);
    QCOMPARE(log.order, QStringList{"OpenOrCloseTimer"});
    holder.OnPipeMessage(text, 0);
    holder.OnPipeMessage(text, -5);
    QCOMPARE(log.order, QStringList{"OpenOrCloseTimer"});
}

void TestLocalHolder::hostClosingEmitsDisconnectedOnce()
{
    SeqpacketServer server(dir_->filePath("pipe"));
    LocalHolder holder;
    SignalLog log(&holder);
    QVERIFY(connectHolder(holder, server));
    QTest::qWait(30);
    QVERIFY(log.order.isEmpty());
    server.closeConnection();
    QTRY_COMPARE(log.order, QStringList{"HolderDisconnected"});
    QTest::qWait(60);
    QCOMPARE(log.order, QStringList{"HolderDisconnected"});
}

void TestLocalHolder::messagesBeforeTheCloseStillCount()
{
    SeqpacketServer server(dir_->filePath("pipe"));
    LocalHolder holder;
    SignalLog log(&holder);
    QVERIFY(connectHolder(holder, server));
    StderrCapture capture;
    QVERIFY(server.send("{\"type\":\"undo\"}"));
    QVERIFY(server.send("{\"type\":\"trash_can\"}"));
    server.closeConnection();
    QTRY_COMPARE(log.order, (QStringList{"BoardUndo", "BoardTrashCan", "HolderDisconnected"}));
}

void TestLocalHolder::connectTwiceIsRefused()
{
    SeqpacketServer server(dir_->filePath("pipe"));
    LocalHolder holder;
    QVERIFY(connectHolder(holder, server));
    QVERIFY(!holder.Connect(dir_->filePath("pipe")));
}

void TestLocalHolder::failedConnectStillEndsInDisconnected()
{
    LocalHolder holder;
    SignalLog log(&holder);
    StderrCapture capture;
    QVERIFY(!holder.Connect(dir_->filePath("absent")));
    QCOMPARE(capture.finish(), QByteArray("Could not open pipe: 500 ms wait timed out.\n"));
    // The failed client is kept, so a second attempt is refused too.
    QVERIFY(!holder.Connect(dir_->filePath("absent")));
    QTRY_COMPARE(log.order, QStringList{"HolderDisconnected"});
    QTest::qWait(50);
    QCOMPARE(log.order, QStringList{"HolderDisconnected"});
}

QTEST_GUILESS_MAIN(TestLocalHolder)
#include "test-local-holder.moc"
