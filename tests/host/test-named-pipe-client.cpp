// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/named-pipe-callback.h"
#include "host/named-pipe-client.h"
#include "tests/bridge/stderr-capture.h"
#include "tests/host/seqpacket-server.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/wait.h>

#include <cerrno>
#include <thread>

namespace {

class Recorder : public NamedPipeCallback
{
public:
    void OnPipeMessage(const char* data, std::int32_t length) override
    {
        messages.append(QByteArray(data, length));
    }

    QList<QByteArray> messages;
};

} // namespace

class TestNamedPipeClient : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void emptyPollReturnsZeroAndDeliversNothing();
    void twoQuickMessagesComeInTwoPolls();
    void eachPollPrintsTheByteCount();
    void largestMessageIsDelivered();
    void longerMessageEndsTheLink_data();
    void longerMessageEndsTheLink();
    void closedPeerIsABrokenPipe();
    void emptyMessageIsIgnored();
    void emptyMessageBeforeTheCloseEndsTheLink();
    void queuedMessagesArriveBeforeTheClose();
    void unopenedClientFails();
    void missingPathFailsAtOnce();
    void busyServerIsRetriedUntilTheWait();
    void busyServerThatFreesUpIsJoined();
    void socketNobodyListensOnIsRetried();
    void relativeNameLivesInTheRuntimeFolder();
    void serverOfAnotherUserIsRefused();
    void pollWaitsForAMessage();

private:
    QString path(const char* name) const { return dir_->filePath(name); }

    std::unique_ptr<QTemporaryDir> dir_;
};

void TestNamedPipeClient::init()
{
    dir_ = std::make_unique<QTemporaryDir>();
    QVERIFY(dir_->isValid());
}

void TestNamedPipeClient::emptyPollReturnsZeroAndDeliversNothing()
{
    SeqpacketServer server(path("p"));
    QVERIFY(server.start());
    Recorder recorder;
    NamedPipeClient client(&recorder);
    QCOMPARE(client.Open(path("p").toStdString(), 500), 1);
    QVERIFY(server.accept());
    StderrCapture capture;
    for (int i = 0; i < 3; ++i)
        QCOMPARE(client.Poll(0), 0u);
    QVERIFY(recorder.messages.isEmpty());
    QCOMPARE(capture.finish(), QByteArray());
}

void TestNamedPipeClient::twoQuickMessagesComeInTwoPolls()
{
    SeqpacketServer server(path("p"));
    QVERIFY(server.start());
    Recorder recorder;
    NamedPipeClient client(&recorder);
    QCOMPARE(client.Open(path("p").toStdString(), 500), 1);
    QVERIFY(server.accept());
    QVERIFY(server.send("{\"type\":\"undo\"}"));
    QVERIFY(server.send("{\"type\":\"redo\"}"));
    StderrCapture capture;
    QCOMPARE(client.Poll(0), 0u);
    QCOMPARE(recorder.messages, QList<QByteArray>{"{\"type\":\"undo\"}"});
    QCOMPARE(client.Poll(0), 0u);
    QCOMPARE(recorder.messages, (QList<QByteArray>{"{\"type\":\"undo\"}", "{\"type\":\"redo\"}"}));
    QCOMPARE(client.Poll(0), 0u);
    QCOMPARE(recorder.messages.size(), 2);
    QCOMPARE(capture.finish(), QByteArray("Client Read: 15\nClient Read: 15\n"));
}

void TestNamedPipeClient::eachPollPrintsTheByteCount()
{
    SeqpacketServer server(path("p"));
    QVERIFY(server.start());
    Recorder recorder;
    NamedPipeClient client(&recorder);
    QCOMPARE(client.Open(path("p").toStdString(), 500), 1);
    QVERIFY(server.accept());
    QVERIFY(server.send("abc"));
    StderrCapture capture;
    QCOMPARE(client.Poll(0), 0u);
    QCOMPARE(capture.finish(), QByteArray("Client Read: 3\n"));
}

void TestNamedPipeClient::largestMessageIsDelivered()
{
    SeqpacketServer server(path("p"));
    QVERIFY(server.start());
    Recorder recorder;
    NamedPipeClient client(&recorder);
    QCOMPARE(client.Open(path("p").toStdString(), 500), 1);
    QVERIFY(server.accept());
    const QByteArray message(1024, 'x');
    QVERIFY(server.send(message));
    StderrCapture capture;
    QCOMPARE(client.Poll(0), 0u);
    QCOMPARE(recorder.messages, QList<QByteArray>{message});
    QCOMPARE(capture.finish(), QByteArray("Client Read: 1024\n"));
}

