// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <map>
#include <mutex>
#include <string>

namespace bg {

// printf-style lines to standard error. The caller writes the whole line, prefix
// included; the logger drops lines below the threshold of their tag (or the general
// one) and keeps lines whole when several threads write at once.
class Logger
{
public:
    enum Level
    {
        kDebug = 0,
        kInfo = 1,
        kError = 2
    };

    Logger();

    void setThreshold(int level);
    int threshold() const;
    void setTagThreshold(const std::string& tag, int level);
    int threshold(const char* tag) const;
    // Where lines go; null restores standard error.
    void setSink(std::FILE* sink);

    void log(int level, const char* tag, const char* format, ...)
#if defined(__MINGW32__)
        // MinGW's plain printf check knows only Microsoft's runtime, which the GNU
        // formatting the C++ runtime selects replaces.
        __attribute__((format(__MINGW_PRINTF_FORMAT, 4, 5)))
#elif defined(__GNUC__)
        __attribute__((format(printf, 4, 5)))
#endif
        ;

private:
    int thresholdOf(const char* tag) const;

    mutable std::mutex mutex_;
    int threshold_ = kDebug;
    std::map<std::string, int> tagThresholds_;
    std::FILE* sink_ = nullptr;
};

// The part of a path behind its last '/' or '\', so that log lines name a source file
// the same way whatever machine built it.
const char* base_name(const char* path);

} // namespace bg
