// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/options.h"

#include "bridge/toolkit-arguments.h"

#include <cxxopts.hpp>

#include <cctype>
#include <cstdio>

namespace bg {

Options::Options(std::string program) : program_(std::move(program)) {}

const Options::Declared* Options::find(const std::string& longName) const
{
    for (const Declared& d : declared_) {
        if (d.longName == longName)
            return &d;
    }
    return nullptr;
}

bool Options::add(const std::string& longName, char shortLetter, const std::string& description,
                  bool required, const Value& fallback)
{
    if (parsed_ || longName.size() < 2 || longName[0] == '-' || find(longName) != nullptr)
        return false;
    if (longName.find_first_of(" =,") != std::string::npos)
        return false;
    if (shortLetter != 0) {
        const unsigned char letter = static_cast<unsigned char>(shortLetter);
        if (!std::isalnum(letter))
            return false;
        for (const Declared& d : declared_) {
            if (d.shortLetter == shortLetter)
                return false;
        }
    }
    declared_.push_back({longName, shortLetter, description, required, fallback});
    return true;
}

bool Options::addFlag(const std::string& longName, const std::string& description)
{
    if (!add(longName, 0, description, false))
        return false;
    declared_.back().flag = true;
    return true;
}

void Options::declareTo(cxxopts::Options& parser) const
{
    auto adder = parser.add_options();
    for (const Declared& d : declared_) {
        const std::string names =
            d.shortLetter != 0 ? std::string(1, d.shortLetter) + "," + d.longName : d.longName;
        if (d.flag)
            adder(names, d.description);
        else
            adder(names, d.required ? d.description + " (required)" : d.description,
                  cxxopts::value<std::string>());
    }
}

std::string Options::help() const
{
    cxxopts::Options parser(program_);
    declareTo(parser);
    return parser.help();
}

bool Options::parse(int argc, const char* const* argv)
{
    cxxopts::Options parser(program_);
    parser.allow_unrecognised_options();
    declareTo(parser);

    // Qt's single-dash options would otherwise read as bundles of short options:
    // "-platform xcb" as "-p -l atform ...", which sets the language to "atform".
    std::vector<std::string> ownLongNames;
    for (const Declared& d : declared_)
        ownLongNames.push_back(d.longName);
    const std::vector<std::string> arguments =
        withoutToolkitOptions(std::vector<std::string>(argv, argv + argc), ownLongNames);
    std::vector<const char*> ownArgv;
    for (const std::string& a : arguments)
        ownArgv.push_back(a.c_str());

    values_.clear();
    try {
        const cxxopts::ParseResult result =
            parser.parse(static_cast<int>(ownArgv.size()), ownArgv.data());
        for (const Declared& d : declared_) {
            if (result.count(d.longName) == 0)
                continue;
            values_[d.longName] =
                d.flag ? std::string("true") : result[d.longName].as<std::string>();
        }
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s: %s\n%s", program_.c_str(), e.what(), help().c_str());
        std::fflush(stderr);
        values_.clear();
        return false;
    }
    bool flagGiven = false;
    for (const Declared& d : declared_)
        flagGiven = flagGiven || (d.flag && values_.count(d.longName) > 0);
    for (const Declared& d : declared_) {
        if (d.required && !flagGiven && values_.count(d.longName) == 0) {
            std::fprintf(stderr, "%s: option '--%s' is required\n%s", program_.c_str(),
                         d.longName.c_str(), help().c_str());
            std::fflush(stderr);
            values_.clear();
            return false;
        }
    }
    parsed_ = true;
    return true;
}

bool Options::given(const std::string& longName) const
{
    return values_.count(longName) > 0;
}

Value Options::value(const std::string& longName, const Value& fallback) const
{
    auto it = values_.find(longName);
    if (it != values_.end())
        return Value(it->second);
    const Declared* d = find(longName);
    if (d != nullptr && !d->fallback.isNull())
        return d->fallback;
    return fallback;
}

} // namespace bg
