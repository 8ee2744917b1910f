// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

// Receives each message the pipe client reads: the bytes and their count.
class NamedPipeCallback
{
public:
    virtual ~NamedPipeCallback() = default;
    virtual void OnPipeMessage(const char* data, std::int32_t length) = 0;
};
