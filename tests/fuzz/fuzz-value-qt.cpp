// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// Reads arbitrary text as a core Qt value, and checks that text values survive being
// written and read again.
#include "host/value-qt.h"

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
    bg::ValueQt value;
    if (!value.read(text.get()))
        return 0;
    const std::string written = value.write();
    bg::ValueQt back;
    back.read(written.c_str());
    if (value.type() == bg::ValueQt::kQString &&
        (back.type() != value.type() || back.text() != value.text()))
        std::abort();
    (void)back.toQString();
    (void)back.toRectF();
    (void)back.toRect();
    (void)back.toPointF();
    (void)back.toPoint();
    (void)back.toSizeF();
    (void)back.toSize();
    return 0;
}
