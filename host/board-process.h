// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

// The board as a child process of the host.
class BoardProcess
{
public:
    BoardProcess() = default;
    ~BoardProcess();
    BoardProcess(const BoardProcess&) = delete;
    BoardProcess& operator=(const BoardProcess&) = delete;

    // Sets an environment variable for the board, over the one the host has.
    void setVariable(const std::string& name, const std::string& value);
    // The board's standard output and error each go to a pipe of their own, whose reading
    // ends takeOutput() hands over.
    bool start(const std::string& program, const std::vector<std::string>& arguments,
               std::string* error);
    // The reading end of the board's standard output (or error), to be closed by the
    // caller; -1 once taken.
    int takeOutput(int stream);
    bool running();
    // Waits up to timeoutMs for the board to end, then terminates it. Returns its exit
    // code, or 128 + the signal that ended it.
    int wait(int timeoutMs);

private:
    bool reap(int flags);
    void closeOutputs();

    std::vector<std::string> variables_;
    int outputs_[3] = {-1, -1, -1};
    pid_t pid_ = -1;
    int exitCode_ = -1;
};

// QT_LOGGING_RULES for a board whose debug lines are on: the user's own rules, if any,
// with the board's categories switched on after them.
std::string verboseLoggingRules(const char* existing);

// Finds pallo-board: the given path, else the file beside this program, else on PATH.
std::string locateBoard(const std::string& given);
