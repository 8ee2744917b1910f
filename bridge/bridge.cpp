// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/bridge.h"

#include "bridge/config-path.h"

#include <cstdlib>
#include <memory>
#include <mutex>

namespace bg {
namespace {

std::mutex bridgeMutex;
std::unique_ptr<BridgeInterface> bridgeInstance;

} // namespace

bool InitBridge(int argc, char** argv)
{
    std::lock_guard<std::mutex> lock(bridgeMutex);
    if (bridgeInstance)
        return true;
    std::vector<std::string> arguments;
    for (int i = 0; i < argc && argv != nullptr; ++i)
        arguments.emplace_back(argv[i] != nullptr ? argv[i] : "");
    const std::string path =
        default_config_path([](const char* name) { return std::getenv(name); });
    bridgeInstance = std::make_unique<BridgeInterface>(std::move(arguments), path);
    return true;
}

void UninitBridge()
{
    std::lock_guard<std::mutex> lock(bridgeMutex);
    bridgeInstance.reset();
}

BridgeInterface* GetBridge()
{
    std::lock_guard<std::mutex> lock(bridgeMutex);
    return bridgeInstance.get();
}

} // namespace bg
