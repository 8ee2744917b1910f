// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/value-text-reader.h"

#include <cstdio>
#include <cstring>

namespace bg {

bool readTypedText(Value& value, const char* text, BodyCheck checkBody)
{
    value.clear();
    if (text == nullptr || strnlen(text, 4) < 4)
        return false;
    if (std::strncmp(text, "<variant>", 9) == 0) {
        value.fast_set(text + 9);
        return true;
    }
    if (std::strchr(text, ']') == nullptr)
        return false;
    if (std::strncmp(text, "<null>", 6) == 0)
        return false;

    char typeText[256] = "";
    std::sscanf(text + 1, "%255[^]]", typeText);
    std::fflush(stderr);

    const char* close = std::strchr(text + 1, ']');
    if (close != nullptr)
        checkBody(typeText, close + 1);
    if (value.type() == Value::kNoType)
        return value.Value::read(text);
    return true;
}

} // namespace bg
