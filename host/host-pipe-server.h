// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

// The host's end of the pipe: a SOCK_SEQPACKET socket that keeps each message whole.
// It listens before the board starts, takes the board's one connection and sends it
// one message per send().
class HostPipeServer
{
public:
    HostPipeServer() = default;
    ~HostPipeServer();
    HostPipeServer(const HostPipeServer&) = delete;
    HostPipeServer& operator=(const HostPipeServer&) = delete;

    // A stale socket left at path by a host that died is replaced; one that still
    // answers is not.
    bool listen(const std::string& path, std::string* error);
    // Waits up to timeoutMs for the board, asking keepWaiting() between short waits so
    // that a board that died before connecting ends the wait at once.
    bool accept(int timeoutMs, const std::function<bool()>& keepWaiting, std::string* error);
    bool send(const std::string& message, std::string* error);
    // Closes the connection, which tells the board to quit, and removes the socket.
    void close();

    const std::string& path() const { return path_; }

private:
    std::string path_;
    int listener_ = -1;
    int board_ = -1;
};
