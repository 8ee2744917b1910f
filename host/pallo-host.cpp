// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// pallo-host plays the host: it creates the pipe, starts pallo-board on it and sends
// the board one message per command, read from the arguments or from standard input.
#include "host/board-output.h"
#include "host/board-process.h"
#include "host/host-commands.h"
#include "host/host-console.h"
#include "host/host-pipe-server.h"
#include "host/pipe-path.h"
#include "pallo-version.h"

#include <cxxopts.hpp>

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr std::size_t kMaxMessage = 1024;
constexpr int kBoardExitWaitMs = 10000;

struct Settings
{
    std::string name;
    std::string language;
    std::string board;
    int connectTimeoutMs = 10000;
    bool verbose = false;
    std::vector<std::string> commands;
};

// Returns false when the session should end.
bool runInput(const std::string& line, HostPipeServer& server)
{
    const HostInput input = parseHostInput(line);
    std::string error;
    switch (input.kind) {
    case HostInput::Empty:
        return true;
    case HostInput::Help:
        std::cout << hostHelpText() << std::flush;
        return true;
    case HostInput::Quit:
        return false;
    case HostInput::Wait:
        std::this_thread::sleep_for(std::chrono::milliseconds(input.waitMs));
        return true;
    case HostInput::Unknown:
        std::cerr << "pallo-host: unknown command '" << input.text << "' (try help)\n";
        return true;
    case HostInput::Message:
        if (input.text.size() > kMaxMessage) {
            std::cerr << "pallo-host: not sent: " << input.text.size()
                      << " bytes is more than the board takes (" << kMaxMessage << ")\n";
            return true;
        }
        if (!server.send(input.text, &error)) {
            std::cerr << "pallo-host: " << error << "\n";
            return false;
        }
        return true;
    }
    return true;
}

bool parseSettings(int argc, char** argv, Settings* settings, int* exitCode)
{
    cxxopts::Options options("pallo-host", "Starts pallo-board and sends it host commands.");
    options.positional_help("[COMMAND...]");
    // clang-format off
    options.add_options()
        ("n,name", "pipe name (a path, or a name placed in $XDG_RUNTIME_DIR or /tmp)",
         cxxopts::value<std::string>()->default_value("pallo-host-" + std::to_string(::getpid())))
        ("l,language", "language handed to the board",
         cxxopts::value<std::string>()->default_value("english"))
        ("b,board", "the pallo-board program (default: beside pallo-host, else on PATH)",
         cxxopts::value<std::string>()->default_value(""))
        ("connect-timeout", "milliseconds to wait for the board to connect",
         cxxopts::value<int>()->default_value("10000"))
        ("verbose", "switch the board's debug lines on")
        ("h,help", "show this help and the commands")
        ("version", "show the version and end");
    // clang-format on
    try {
        const cxxopts::ParseResult result = options.parse(argc, argv);
        if (result.count("help") > 0) {
            std::cout << options.help() << "\n" << hostHelpText();
            *exitCode = 0;
            return false;
        }
        if (result.count("version") > 0) {
            std::cout << "pallo-host " PALLO_VERSION "\n";
            *exitCode = 0;
            return false;
        }
        settings->name = result["name"].as<std::string>();
        settings->language = result["language"].as<std::string>();
        settings->board = result["board"].as<std::string>();
        settings->connectTimeoutMs = result["connect-timeout"].as<int>();
        settings->verbose = result.count("verbose") > 0;
        // Commands are taken from what is left, as they stand: a positional option
        // would split raw JSON at its commas.
        settings->commands = result.unmatched();
    } catch (const std::exception& e) {
        std::cerr << "pallo-host: " << e.what() << "\n" << options.help();
        *exitCode = 2;
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    Settings settings;
    int exitCode = 0;
    if (!parseSettings(argc, argv, &settings, &exitCode))
        return exitCode;

    const std::string board = locateBoard(settings.board);
    if (board.empty()) {
        std::cerr << "pallo-host: pallo-board not found beside pallo-host or on PATH; "
                     "name it with --board\n";
        return 2;
    }

    HostPipeServer server;
    std::string error;
    if (!server.listen(pipePathForName(settings.name), &error)) {
        std::cerr << "pallo-host: " << error << "\n";
        return 1;
    }
    const bool interactive = ::isatty(STDIN_FILENO) != 0;
    HostConsole console(std::cout, std::cerr, interactive);
    // Made before the board's process, so that they are finished only after the board
    // has ended and closed its ends.
    BoardOutput output;
    BoardOutput errors;
    BoardProcess process;
    if (settings.verbose)
        process.setVariable("QT_LOGGING_RULES",
                            verboseLoggingRules(std::getenv("QT_LOGGING_RULES")));
    if (!process.start(board, {"--name", settings.name, "--language", settings.language}, &error)) {
        std::cerr << "pallo-host: " << error << "\n";
        return 1;
    }
    const auto toConsole = [&console](const std::string& line) { console.boardLine(line); };
    output.start(process.takeOutput(STDOUT_FILENO), toConsole);
    errors.start(process.takeOutput(STDERR_FILENO), toConsole);
    if (!server.accept(
            settings.connectTimeoutMs, [&process] { return process.running(); }, &error)) {
        std::cerr << "pallo-host: " << error << "\n";
        server.close();
        const int code = process.wait(0);
        output.finish();
        errors.finish();
        return code > 0 ? code : 1;
    }

    if (!settings.commands.empty()) {
        for (const std::string& command : settings.commands) {
            if (!runInput(command, server))
                break;
        }
    } else {
        std::string line;
        for (;;) {
            console.prompt();
            const bool gotLine = static_cast<bool>(std::getline(std::cin, line));
            console.answered();
            if (!gotLine)
                break;
            if (!runInput(line, server))
                break;
        }
        if (interactive)
            std::cout << "\n";
    }

    server.close();
    const int code = process.wait(kBoardExitWaitMs);
    output.finish();
    errors.finish();
    if (code != 0)
        std::cerr << "pallo-host: pallo-board ended with code " << code << "\n";
    return code;
}
