// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

// Where the host's socket named `name` lives: the name itself when it is an absolute
// path, else in runtimeDir when that is set and not empty, else in /tmp.
std::string pipePathForName(const std::string& name, const char* runtimeDir);
// The same, with runtimeDir taken from XDG_RUNTIME_DIR.
std::string pipePathForName(const std::string& name);
