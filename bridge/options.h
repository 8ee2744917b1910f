// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/value.h"

#include <map>
#include <string>
#include <vector>

namespace cxxopts {
class Options;
}

namespace bg {

// The process's command-line options. Options are declared first, then the command
// line is parsed once; every option but a flag takes a text value ("--name pipe",
// "-n pipe", "--name=pipe"). Arguments nobody declared are left alone, because the GUI toolkit
// reads its own options from the same command line.
class Options
{
public:
    explicit Options(std::string program = "pallo-board");

    // shortLetter 0 declares no short form. Fails for an empty or repeated name or
    // letter, or after parse().
    bool add(const std::string& longName, char shortLetter, const std::string& description,
             bool required, const Value& fallback = Value());
    // Declares an option without text, such as "--help" or "--version", that asks the
    // program to answer and end: when one is given, required options may be missing.
    bool addFlag(const std::string& longName, const std::string& description);
    // Reports the problem and the usage on standard error and returns false when an
    // option lacks its text or a required option is missing.
    bool parse(int argc, const char* const* argv);

    bool parsed() const { return parsed_; }
    bool given(const std::string& longName) const;
    // The text given on the command line, else the declared default when it has a type,
    // else fallback.
    Value value(const std::string& longName, const Value& fallback = Value()) const;
    std::string help() const;

private:
    struct Declared
    {
        std::string longName;
        char shortLetter = 0;
        std::string description;
        bool required = false;
        Value fallback;
        bool flag = false;
    };

    const Declared* find(const std::string& longName) const;
    void declareTo(cxxopts::Options& parser) const;

    std::string program_;
    std::vector<Declared> declared_;
    std::map<std::string, std::string> values_;
    bool parsed_ = false;
};

} // namespace bg
