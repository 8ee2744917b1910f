// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// Loads arbitrary bytes as the bridge's JSON store, reads from it and writes to it: a bad
// store must be read as empty and kept aside, never crash or grow without bound.
#include "bridge/config-store.h"
#include "bridge/logger.h"

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

std::string storeFolder()
{
    char pattern[] = "/tmp/pallo-fuzz-store-XXXXXX";
    if (::mkdtemp(pattern) == nullptr)
        std::abort();
    return pattern;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string folder = storeFolder();
    static const std::string path = folder + "/bridge.json";
    static std::FILE* quiet = std::fopen("/dev/null", "w");
    static bg::Logger logger;
    logger.setSink(quiet);

    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
        std::abort();
    std::fwrite(data, 1, size, file);
    std::fclose(file);
    ::unlink((path + ".bad").c_str());

    bg::ConfigStore store(path, &logger);
    const bool had = store.has("key");
    (void)store.get("key", bg::Value("fallback"));
    (void)store.get_or_default("other", bg::Value(3));
    if (!store.set("key", bg::Value("value")))
        std::abort();
    if (store.get("key").toStdString() != "value")
        std::abort();
    if (!had && store.remove("missing"))
        std::abort();
    return 0;
}
