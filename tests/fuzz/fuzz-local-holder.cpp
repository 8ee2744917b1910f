// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// Hands arbitrary bytes to LocalHolder as host messages, with the bridge up so that
// unsupported messages go through the logger.
#include "bridge/bridge.h"
#include "host/local-holder.h"

#include <QCoreApplication>

#include <cstdint>
#include <cstdio>
#include <limits>

namespace {

QCoreApplication* application = nullptr;
LocalHolder* holder = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    application = new QCoreApplication(*argc, *argv);
    bg::InitBridge(*argc, *argv);
    bg::GetBridge()->logger().setSink(std::fopen("/dev/null", "w"));
    holder = new LocalHolder(application);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()))
        return 0;
    holder->OnPipeMessage(reinterpret_cast<const char*>(data), static_cast<std::int32_t>(size));
    return 0;
}
