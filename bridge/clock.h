// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>
#include <string>

namespace bg {

// Local time as text, with a strftime pattern ("%Y-%m-%d-%H-%M-%S").
class Clock
{
public:
    std::string format(const std::string& pattern) const;
    std::string format(const std::string& pattern, std::time_t when) const;
};

} // namespace bg
