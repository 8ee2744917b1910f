// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <thread>
#include <vector>

// Cuts a byte stream into lines, whatever sizes the pieces come in.
class LineSplitter
{
public:
    // The lines the piece completes, without their '\n'.
    std::vector<std::string> feed(const char* data, std::size_t size);
    // What is left after the last '\n'; empties it.
    std::string takeRest();

private:
    std::string pending_;
};

// Reads what the board writes to its standard output and error from a descriptor on a
// thread of its own and hands it on line by line, so that a half-written line never
// lands in the middle of the host's prompt.
class BoardOutput
{
public:
    using LineHandler = std::function<void(const std::string&)>;

    BoardOutput() = default;
    ~BoardOutput();
    BoardOutput(const BoardOutput&) = delete;
    BoardOutput& operator=(const BoardOutput&) = delete;

    // Takes the descriptor over; onLine runs on the reading thread.
    void start(int fd, LineHandler onLine);
    // Waits until the writing end is closed and the last line handed on.
    void finish();

private:
    std::thread reader_;
};
