// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/logger.h"

#include <cstdarg>

namespace bg {

Logger::Logger() = default;

void Logger::setThreshold(int level)
{
    std::lock_guard<std::mutex> lock(mutex_);
    threshold_ = level;
}

int Logger::threshold() const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return threshold_;
}

void Logger::setTagThreshold(const std::string& tag, int level)
{
    std::lock_guard<std::mutex> lock(mutex_);
    tagThresholds_[tag] = level;
}

int Logger::threshold(const char* tag) const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return thresholdOf(tag);
}

int Logger::thresholdOf(const char* tag) const
{
    if (tag != nullptr) {
        auto it = tagThresholds_.find(tag);
        if (it != tagThresholds_.end())
            return it->second;
    }
    return threshold_;
}

void Logger::setSink(std::FILE* sink)
{
    std::lock_guard<std::mutex> lock(mutex_);
    sink_ = sink;
}

void Logger::log(int level, const char* tag, const char* format, ...)
{
    std::lock_guard<std::mutex> lock(mutex_);
    if (level < thresholdOf(tag) || format == nullptr)
        return;
    std::FILE* out = sink_ != nullptr ? sink_ : stderr;
    va_list args;
    va_start(args, format);
    std::vfprintf(out, format, args);
    va_end(args);
    std::fflush(out);
}

const char* base_name(const char* path)
{
    if (path == nullptr)
        return "";
    const char* name = path;
    for (const char* p = path; *p != '\0'; ++p) {
        if (*p == '/' || *p == '\\')
            name = p + 1;
    }
    return name;
}

} // namespace bg
