// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tests/e2e/e2e-board.h"

#include <QDir>
#include <QFile>
#include <QObject>
#include <QRegularExpression>
#include <QTest>

#include <signal.h>

E2eBoard::E2eBoard() : dir_(std::make_shared<QTemporaryDir>()), pipeFile_(QStringLiteral("pipe"))
{
    if (!dir_->isValid())
        return;
    const QString copy = dir_->filePath(QStringLiteral("pallo-board"));
    if (QFile::copy(QStringLiteral(PALLO_BOARD_PATH), copy))
        program_ = copy;
}

E2eBoard::E2eBoard(std::shared_ptr<QTemporaryDir> dir, QString program, QString pipeFile)
    : dir_(std::move(dir)), program_(std::move(program)), pipeFile_(std::move(pipeFile))
{
}

E2eBoard::~E2eBoard()
{
    if (process_.state() != QProcess::NotRunning) {
        closePipe();
        // A board built with the sanitizers takes a while longer to end.
        if (!process_.waitForFinished(5000))
            killHard();
    }
    const QString problem = trouble();
    if (!problem.isEmpty())
        QTest::qFail(qPrintable(problem), __FILE__, __LINE__);
}

std::unique_ptr<E2eBoard> E2eBoard::sibling() const
{
    static int siblings = 0;
    std::unique_ptr<E2eBoard> board(
        new E2eBoard(dir_, program_, QStringLiteral("pipe-%1").arg(++siblings)));
    board->extraEnv_ = extraEnv_;
    return board;
}

QString E2eBoard::pipePath() const
{
    return dir_->filePath(pipeFile_);
}

QProcessEnvironment E2eBoard::environment() const
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    env.insert(QStringLiteral("HOME"), dir_->path());
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), dir_->filePath(QStringLiteral("config")));
    env.insert(QStringLiteral("PALLO_BRIDGE_CONFIG"),
               dir_->filePath(QStringLiteral("bridge.json")));
    env.insert(QStringLiteral("TMPDIR"), dir_->path());
    // A login session has one; without it Qt warns at start.
    env.insert(QStringLiteral("XDG_RUNTIME_DIR"), dir_->path());
    if (debugLines_)
        env.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("pallo.*.debug=true"));
    else
        env.remove(QStringLiteral("QT_LOGGING_RULES"));
    for (auto it = extraEnv_.cbegin(); it != extraEnv_.cend(); ++it) {
        if (it.value().isNull())
            env.remove(it.key());
        else
            env.insert(it.key(), it.value());
    }
    return env;
}

bool E2eBoard::launch(const QStringList& arguments)
{
    process_.setProcessEnvironment(environment());
    process_.setProgram(program_);
    process_.setArguments(arguments);
    process_.setProcessChannelMode(QProcess::SeparateChannels);
    QObject::connect(&process_, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished),
                     [this](int, QProcess::ExitStatus) { lifetime_ = clock_.elapsed(); });
    clock_.start();
    process_.start();
    return process_.waitForStarted(5000);
}

bool E2eBoard::startWithHost(const QStringList& rest)
{
    server_ = std::make_unique<SeqpacketServer>(pipePath());
    if (!server_->start())
        return false;
    if (!launch(QStringList{QStringLiteral("--name"), pipePath()} + rest))
        return false;
    return server_->accept(10000);
}

bool E2eBoard::startBare(const QStringList& arguments)
{
    return launch(arguments);
}

bool E2eBoard::bindPipeOnly()
{
    server_ = std::make_unique<SeqpacketServer>(pipePath());
    return server_->bind();
}

bool E2eBoard::send(const QByteArray& message)
{
    return server_ && server_->send(message);
}

void E2eBoard::closePipe()
{
    if (server_)
        server_->closeConnection();
}

qint64 E2eBoard::pid() const
{
    return process_.processId();
}

bool E2eBoard::running() const
{
    return process_.state() != QProcess::NotRunning;
}

bool E2eBoard::waitForExit(int timeoutMs)
{
    if (process_.state() == QProcess::NotRunning)
        return true;
    return process_.waitForFinished(timeoutMs);
}

int E2eBoard::exitCode() const
{
    return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
}

QByteArray E2eBoard::errors()
{
    errors_ += process_.readAllStandardError();
    return errors_;
}

void E2eBoard::killHard()
{
    killed_ = true;
    ::kill(static_cast<pid_t>(process_.processId()), SIGKILL);
    process_.waitForFinished(5000);
}

QString E2eBoard::trouble()
{
    const QByteArray text = errors();
    // AddressSanitizer's report and UBSan's, whichever way their options let the board go on.
    static const QRegularExpression report(
        QStringLiteral("ERROR: \\w+Sanitizer|: runtime error: "));
    const int at = QString::fromLocal8Bit(text).indexOf(report);
    if (at >= 0)
        return QStringLiteral("the board wrote a sanitizer report:\n") +
               QString::fromLocal8Bit(text).mid(at, 6000);
    if (!killed_ && process_.state() == QProcess::NotRunning &&
        process_.exitStatus() == QProcess::CrashExit)
        return QStringLiteral("the board crashed; its last words:\n") +
               QString::fromLocal8Bit(text.right(3000));
    return QString();
}
