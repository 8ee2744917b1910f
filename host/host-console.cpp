// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/host-console.h"

namespace {

constexpr const char* kPrompt = "pallo-host> ";
// Back to the start of the line, then clear it.
constexpr const char* kClearLine = "\r\033[K";

} // namespace

HostConsole::HostConsole(std::ostream& out, std::ostream& err, bool interactive)
    : out_(out), err_(err), interactive_(interactive)
{
}

void HostConsole::prompt()
{
    if (!interactive_)
        return;
    std::lock_guard<std::mutex> lock(mutex_);
    out_ << kPrompt << std::flush;
    promptShown_ = true;
}

void HostConsole::answered()
{
    std::lock_guard<std::mutex> lock(mutex_);
    promptShown_ = false;
}

void HostConsole::boardLine(const std::string& line)
{
    std::lock_guard<std::mutex> lock(mutex_);
    if (promptShown_)
        out_ << kClearLine << std::flush;
    err_ << "pallo-board: " << line << "\n" << std::flush;
    if (promptShown_)
        out_ << kPrompt << std::flush;
}
