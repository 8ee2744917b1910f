// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/toolkit-arguments.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace bg {

namespace {

struct ToolkitOption
{
    const char* name;
    bool takesValue;
};

// The options Qt's application classes and its X11 platform plugin read from the command
// line, each accepted with one or two dashes.
constexpr ToolkitOption toolkitOptions[] = {
    {"platform", true},
    {"platformpluginpath", true},
    {"platformtheme", true},
    {"plugin", true},
    {"qwindowgeometry", true},
    {"qwindowicon", true},
    {"qwindowtitle", true},
    {"session", true},
    {"display", true},
    {"geometry", true},
    {"title", true},
    {"icon", true},
    {"name", true},
    {"visual", true},
    {"style", true},
    {"stylesheet", true},
    {"qmljsdebugger", true},
    {"reverse", false},
    {"widgetcount", false},
    {"nograb", false},
    {"dograb", false},
    {"sync", false},
    {"testability", false},
};

const ToolkitOption* findToolkitOption(const std::string& name)
{
    auto it = std::find_if(std::begin(toolkitOptions), std::end(toolkitOptions),
                           [&name](const ToolkitOption& o) { return name == o.name; });
    return it == std::end(toolkitOptions) ? nullptr : it;
}

} // namespace

std::vector<std::string> withoutToolkitOptions(const std::vector<std::string>& arguments,
                                               const std::vector<std::string>& ownLongNames)
{
    std::vector<std::string> kept;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (i == 0 || argument.size() < 2 || argument[0] != '-') {
            kept.push_back(argument);
            continue;
        }
        if (argument == "--") {
            kept.insert(kept.end(), arguments.begin() + static_cast<std::ptrdiff_t>(i),
                        arguments.end());
            break;
        }
        const bool doubleDash = argument[1] == '-';
        const std::string body = argument.substr(doubleDash ? 2 : 1);
        const std::size_t equals = body.find('=');
        const std::string name = body.substr(0, equals);
        const bool own = doubleDash && std::find(ownLongNames.begin(), ownLongNames.end(), name) !=
                                           ownLongNames.end();
        const ToolkitOption* option = own ? nullptr : findToolkitOption(name);
        if (option == nullptr) {
            kept.push_back(argument);
            continue;
        }
        if (option->takesValue && equals == std::string::npos && i + 1 < arguments.size())
            ++i;
    }
    return kept;
}

} // namespace bg
