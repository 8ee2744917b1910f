// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

// One line of pallo-host input.
struct HostInput
{
    enum Kind
    {
        Message,
        Help,
        Quit,
        Wait,
        Empty,
        Unknown
    };

    Kind kind = Empty;
    // Message: the JSON text to send. Unknown: the word that was not understood.
    std::string text;
    // Wait: how long to pause, in milliseconds.
    int waitMs = 0;
};

// The message types the board understands, in the order help lists them.
const std::vector<std::string>& hostCommandNames();

// A command word becomes {"type":"word"}; a text starting with '{' is sent as it is;
// "help", "quit" and "wait MS" steer pallo-host itself. Blanks around the line are
// ignored.
HostInput parseHostInput(const std::string& line);

std::string hostHelpText();
