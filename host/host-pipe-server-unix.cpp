// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/host-pipe-server.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>

namespace {

std::string systemError(const std::string& what)
{
    return what + ": " + std::strerror(errno);
}

bool addressFor(const std::string& path, sockaddr_un* address)
{
    *address = sockaddr_un{};
    address->sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address->sun_path)
        return false;
    std::memcpy(address->sun_path, path.c_str(), path.size() + 1);
    return true;
}

// True when something at path is a socket nobody listens on any more.
bool isStaleSocket(const sockaddr_un& address)
{
    struct stat info
    {
    };
    if (::stat(address.sun_path, &info) != 0 || !S_ISSOCK(info.st_mode))
        return false;
    const int probe = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (probe < 0)
        return false;
    const bool refused =
        ::connect(probe, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 &&
        errno == ECONNREFUSED;
    ::close(probe);
    return refused;
}

} // namespace

HostPipeServer::~HostPipeServer()
{
    close();
}

bool HostPipeServer::listen(const std::string& path, std::string* error)
{
    close();
    sockaddr_un address;
    if (!addressFor(path, &address)) {
        *error = "pipe path is empty or too long: " + path;
        return false;
    }
    if (isStaleSocket(address))
        ::unlink(path.c_str());
    listener_ = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    if (listener_ < 0) {
        *error = systemError("socket");
        return false;
    }
    if (::bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        *error = systemError("cannot create " + path);
        ::close(listener_);
        listener_ = -1;
        return false;
    }
    path_ = path;
    if (::listen(listener_, 1) != 0) {
        *error = systemError("listen on " + path);
        close();
        return false;
    }
    return true;
}

bool HostPipeServer::accept(int timeoutMs, const std::function<bool()>& keepWaiting,
                            std::string* error)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(timeoutMs);
    while (listener_ >= 0) {
        pollfd watched{listener_, POLLIN, 0};
        const int ready = ::poll(&watched, 1, 50);
        if (ready < 0 && errno != EINTR) {
            *error = systemError("poll");
            return false;
        }
        if (ready > 0) {
            board_ = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
            if (board_ >= 0)
                return true;
            if (errno != EINTR && errno != EAGAIN && errno != ECONNABORTED) {
                *error = systemError("accept");
                return false;
            }
        }
        if (!keepWaiting()) {
            *error = "the board ended before it connected";
            return false;
        }
        if (Clock::now() >= deadline) {
            *error = "the board did not connect within " + std::to_string(timeoutMs) + " ms";
            return false;
        }
    }
    *error = "the pipe is not listening";
    return false;
}

bool HostPipeServer::send(const std::string& message, std::string* error)
{
    if (board_ < 0) {
        *error = "the board is not connected";
        return false;
    }
    ssize_t sent = 0;
    do {
        sent = ::send(board_, message.data(), message.size(), MSG_NOSIGNAL);
    } while (sent < 0 && errno == EINTR);
    if (sent < 0) {
        *error = errno == EPIPE || errno == ECONNRESET ? std::string("the board has left")
                                                       : systemError("send");
        return false;
    }
    return true;
}

void HostPipeServer::close()
{
    if (board_ >= 0) {
        ::close(board_);
        board_ = -1;
    }
    if (listener_ >= 0) {
        ::close(listener_);
        listener_ = -1;
    }
    if (!path_.empty()) {
        ::unlink(path_.c_str());
        path_.clear();
    }
}
