// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace bg {

// Copies text meant for one log line so that it stays one harmless line: C0 controls,
// DEL and the UTF-8 encoded C1 controls become visible escapes (\n, \r, \t, \xHH,
// \u00HH); everything else, other UTF-8 text included, is copied as it is.
std::string escape_control(std::string_view text);

} // namespace bg
