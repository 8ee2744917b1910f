// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/named-pipe-client.h"

#include "host/named-pipe-callback.h"
#include "host/pipe-path.h"
#include "logging/log-categories.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <thread>

namespace {

void reportOpenFailure(int waitMs)
{
    std::fprintf(stderr, "Could not open pipe: %d ms wait timed out.\n", waitMs);
}

// The host listens before it starts the board; a server of another user could read
// what it is not meant to, so it counts as no server at all.
bool servedBySameUser(int fd)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    if (getsockopt(fd, SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0)
        return false;
    return peer.uid == getuid();
}

bool peerHungUp(int fd)
{
    pollfd watched{fd, POLLRDHUP, 0};
    return ::poll(&watched, 1, 0) == 1 && (watched.revents & (POLLHUP | POLLRDHUP)) != 0;
}

} // namespace

NamedPipeClient::NamedPipeClient(NamedPipeCallback* callback) : callback_(callback) {}

NamedPipeClient::~NamedPipeClient()
{
    Close();
}

void NamedPipeClient::Close()
{
    if (socket_ >= 0) {
        ::close(socket_);
        socket_ = -1;
    }
}

int NamedPipeClient::Open(const std::string& name, int waitMs)
{
    Close();
    const std::string path = pipePathForName(name);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        reportOpenFailure(waitMs);
        return 0;
    }
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);

    using Clock = std::chrono::steady_clock;
    const Clock::time_point deadline =
        Clock::now() + std::chrono::milliseconds(std::max(waitMs, 0));
    for (;;) {
        const int fd = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        if (fd < 0) {
            reportOpenFailure(waitMs);
            return 0;
        }
        if (::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
            if (!servedBySameUser(fd)) {
                ::close(fd);
                reportOpenFailure(waitMs);
                return 0;
            }
            socket_ = fd;
            return 1;
        }
        const int error = errno;
        ::close(fd);
        if (error == EINTR)
            continue;
        // A full backlog (EAGAIN) or a socket nobody listens on yet (ECONNREFUSED) may
        // clear up; anything else, a missing path above all, will not.
        const bool busy = error == EAGAIN || error == EWOULDBLOCK || error == ECONNREFUSED;
        const Clock::time_point now = Clock::now();
        if (!busy || now >= deadline) {
            reportOpenFailure(waitMs);
            return 0;
        }
        std::this_thread::sleep_for(
            std::min<Clock::duration>(std::chrono::milliseconds(5), deadline - now));
    }
}

std::uint32_t NamedPipeClient::Poll(int waitMs)
{
    if (socket_ < 0)
        return kResultFailed;
    if (waitMs > 0) {
        pollfd watched{socket_, POLLIN, 0};
        ::poll(&watched, 1, waitMs);
    }

    char buffer[kMaxMessage];
    iovec part{buffer, sizeof buffer};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    ssize_t count = 0;
    do {
        count = ::recvmsg(socket_, &message, MSG_DONTWAIT);
    } while (count < 0 && errno == EINTR);

    if (count < 0) {
        const int error = errno;
        if (error == EAGAIN || error == EWOULDBLOCK)
            return 0;
        Close();
        return kResultReadFailed + static_cast<std::uint32_t>(error);
    }
    // On a SOCK_SEQPACKET socket a read of zero bytes is either an empty datagram or the
    // end of the stream; only a hung-up peer tells them apart. An empty datagram carries
    // no command and is dropped.
    if (count == 0) {
        if (!peerHungUp(socket_))
            return 0;
        Close();
        return kResultReadFailed + EPIPE;
    }
    if ((message.msg_flags & MSG_TRUNC) != 0) {
        Close();
        return kResultReadFailed + EMSGSIZE;
    }
    if (callback_ != nullptr)
        callback_->OnPipeMessage(buffer, static_cast<std::int32_t>(count));
    // The pipe client writes its line straight to standard error, as the host's own
    // tools expect, but only when the host category's debug output is switched on.
    if (lcHost().isDebugEnabled())
        std::fprintf(stderr, "Client Read: %d\n", static_cast<int>(count));
    return 0;
}
