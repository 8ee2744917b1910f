// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// Parses arbitrary command lines with the board's options: the input is cut into
// arguments at each NUL byte.
#include "bridge/options.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<std::string> arguments{"pallo-board"};
    std::string current;
    for (std::size_t i = 0; i < size; ++i) {
        if (data[i] == 0) {
            arguments.push_back(current);
            current.clear();
        } else {
            current.push_back(static_cast<char>(data[i]));
        }
    }
    arguments.push_back(current);
    std::vector<const char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(argument.c_str());
    argv.push_back(nullptr);

    bg::Options options;
    options.add("name", 'n', "namepipe name", true, bg::Value(""));
    options.add("language", 'l', "app language", false, bg::Value(""));
    // A refused command line prints its usage; keep the fuzzer's log readable.
    static const int quiet = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    const int saved = ::dup(2);
    ::dup2(quiet, 2);
    const bool parsed = options.parse(static_cast<int>(arguments.size()), argv.data());
    ::dup2(saved, 2);
    ::close(saved);
    if (parsed) {
        (void)options.value("name").toStdString();
        (void)options.value("language", bg::Value("")).toStdString();
    }
    return 0;
}
