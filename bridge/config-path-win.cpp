// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/config-path.h"

namespace bg {
namespace {

bool isSet(const char* value)
{
    return value != nullptr && *value != '\0';
}

} // namespace

std::string default_config_path(const EnvReader& env)
{
    const char* explicitPath = env("PALLO_BRIDGE_CONFIG");
    if (isSet(explicitPath))
        return explicitPath;
    const char* appData = env("APPDATA");
    if (isSet(appData))
        return std::string(appData) + "\\Pallo\\bridge.json";
    const char* profile = env("USERPROFILE");
    if (isSet(profile))
        return std::string(profile) + "\\AppData\\Roaming\\Pallo\\bridge.json";
    return "Pallo\\bridge.json";
}

} // namespace bg
