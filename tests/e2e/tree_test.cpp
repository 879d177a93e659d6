// What the driver keeps and compares: trees and settings.
#include <gtest/gtest.h>

#include "e2e/driver/settings_guard.h"
#include "e2e/driver/temp_tree.h"
#include "e2e/driver/tree_snapshot.h"

namespace ferry::e2e {
namespace {

TEST(DriverState, FindsTheDifferencesBetweenTwoTrees) {
    const TempTree tree;
    const std::wstring left = tree.MakeSample(L"左");
    const std::wstring right = tree.MakeSample(L"右");
    EXPECT_EQ(Differences(ReadTree(left), ReadTree(right)), "");
    EXPECT_EQ(HashOf(ReadTree(left)), HashOf(ReadTree(right)));
    tree.WriteFile(L"右\\写真\\夏休み 2020.txt", "winter");
    tree.WriteFile(L"右\\more.txt", "");
    RemoveAll(right + L"\\empty.txt");
    SetFileAttributesW((right + L"\\large.bin").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Differences(ReadTree(left), ReadTree(right)),
              "missing: empty.txt\nattributes: large.bin 0 became 1\ncontent: 写真\\夏休み 2020.txt\n"
              "unexpected: more.txt\n");
    EXPECT_NE(HashOf(ReadTree(left)), HashOf(ReadTree(right)));
}

TEST(DriverState, RemovesItsTreesWhateverIsInThem) {
    std::wstring root;
    {
        const TempTree tree;
        root = tree.Root();
        tree.MakeSample(L"元");
        ASSERT_TRUE(Exists(root));
    }
    EXPECT_FALSE(Exists(root));
}

TEST(DriverState, PutsTheSettingsBack) {
    const SettingsGuard outer;
    WriteNumber(kProgramKey, L"Name", 5);
    {
        const SettingsGuard inner;
        EXPECT_FALSE(ReadNumber(kProgramKey, L"Name").has_value());
        WriteText(kProgramKey, L"Ferry000", L"C:\\");
        EXPECT_EQ(ReadText(kProgramKey, L"Ferry000"), L"C:\\");
    }
    EXPECT_EQ(ReadNumber(kProgramKey, L"Name"), 5U);
    EXPECT_FALSE(ReadText(kProgramKey, L"Ferry000").has_value());
}

}  // namespace
}  // namespace ferry::e2e
