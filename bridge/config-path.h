// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace bg {

// Looks up an environment variable; null when it is not set.
using EnvReader = std::function<const char*(const char*)>;

// Where the configuration shared with the host lives: PALLO_BRIDGE_CONFIG when set,
// else "Pallo/bridge.json" in the user's configuration folder.
std::string default_config_path(const EnvReader& env);

} // namespace bg
