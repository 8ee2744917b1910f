// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <ostream>
#include <string>

// The host's terminal, shared by its prompt and the board's output lines, which arrive
// on another thread at any time. A board line never joins the prompt: the prompt line
// is cleared, the board's line printed on its own, and the prompt drawn again.
class HostConsole
{
public:
    // interactive: the prompt is shown, and out is a terminal that understands the
    // line-clearing control sequence.
    HostConsole(std::ostream& out, std::ostream& err, bool interactive);

    // Shows the prompt while the host waits for a line of input.
    void prompt();
    // The user has ended the line: the prompt is no longer on the screen.
    void answered();
    // One line the board wrote, shown on the error stream as "pallo-board: LINE".
    void boardLine(const std::string& line);

private:
    std::mutex mutex_;
    std::ostream& out_;
    std::ostream& err_;
    const bool interactive_;
    bool promptShown_ = false;
};
