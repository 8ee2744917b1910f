// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/pipe-path.h"

#include <cstdlib>

std::string pipePathForName(const std::string& name, const char* runtimeDir)
{
    if (!name.empty() && name[0] == '/')
        return name;
    if (runtimeDir != nullptr && *runtimeDir != '\0')
        return std::string(runtimeDir) + "/" + name;
    return "/tmp/" + name;
}

std::string pipePathForName(const std::string& name)
{
    return pipePathForName(name, std::getenv("XDG_RUNTIME_DIR"));
}
