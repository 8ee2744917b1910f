// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace bg {

// Whole-text conversions: leading or trailing junk, an empty text or an out-of-range
// number fail.
bool parse_int64(const char* text, std::int64_t* out);
bool parse_double(const char* text, double* out);
// Shortest text that reads back as the same double.
std::string format_double(double value);

// "[name:LEN]text", LEN being the byte length of text.
std::string length_prefixed(const char* name, const std::string& text);
// Reads LEN from a bracket text that starts with prefix ("str:12") and takes exactly
// LEN bytes of body. A missing, negative or too large LEN fails: the body is never read
// past its end.
bool take_length_prefixed(const char* typeText, const char* prefix, const char* body,
                          std::string* out);

} // namespace bg
