// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstdint>
#include <string>

class NamedPipeCallback;

// The board's end of the host pipe. The host creates the pipe; the client opens it and,
// when polled, reads at most one whole message without blocking and hands it to the
// callback. Messages are limited to kMaxMessage bytes: a longer one ends the link.
class NamedPipeClient
{
public:
    static constexpr int kMaxMessage = 1024;
    // Poll() results: 0 means the link is fine; these bases plus a system error code
    // say why it is not.
    static constexpr std::uint32_t kResultFailed = 0xFFFFFFFFu;
    static constexpr std::uint32_t kResultCompleteFailed = 0x10000u;
    static constexpr std::uint32_t kResultReadFailed = 0x20000u;
    static constexpr std::uint32_t kResultWaitFailed = 0x30000u;

    explicit NamedPipeClient(NamedPipeCallback* callback);
    ~NamedPipeClient();
    NamedPipeClient(const NamedPipeClient&) = delete;
    NamedPipeClient& operator=(const NamedPipeClient&) = delete;

    // 1 when the pipe is open, 0 when it could not be opened within waitMs.
    int Open(const std::string& name, int waitMs);
    // 0: nothing read, or one message delivered. Non-zero: the pipe is closed and stays
    // unusable; every later call is non-zero too.
    std::uint32_t Poll(int waitMs);

private:
    void Close();

    NamedPipeCallback* callback_;
#ifdef Q_OS_WIN
    void* event_;
    void* pipe_;
#else
    int socket_ = -1;
#endif
};
