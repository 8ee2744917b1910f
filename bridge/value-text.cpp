// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/value-text.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace bg {

bool parse_int64(const char* text, std::int64_t* out)
{
    if (text == nullptr || *text == '\0')
        return false;
    char* end = nullptr;
    errno = 0;
    long long n = std::strtoll(text, &end, 10);
    if (errno != 0 || *end != '\0')
        return false;
    *out = n;
    return true;
}

bool parse_double(const char* text, double* out)
{
    if (text == nullptr || *text == '\0')
        return false;
    char* end = nullptr;
    errno = 0;
    double d = std::strtod(text, &end);
    if (errno == ERANGE || *end != '\0')
        return false;
    *out = d;
    return true;
}

std::string format_double(double value)
{
    char buffer[64];
    for (int precision = 6; precision <= 17; ++precision) {
        std::snprintf(buffer, sizeof buffer, "%.*g", precision, value);
        if (std::strtod(buffer, nullptr) == value)
            break;
    }
    return buffer;
}

std::string length_prefixed(const char* name, const std::string& text)
{
    return std::string("[") + name + ":" + std::to_string(text.size()) + "]" + text;
}

bool take_length_prefixed(const char* typeText, const char* prefix, const char* body,
                          std::string* out)
{
    const std::size_t prefixLength = std::strlen(prefix);
    if (std::strncmp(typeText, prefix, prefixLength) != 0)
        return false;
    std::int64_t length = 0;
    if (!parse_int64(typeText + prefixLength, &length) || length < 0)
        return false;
    if (static_cast<std::uint64_t>(length) > std::strlen(body))
        return false;
    out->assign(body, static_cast<std::size_t>(length));
    return true;
}

} // namespace bg
