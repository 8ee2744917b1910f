// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

// A fresh folder under the user's temporary folder for each test, removed afterwards.
class WindowsTestFolder : public testing::Test
{
protected:
    void SetUp() override
    {
        const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
        folder = std::filesystem::temp_directory_path() /
                 (std::string("pallo-") + test->test_suite_name() + "-" + test->name());
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
    }

    void TearDown() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }

    std::filesystem::path folder;
};
