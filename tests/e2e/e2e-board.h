// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/host/seqpacket-server.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QHash>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

// A real pallo-board process for the end-to-end tests, with the test playing the host.
// Every E2eBoard runs its own copy of the program from a folder of its own, with its
// own settings and pipe, so tests running side by side never meet as one another's
// first instance. Boards made with sibling() share the copy, and so meet.
// A board that crashes without the test killing it, or writes a sanitizer report, fails
// the test function that made it, whatever that function checks itself.
class E2eBoard
{
public:
    E2eBoard();
    ~E2eBoard();
    E2eBoard(const E2eBoard&) = delete;
    E2eBoard& operator=(const E2eBoard&) = delete;

    // Another board started from the same copy and with the same settings, on a pipe of
    // its own.
    std::unique_ptr<E2eBoard> sibling() const;

    bool isValid() const { return !program_.isEmpty(); }
    QString folder() const { return dir_->path(); }
    QString pipePath() const;
    QString program() const { return program_; }
    // Boards run as a user starts them, quiet; this switches their debug lines on.
    void showDebugLines() { debugLines_ = true; }
    // Sets a variable of the board's environment (siblings made later share it); a
    // null value removes it.
    void setEnvironment(const QString& name, const QString& value) { extraEnv_[name] = value; }

    // Listens on the pipe and starts the board on it with "--name PIPE" and the rest;
    // true once the board has connected.
    bool startWithHost(const QStringList& rest = {QStringLiteral("--language"),
                                                  QStringLiteral("english")});
    // Starts the board with these arguments and nothing listening.
    bool startBare(const QStringList& arguments);

    bool send(const QByteArray& message);
    void closePipe();
    // The host's listening socket, bound but not yet listening, so that connecting is
    // refused; or not there at all.
    bool bindPipeOnly();

    qint64 pid() const;
    bool running() const;
    // Waits up to timeoutMs for the board to end; false if it is still running.
    bool waitForExit(int timeoutMs);
    // The exit code once ended (255 for -1).
    int exitCode() const;
    // Milliseconds between the start and the end of the process.
    qint64 lifetimeMs() const { return lifetime_; }
    QByteArray errors();
    void killHard();
    // Why the run was not clean (a crash the test did not cause, a sanitizer report on
    // standard error), or empty.
    QString trouble();

private:
    E2eBoard(std::shared_ptr<QTemporaryDir> dir, QString program, QString pipeFile);
    QProcessEnvironment environment() const;
    bool launch(const QStringList& arguments);

    std::shared_ptr<QTemporaryDir> dir_;
    QString program_;
    QString pipeFile_;
    std::unique_ptr<SeqpacketServer> server_;
    QProcess process_;
    QElapsedTimer clock_;
    qint64 lifetime_ = -1;
    QByteArray errors_;
    bool debugLines_ = false;
    bool killed_ = false;
    QHash<QString, QString> extraEnv_;
};
