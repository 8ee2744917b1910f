// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/named-pipe-client.h"

#include "host/named-pipe-callback.h"
#include "logging/log-categories.h"

#include <windows.h>

#include <cstdio>

NamedPipeClient::NamedPipeClient(NamedPipeCallback* callback)
    : callback_(callback), event_(CreateEventW(nullptr, FALSE, FALSE, nullptr)),
      pipe_(INVALID_HANDLE_VALUE)
{
}

NamedPipeClient::~NamedPipeClient()
{
    Close();
    if (event_ != nullptr)
        CloseHandle(event_);
}

void NamedPipeClient::Close()
{
    if (pipe_ != INVALID_HANDLE_VALUE) {
        CloseHandle(pipe_);
        pipe_ = INVALID_HANDLE_VALUE;
    }
}

int NamedPipeClient::Open(const std::string& name, int waitMs)
{
    const std::string path = "\\\\.\\pipe\\" + name;
    Close();
    if (!WaitNamedPipeA(path.c_str(), static_cast<DWORD>(waitMs))) {
        std::fprintf(stderr, "Could not open pipe: %d ms wait timed out.\n", waitMs);
        return 0;
    }
    pipe_ = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0,
                        nullptr);
    if (pipe_ == INVALID_HANDLE_VALUE)
        return 0;
    DWORD mode = PIPE_READMODE_MESSAGE | PIPE_NOWAIT;
    return SetNamedPipeHandleState(pipe_, &mode, nullptr, nullptr) ? 1 : 0;
}

std::uint32_t NamedPipeClient::Poll(int waitMs)
{
    if (pipe_ == INVALID_HANDLE_VALUE)
        return kResultFailed;

    OVERLAPPED overlapped{};
    overlapped.hEvent = event_;
    char buffer[kMaxMessage];
    DWORD count = 0;
    if (ReadFile(pipe_, buffer, sizeof buffer, nullptr, &overlapped)) {
        if (!GetOverlappedResult(pipe_, &overlapped, &count, TRUE)) {
            const DWORD error = GetLastError();
            Close();
            return error + kResultCompleteFailed;
        }
    } else {
        const DWORD error = GetLastError();
        if (error != ERROR_IO_PENDING && error != ERROR_NO_DATA) {
            Close();
            return error + kResultReadFailed;
        }
        if (WaitForSingleObject(event_, static_cast<DWORD>(waitMs)) != WAIT_OBJECT_0) {
            CancelIo(pipe_);
            return 0;
        }
        if (!GetOverlappedResult(pipe_, &overlapped, &count, TRUE)) {
            const DWORD waitError = GetLastError();
            Close();
            return waitError + kResultWaitFailed;
        }
    }
    if (callback_ != nullptr)
        callback_->OnPipeMessage(buffer, static_cast<std::int32_t>(count));
    // The pipe client writes its line straight to standard error, as the host's own
    // tools expect, but only when the host category's debug output is switched on.
    if (lcHost().isDebugEnabled())
        std::fprintf(stderr, "Client Read: %d\n", static_cast<int>(count));
    return 0;
}
