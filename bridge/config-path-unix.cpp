// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/config-path.h"

#include <pwd.h>
#include <unistd.h>

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
    // Relative XDG_CONFIG_HOME values are invalid and must be ignored.
    const char* configHome = env("XDG_CONFIG_HOME");
    if (isSet(configHome) && configHome[0] == '/')
        return std::string(configHome) + "/Pallo/bridge.json";
    const char* home = env("HOME");
    if (isSet(home))
        return std::string(home) + "/.config/Pallo/bridge.json";
    const passwd* user = getpwuid(getuid());
    if (user != nullptr && isSet(user->pw_dir))
        return std::string(user->pw_dir) + "/.config/Pallo/bridge.json";
    return "/tmp/Pallo/bridge.json";
}

} // namespace bg
