// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/clock.h"
#include "bridge/config-store.h"
#include "bridge/logger.h"
#include "bridge/options.h"

#include <string>
#include <vector>

namespace bg {

// What the bridge offers the board: the configuration shared with the host, the
// command line, the clock and the logger. One exists between InitBridge and
// UninitBridge; GetBridge() hands it out.
class BridgeInterface
{
public:
    BridgeInterface(std::vector<std::string> arguments, const std::string& configPath);

    ConfigStore& config() { return config_; }
    Options& options() { return options_; }
    const Clock& clock() const { return clock_; }
    Logger& logger() { return logger_; }
    const std::vector<std::string>& arguments() const { return arguments_; }

private:
    std::vector<std::string> arguments_;
    Logger logger_;
    ConfigStore config_;
    Options options_;
    Clock clock_;
};

} // namespace bg
