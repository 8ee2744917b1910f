// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace bg {

// The command line without the GUI toolkit's own options ("-platform xcb", "-style fusion",
// "-reverse", "--display :1", "-style=fusion", ...) and their values, so that an option
// parser that reads "-platform" as a bundle of short options never sees them. The toolkit
// reads them from the untouched command line. A double-dash argument naming one of
// ownLongNames (such as "--name") stays: the program's own options win over the toolkit's
// double-dash forms. The first argument, the program, always stays.
std::vector<std::string> withoutToolkitOptions(const std::vector<std::string>& arguments,
                                               const std::vector<std::string>& ownLongNames);

} // namespace bg