void TestNamedPipeClient::longerMessageEndsTheLink_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("1025 bytes") << 1025;
    QTest::newRow("2000 bytes") << 2000;
}

void TestNamedPipeClient::longerMessageEndsTheLink()
{
    QFETCH(int, size);
    SeqpacketServer server(path("p"));
    QVERIFY(server.start());
    Recorder recorder;
    NamedPipeClient client(&recorder);
    QCOMPARE(client.Open(path("p").toStdString(), 500), 1);
    QVERIFY(server.accept());
    QVERIFY(server.send(QByteArray(size, 'y')));
    QVERIFY(server.send("{\"type\":\"undo\"}"));
    QCOMPARE(client.Poll(0), NamedPipeClient::kResultReadFailed + EMSGSIZE);
    QVERIFY(recorder.messages.isEmpty());
    for (int i = 0; i < 3; ++i)
        QVERIFY(client.Poll(0) != 0u);
    QVERIFY(recorder.messages.isEmpty());
}

void TestNamedPipeClient::closedPeerIsABrokenPipe()
{
    SeqpacketServer server(path("p"));
    QVERIFY(server.start());
    Recorder recorder;
    NamedPipeClient client(&recorder);
    QCOMPARE(client.Open(path("p").toStdString(), 500), 1);
    QVERIFY(server.accept());
    QCOMPARE(client.Poll(0), 0u);
    server.closeConnection();
    QCOMPARE(client.Poll(0), NamedPipeClient::kResultReadFailed + EPIPE);
    QCOMPARE(client.Poll(0), NamedPipeClient::kResultFailed);
    QVERIFY(client.Poll(10) != 0u);
    QVERIFY(recorder.messages.isEmpty());
}

void TestNamedPipeClient::emptyMessageIsIgnored()
{
    SeqpacketServer server(path("p"));
    QVERIFY(server.start());
    Recorder recorder;
    NamedPipeClient client(&recorder);
    QCOMPARE(client.Open(path("p").toStdString(), 500), 1);
    QVERIFY(server.accept());
    QVERIFY(server.send(QByteArray()));
    QVERIFY(server.send("{\"type\":\"undo\"}"));
    StderrCapture capture;
    QCOMPARE(client.Poll(0), 0u);
    QVERIFY(recorder.messages.isEmpty());
    QCOMPARE(client.Poll(0), 0u);
    QCOMPARE(recorder.messages, QList<QByteArray>{"{\"type\":\"undo\"}"});
    QCOMPARE(client.Poll(0), 0u);
    QCOMPARE(capture.finish(), QByteArray("Client Read: 15\n"));
}

void TestNamedPipeClient::emptyMessageBeforeTheCloseEndsTheLink()
{
    SeqpacketServer server(path("p"));
    QVERIFY(server.start());
    Recorder recorder;
    NamedPipeClient client(&recorder);
    QCOMPARE(client.Open(path("p").toStdString(), 500), 1);
    QVERIFY(server.accept());
    QVERIFY(server.send(QByteArray()));
    server.closeConnection();
    QCOMPARE(client.Poll(0), NamedPipeClient::kResultReadFailed + EPIPE);
    QCOMPARE(client.Poll(0), NamedPipeClient::kResultFailed);
}

void TestNamedPipeClient::queuedMessagesArriveBeforeTheClose()
{
    SeqpacketServer server(path("p"));
    QVERIFY(server.start());
    Recorder recorder;
    NamedPipeClient client(&recorder);
    QCOMPARE(client.Open(path("p").toStdString(), 500), 1);
    QVERIFY(server.accept());
    QVERIFY(server.send("one"));
    server.closeConnection();
    QCOMPARE(client.Poll(0), 0u);
    QCOMPARE(recorder.messages, QList<QByteArray>{"one"});
    QCOMPARE(client.Poll(0), NamedPipeClient::kResultReadFailed + EPIPE);
}

void TestNamedPipeClient::unopenedClientFails()
{
    Recorder recorder;
    NamedPipeClient client(&recorder);
    QCOMPARE(client.Poll(0), NamedPipeClient::kResultFailed);
}

void TestNamedPipeClient::missingPathFailsAtOnce()
{
    Recorder recorder;
    NamedPipeClient client(&recorder);
    StderrCapture capture;
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(client.Open(path("absent").toStdString(), 5000), 0);
    QVERIFY(timer.elapsed() < 5000);
    QCOMPARE(capture.finish(), QByteArray("Could not open pipe: 5000 ms wait timed out.\n"));
    QCOMPARE(client.Poll(0), NamedPipeClient::kResultFailed);
}

