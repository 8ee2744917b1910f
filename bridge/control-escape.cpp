// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/control-escape.h"

#include <cstdio>

namespace bg {

std::string escape_control(std::string_view text)
{
    std::string escaped;
    escaped.reserve(text.size());
    char code[8];
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte == '\n') {
            escaped += "\\n";
        } else if (byte == '\r') {
            escaped += "\\r";
        } else if (byte == '\t') {
            escaped += "\\t";
        } else if (byte < 0x20 || byte == 0x7f) {
            std::snprintf(code, sizeof code, "\\x%02x", byte);
            escaped += code;
        } else if (byte == 0xc2 && i + 1 < text.size() &&
                   static_cast<unsigned char>(text[i + 1]) >= 0x80 &&
                   static_cast<unsigned char>(text[i + 1]) <= 0x9f) {
            std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned char>(text[i + 1]));
            escaped += code;
            ++i;
        } else {
            escaped += static_cast<char>(byte);
        }
    }
    return escaped;
}

} // namespace bg
