// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/clock.h"

#include <mutex>
#include <vector>

namespace bg {
namespace {

// std::localtime hands out one shared buffer; the lock makes the copy safe.
std::mutex localTimeMutex;

} // namespace

std::string Clock::format(const std::string& pattern) const
{
    return format(pattern, std::time(nullptr));
}

std::string Clock::format(const std::string& pattern, std::time_t when) const
{
    if (pattern.empty())
        return std::string();
    std::tm parts{};
    {
        std::lock_guard<std::mutex> lock(localTimeMutex);
        const std::tm* local = std::localtime(&when);
        if (local == nullptr)
            return std::string();
        parts = *local;
    }
    // strftime returns 0 both for a buffer too small and for an empty result, so the
    // buffer grows a few times before giving up.
    for (std::size_t size = 64; size <= 65536; size *= 4) {
        std::vector<char> buffer(size);
        const std::size_t n = std::strftime(buffer.data(), buffer.size(), pattern.c_str(), &parts);
        if (n > 0)
            return std::string(buffer.data(), n);
    }
    return std::string();
}

} // namespace bg