void TestNamedPipeClient::busyServerIsRetriedUntilTheWait()
{
    SeqpacketServer server(path("p"));
    QVERIFY(server.start(0));
    QVERIFY(server.fillBacklog());
    Recorder recorder;
    NamedPipeClient client(&recorder);
    StderrCapture capture;
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(client.Open(path("p").toStdString(), 300), 0);
    QVERIFY(timer.elapsed() >= 300);
    QCOMPARE(capture.finish(), QByteArray("Could not open pipe: 300 ms wait timed out.\n"));
}

void TestNamedPipeClient::busyServerThatFreesUpIsJoined()
{
    SeqpacketServer server(path("p"));
    QVERIFY(server.start(0));
    QVERIFY(server.fillBacklog());
    std::thread freeing([&server] {
        std::this_thread::sleep_for(std::chrono::milliseconds(150));
        server.releaseBacklog();
    });
    Recorder recorder;
    NamedPipeClient client(&recorder);
    QElapsedTimer timer;
    timer.start();
    const int opened = client.Open(path("p").toStdString(), 5000);
    const qint64 elapsed = timer.elapsed();
    freeing.join();
    QCOMPARE(opened, 1);
    QVERIFY(elapsed >= 150);
    QVERIFY(server.accept());
    QVERIFY(server.send("hi"));
    QCOMPARE(client.Poll(100), 0u);
    QCOMPARE(recorder.messages, QList<QByteArray>{"hi"});
}

void TestNamedPipeClient::socketNobodyListensOnIsRetried()
{
    SeqpacketServer server(path("p"));
    QVERIFY(server.bind());
    std::thread listening([&server] {
        std::this_thread::sleep_for(std::chrono::milliseconds(150));
        server.listen();
    });
    Recorder recorder;
    NamedPipeClient client(&recorder);
    const int opened = client.Open(path("p").toStdString(), 5000);
    listening.join();
    QCOMPARE(opened, 1);
    QVERIFY(server.accept());
}

void TestNamedPipeClient::relativeNameLivesInTheRuntimeFolder()
{
    qputenv("XDG_RUNTIME_DIR", dir_->path().toUtf8());
    SeqpacketServer server(path("board-pipe"));
    QVERIFY(server.start());
    Recorder recorder;
    NamedPipeClient client(&recorder);
    QCOMPARE(client.Open("board-pipe", 500), 1);
    qunsetenv("XDG_RUNTIME_DIR");
    QVERIFY(server.accept());
}

void TestNamedPipeClient::serverOfAnotherUserIsRefused()
{
    if (::getuid() != 0)
        QSKIP("needs root to run a server as another user");
    const QByteArray socketPath = path("foreign").toUtf8();
    QFile::setPermissions(dir_->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                            QFile::ReadOther | QFile::WriteOther | QFile::ExeOther);
    int ready[2];
    QCOMPARE(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        // A process of the "nobody" user owns the listening socket.
        if (::setgid(65534) != 0 || ::setuid(65534) != 0)
            ::_exit(1);
        const int fd = ::socket(AF_UNIX, SOCK_SEQPACKET, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, socketPath.constData(), sizeof address.sun_path - 1);
        if (::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
            ::listen(fd, 4) != 0)
            ::_exit(2);
        const char ok = 'k';
        if (::write(ready[1], &ok, 1) != 1)
            ::_exit(3);
        ::pause();
        ::_exit(0);
    }
    ::close(ready[1]);
    char answer = 0;
    QCOMPARE(::read(ready[0], &answer, 1), ssize_t(1));
    ::close(ready[0]);

    Recorder recorder;
    NamedPipeClient client(&recorder);
    StderrCapture capture;
    const int opened = client.Open(socketPath.toStdString(), 200);
    const QByteArray text = capture.finish();
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    QCOMPARE(opened, 0);
    QCOMPARE(text, QByteArray("Could not open pipe: 200 ms wait timed out.\n"));
    QCOMPARE(client.Poll(0), NamedPipeClient::kResultFailed);
}

void TestNamedPipeClient::pollWaitsForAMessage()
{
    SeqpacketServer server(path("p"));
    QVERIFY(server.start());
    Recorder recorder;
    NamedPipeClient client(&recorder);
    QCOMPARE(client.Open(path("p").toStdString(), 500), 1);
    QVERIFY(server.accept());
    std::thread sending([&server] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        server.send("late");
    });
    const std::uint32_t result = client.Poll(5000);
    sending.join();
    QCOMPARE(result, 0u);
    QCOMPARE(recorder.messages, QList<QByteArray>{"late"});
}

QTEST_APPLESS_MAIN(TestNamedPipeClient)
#include "test-named-pipe-client.moc"
