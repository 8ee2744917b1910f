// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// Reads arbitrary text as a colour or font value, and checks that a colour read back
// from its own text keeps its red, green and blue.
#include "host/value-qt-g.h"

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
    bg::ValueQtG value;
    if (!value.read(text.get()))
        return 0;
    const std::string written = value.write();
    bg::ValueQtG back;
    back.read(written.c_str());
    if (value.type() == bg::ValueQtG::kColor &&
        (back.type() != value.type() || (back.word() & 0xffffffu) != (value.word() & 0xffffffu)))
        std::abort();
    if (value.type() == bg::ValueQtG::kFont && back.fontDescription() != value.fontDescription())
        std::abort();
    return 0;
}
