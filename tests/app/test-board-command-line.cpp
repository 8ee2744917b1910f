// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// The real pallo-board asked about itself, as a user or a packager does: no host, no
// pipe, no window.
#include "pallo-version.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

class TestBoardCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void versionIsTheOneHandedToTheHost();
    void helpNeedsNoName_data();
    void helpNeedsNoName();

private:
    // Runs the board and returns its exit code, or -1 if it did not end.
    int run(const QStringList& arguments, QByteArray* output, QByteArray* errors);
    QString bridgeFile() const { return dir_->filePath("bridge.json"); }

    std::unique_ptr<QTemporaryDir> dir_;
};

void TestBoardCommandLine::init()
{
    dir_ = std::make_unique<QTemporaryDir>();
    QVERIFY(dir_->isValid());
}

int TestBoardCommandLine::run(const QStringList& arguments, QByteArray* output, QByteArray* errors)
{
    QProcess board;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("PALLO_BRIDGE_CONFIG", bridgeFile());
    // Any window would be a fault; there is no screen to show one on.
    env.remove("DISPLAY");
    env.remove("WAYLAND_DISPLAY");
    // The tests switch the board's debug lines on; they are not what the command line says.
    env.remove("QT_LOGGING_RULES");
    env.insert("QT_QPA_PLATFORM", "xcb");
    board.setProcessEnvironment(env);
    board.start(PALLO_BOARD_PATH, arguments);
    if (!board.waitForFinished(10000))
        return -1;
    *output = board.readAllStandardOutput();
    *errors = board.readAllStandardError();
    return board.exitStatus() == QProcess::NormalExit ? board.exitCode() : -1;
}

void TestBoardCommandLine::versionIsTheOneHandedToTheHost()
{
    QByteArray output;
    QByteArray errors;
    QCOMPARE(run({"--version"}, &output, &errors), 0);
    QCOMPARE(output, QByteArray("pallo-board " PALLO_VERSION "\n"));
    QCOMPARE(errors, QByteArray());
    QVERIFY2(QRegularExpression("^\\d+\\.\\d+\\.\\d+$").match(PALLO_VERSION).hasMatch(),
             PALLO_VERSION);

    QFile file(bridgeFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QJsonObject store = QJsonDocument::fromJson(file.readAll()).object();
    QCOMPARE(store.value("appVersion").toString(), QStringLiteral(PALLO_VERSION));
}

void TestBoardCommandLine::helpNeedsNoName_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("alone") << QStringList{"--help"};
    QTest::newRow("with a language") << QStringList{"--language", "english", "--help"};
    QTest::newRow("with a name") << QStringList{"-n", "pipe", "--help"};
}

void TestBoardCommandLine::helpNeedsNoName()
{
    QFETCH(QStringList, arguments);
    QByteArray output;
    QByteArray errors;
    QCOMPARE(run(arguments, &output, &errors), 0);
    QCOMPARE(errors, QByteArray());
    for (const char* text : {"Usage:", "pallo-board", "-n, --name", "namepipe name (required)",
                             "-l, --language", "app language", "--help", "--version"})
        QVERIFY2(output.contains(text), text);
}

QTEST_GUILESS_MAIN(TestBoardCommandLine)
#include "test-board-command-line.moc"
