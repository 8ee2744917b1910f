// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <vector>

// A host end of the pipe for tests: a real SOCK_SEQPACKET socket at a path.
class SeqpacketServer
{
public:
    explicit SeqpacketServer(const QString& path) : path_(path.toUtf8()) {}

    ~SeqpacketServer()
    {
        closeConnection();
        for (int fd : waiting_)
            ::close(fd);
        if (listener_ >= 0)
            ::close(listener_);
        ::unlink(path_.constData());
    }

    // Binds the path; listen() may follow later, so that the socket exists but refuses.
    bool bind()
    {
        listener_ = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
        sockaddr_un address = addressOf();
        return listener_ >= 0 &&
               ::bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    }

    bool listen(int backlog = 4) { return ::listen(listener_, backlog) == 0; }

    bool start(int backlog = 4) { return bind() && listen(backlog); }

    bool accept(int timeoutMs = 2000)
    {
        pollfd watched{listener_, POLLIN, 0};
        if (::poll(&watched, 1, timeoutMs) != 1)
            return false;
        connection_ = ::accept(listener_, nullptr, nullptr);
        return connection_ >= 0;
    }

    bool send(const QByteArray& message)
    {
        return ::send(connection_, message.constData(), static_cast<size_t>(message.size()),
                      MSG_NOSIGNAL) == message.size();
    }

    void closeConnection()
    {
        if (connection_ >= 0)
            ::close(connection_);
        connection_ = -1;
    }

    // Connects clients that nobody accepts until the backlog is full, so that the next
    // connection attempt is told to try again.
    bool fillBacklog()
    {
        sockaddr_un address = addressOf();
        for (int i = 0; i < 64; ++i) {
            const int fd = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
            if (::connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
                const bool full = errno == EAGAIN;
                ::close(fd);
                return full;
            }
            waiting_.push_back(fd);
        }
        return false;
    }

    // Accepts and drops the connections fillBacklog() made, which frees the backlog.
    void releaseBacklog()
    {
        for (std::size_t i = 0; i < waiting_.size(); ++i) {
            const int fd = ::accept(listener_, nullptr, nullptr);
            if (fd >= 0)
                ::close(fd);
        }
    }

    int listener() const { return listener_; }

private:
    sockaddr_un addressOf() const
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path_.constData(), sizeof address.sun_path - 1);
        return address;
    }

    QByteArray path_;
    int listener_ = -1;
    int connection_ = -1;
    std::vector<int> waiting_;
};
