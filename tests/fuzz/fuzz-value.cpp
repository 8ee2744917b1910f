// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// Reads arbitrary text as a bridge value, and checks that what it writes reads back the
// same.
#include "bridge/value.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // An exactly sized copy, so that reading one byte past the end is caught.
    std::unique_ptr<char[]> text(new char[size + 1]);
    std::memcpy(text.get(), data, size);
    text[size] = '\0';
    bg::Value value;
    if (!value.read(text.get()))
        return 0;
    const std::string written = value.write();
    bg::Value back;
    if (!back.read(written.c_str()) || back.type() != value.type() || back.write() != written)
        std::abort();
    (void)back.toStdString();
    (void)back.toInt();
    (void)back.toDouble();
    return 0;
}
