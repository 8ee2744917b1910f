// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/options.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

bool parse(bg::Options& options, std::vector<const char*> arguments)
{
    arguments.insert(arguments.begin(), "C:\\Program Files\\Pallo\\pallo-board.exe");
    return options.parse(static_cast<int>(arguments.size()), arguments.data());
}

void declareBoardOptions(bg::Options& options)
{
    ASSERT_TRUE(options.add("name", 'n', "namepipe name", true, bg::Value("")));
    ASSERT_TRUE(options.add("language", 'l', "app language", false, bg::Value("")));
}

TEST(OptionsWin, LongShortAndEqualsForms)
{
    bg::Options options;
    declareBoardOptions(options);
    ASSERT_TRUE(parse(options, {"-n", "pipe2", "--language=english", "extra"}));
    EXPECT_EQ(options.value("name").toStdString(), "pipe2");
    EXPECT_EQ(options.value("language").toStdString(), "english");
}

TEST(OptionsWin, MissingRequiredOptionFails)
{
    bg::Options options;
    declareBoardOptions(options);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(parse(options, {"--language", "english"}));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("name"), std::string::npos);
}

} // namespace
