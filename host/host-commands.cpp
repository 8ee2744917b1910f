// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/host-commands.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>

namespace {

std::string trimmed(const std::string& text)
{
    const char* blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos)
        return std::string();
    const std::size_t last = text.find_last_not_of(blanks);
    return text.substr(first, last - first + 1);
}

bool parseWait(const std::string& text, int* waitMs)
{
    if (text.empty())
        return false;
    char* end = nullptr;
    errno = 0;
    const long value = std::strtol(text.c_str(), &end, 10);
    if (errno != 0 || *end != '\0' || value < 0 || value > INT_MAX)
        return false;
    *waitMs = static_cast<int>(value);
    return true;
}

} // namespace

const std::vector<std::string>& hostCommandNames()
{
    static const std::vector<std::string> names = {
        "show_or_hide", "undo", "redo", "zoom", "shut", "timer", "trash_can", "hide", "circle_mode",
    };
    return names;
}

HostInput parseHostInput(const std::string& line)
{
    HostInput input;
    const std::string text = trimmed(line);
    if (text.empty())
        return input;
    if (text[0] == '{') {
        input.kind = HostInput::Message;
        input.text = text;
        return input;
    }
    const std::vector<std::string>& names = hostCommandNames();
    if (std::find(names.begin(), names.end(), text) != names.end()) {
        input.kind = HostInput::Message;
        input.text = "{\"type\":\"" + text + "\"}";
        return input;
    }
    if (text == "help" || text == "--help" || text == "?") {
        input.kind = HostInput::Help;
        return input;
    }
    if (text == "quit" || text == "exit") {
        input.kind = HostInput::Quit;
        return input;
    }
    if (text.compare(0, 5, "wait ") == 0 && parseWait(trimmed(text.substr(5)), &input.waitMs)) {
        input.kind = HostInput::Wait;
        return input;
    }
    input.kind = HostInput::Unknown;
    input.text = text;
    return input;
}

std::string hostHelpText()
{
    std::string help = "Commands, one per line or one per argument:\n";
    for (const std::string& name : hostCommandNames())
        help += "  " + name + "\n";
    help += "      sends {\"type\":\"<command>\"} to the board\n"
            "  {...}  sends the JSON text as it is (at most 1024 bytes)\n"
            "  wait MS  pauses for MS milliseconds\n"
            "  help   shows this text\n"
            "  quit   closes the pipe, which ends the board (so does end of input)\n";
    return help;
}
