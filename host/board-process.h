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

    bool start(const std::string& program, const std::vector<std::string>& arguments,
               std::string* error);
    bool running();
    // Waits up to timeoutMs for the board to end, then terminates it. Returns its exit
    // code, or 128 + the signal that ended it.
    int wait(int timeoutMs);

private:
    bool reap(int flags);

    pid_t pid_ = -1;
    int exitCode_ = -1;
};

// Finds pallo-board: the given path, else the file beside this program, else on PATH.
std::string locateBoard(const std::string& given);
