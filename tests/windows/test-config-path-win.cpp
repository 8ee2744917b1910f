// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/config-path.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

struct PathCase
{
    const char* name;
    std::map<std::string, std::string> environment;
    const char* expected;
};

class ConfigPathWin : public testing::TestWithParam<PathCase>
{
};

TEST_P(ConfigPathWin, FollowsTheEnvironment)
{
    const PathCase& c = GetParam();
    const std::string path = bg::default_config_path([&c](const char* name) -> const char* {
        const auto it = c.environment.find(name);
        return it == c.environment.end() ? nullptr : it->second.c_str();
    });
    EXPECT_EQ(path, c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ConfigPathWin,
    testing::Values(
        PathCase{"ExplicitFileWins",
                 {{"PALLO_BRIDGE_CONFIG", "D:\\x\\b.json"}, {"APPDATA", "C:\\A"}},
                 "D:\\x\\b.json"},
        PathCase{"RoamingAppData",
                 {{"APPDATA", "C:\\Users\\u\\AppData\\Roaming"}, {"USERPROFILE", "C:\\Users\\u"}},
                 "C:\\Users\\u\\AppData\\Roaming\\Pallo\\bridge.json"},
        PathCase{"ProfileWhenAppDataUnset",
                 {{"USERPROFILE", "C:\\Users\\u"}},
                 "C:\\Users\\u\\AppData\\Roaming\\Pallo\\bridge.json"},
        PathCase{"EmptyValuesCountAsUnset",
                 {{"PALLO_BRIDGE_CONFIG", ""}, {"APPDATA", ""}, {"USERPROFILE", "C:\\P"}},
                 "C:\\P\\AppData\\Roaming\\Pallo\\bridge.json"},
        PathCase{"NothingSet", {}, "Pallo\\bridge.json"}),
    [](const testing::TestParamInfo<PathCase>& info) { return std::string(info.param.name); });

} // namespace
