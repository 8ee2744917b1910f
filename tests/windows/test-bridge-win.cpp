// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/bridge.h"
#include "windows-test-folder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace {

class BridgeWin : public WindowsTestFolder
{
protected:
    void TearDown() override
    {
        bg::UninitBridge();
        WindowsTestFolder::TearDown();
    }
};

// Without an explicit file the configuration lives in the user's roaming folder.
TEST_F(BridgeWin, ConfigurationGoesToRoamingAppData)
{
    ASSERT_EQ(_putenv_s("PALLO_BRIDGE_CONFIG", ""), 0);
    ASSERT_EQ(_putenv_s("APPDATA", folder.string().c_str()), 0);
    char program[] = "pallo-board.exe";
    char* argv[] = {program, nullptr};
    ASSERT_TRUE(bg::InitBridge(1, argv));
    bg::BridgeInterface* bridge = bg::GetBridge();
    ASSERT_NE(bridge, nullptr);
    EXPECT_EQ(bridge->config().path(), folder.string() + "\\Pallo\\bridge.json");
    ASSERT_TRUE(bridge->config().set("appVersion", bg::Value("1.0.2")));

    std::ifstream in(folder / "Pallo" / "bridge.json", std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_NE(text.find("\"appVersion\" : \"1.0.2\""), std::string::npos) << text;
}

} // namespace
