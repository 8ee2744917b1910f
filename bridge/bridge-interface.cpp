// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/bridge-interface.h"

namespace bg {
namespace {

std::string programName(const std::vector<std::string>& arguments)
{
    if (arguments.empty() || arguments.front().empty())
        return "pallo-board";
    return base_name(arguments.front().c_str());
}

} // namespace

BridgeInterface::BridgeInterface(std::vector<std::string> arguments, const std::string& configPath)
    : arguments_(std::move(arguments)), config_(configPath, &logger_),
      options_(programName(arguments_))
{
}

} // namespace bg
