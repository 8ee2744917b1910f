// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/logger.h"
#include "windows-test-folder.h"

#include <cstdio>
#include <fstream>
#include <iterator>

namespace {

TEST(LoggerWin, BaseNameTakesEitherSeparator)
{
    EXPECT_STREQ(bg::base_name("C:\\src\\pallo\\canvas\\graphics-view.cpp"), "graphics-view.cpp");
    EXPECT_STREQ(bg::base_name("C:/src/pallo/app/main.cpp"), "main.cpp");
    EXPECT_STREQ(bg::base_name("D:\\mixed/dir\\x.cpp"), "x.cpp");
}

class LoggerSinkWin : public WindowsTestFolder
{
};

TEST_F(LoggerSinkWin, LinesReachTheSinkWithWideNumbers)
{
    const std::filesystem::path file = folder / "log.txt";
    std::FILE* sink = _wfopen(file.c_str(), L"wb");
    ASSERT_NE(sink, nullptr);
    bg::Logger logger;
    logger.setSink(sink);
    logger.log(bg::Logger::kInfo, "bg", "[I][bg] %lld %zu\n", -9000000000LL, std::size_t(7));
    logger.setThreshold(bg::Logger::kError);
    logger.log(bg::Logger::kInfo, "bg", "dropped\n");
    logger.setSink(nullptr);
    std::fclose(sink);

    std::ifstream in(file, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(text, "[I][bg] -9000000000 7\n");
}

} // namespace
