// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/config-store.h"
#include "windows-test-folder.h"

#include <fstream>
#include <iterator>
#include <sstream>

namespace fs = std::filesystem;

namespace {

std::string contentOf(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeFile(const fs::path& file, const std::string& text)
{
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << text;
}

class ConfigStoreWin : public WindowsTestFolder
{
};

// Windows refuses to rename onto an existing file unless asked to replace it.
TEST_F(ConfigStoreWin, SecondWriteReplacesTheFile)
{
    const fs::path file = folder / "Roaming" / "Pallo" / "bridge.json";
    bg::ConfigStore store(file.string());
    ASSERT_TRUE(store.set("count", bg::Value(1)));
    ASSERT_TRUE(store.set("count", bg::Value(2)));
    ASSERT_TRUE(store.set("name", bg::Value("p1")));

    bg::ConfigStore again(file.string());
    EXPECT_EQ(again.get("count").toInt(), 2);
    EXPECT_EQ(again.get("name").toStdString(), "p1");
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(file.parent_path()))
        names.push_back(entry.path().filename().string());
    EXPECT_EQ(names, std::vector<std::string>{"bridge.json"});
}

TEST_F(ConfigStoreWin, ChangesMadeByTheHostAreSeen)
{
    const fs::path file = folder / "bridge.json";
    bg::ConfigStore store(file.string());
    ASSERT_TRUE(store.set("mine", bg::Value("x")));
    writeFile(file, "{\r\n  \"screen.shot.path\": \"C:\\\\Shots\",\r\n  \"mine\": \"x\"\r\n}\r\n");
    EXPECT_EQ(store.get("screen.shot.path").toStdString(), "C:\\Shots");
    EXPECT_EQ(store.get("mine").toStdString(), "x");
}

TEST_F(ConfigStoreWin, BrokenFileIsKeptAside)
{
    const fs::path file = folder / "bridge.json";
    writeFile(file, "{\"half\": ");
    bg::ConfigStore store(file.string());
    EXPECT_EQ(store.get("half", bg::Value("d")).toStdString(), "d");
    ASSERT_TRUE(store.set("x", bg::Value(1)));
    EXPECT_EQ(bg::ConfigStore(file.string()).get("x").toInt(), 1);
    EXPECT_EQ(contentOf(folder / "bridge.json.bad"), "{\"half\": ");
}

// The path is UTF-8 text; Windows names files in UTF-16.
TEST_F(ConfigStoreWin, NonAsciiFolderNames)
{
    const fs::path file = folder / fs::u8path(u8"P\u00e4ll\u00f6 \u677f") / "bridge.json";
    bg::ConfigStore store(file.u8string());
    ASSERT_TRUE(store.set("ratio", bg::Value(0.5)));
    EXPECT_TRUE(fs::exists(file));
    EXPECT_DOUBLE_EQ(bg::ConfigStore(file.u8string()).get("ratio").toDouble(), 0.5);
}

} // namespace
