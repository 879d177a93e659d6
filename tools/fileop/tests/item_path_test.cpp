#include "item_path.h"

#include <gtest/gtest.h>

namespace ferry::fileop {
namespace {

TEST(FreeName, FollowsTheShellsTwoStyles) {
    EXPECT_EQ(FreeName(L"a.b.txt", false, FreeNameStyle::Copy, 1), L"a.b - Copy.txt");
    EXPECT_EQ(FreeName(L"a.b.txt", false, FreeNameStyle::Copy, 2), L"a.b - Copy (2).txt");
    EXPECT_EQ(FreeName(L"a.b.txt", false, FreeNameStyle::Number, 1), L"a.b (2).txt");
    EXPECT_EQ(FreeName(L"a.b.txt", false, FreeNameStyle::Number, 2), L"a.b (3).txt");
    EXPECT_EQ(FreeName(L"folder.d", true, FreeNameStyle::Number, 1), L"folder.d (2)");
    EXPECT_EQ(FreeName(L"資料", false, FreeNameStyle::Copy, 1), L"資料 - Copy");
}

TEST(ItemPath, TakesPathsApart) {
    EXPECT_EQ(NameOf(L"C:\\a\\b.txt"), L"b.txt");
    EXPECT_EQ(NameOf(L"C:\\a\\"), L"a");
    EXPECT_EQ(NameOf(L"C:\\"), L"");
    EXPECT_EQ(FolderOf(L"C:\\a\\b.txt"), L"C:\\a");
    EXPECT_EQ(FolderOf(L"C:\\a"), L"C:\\");
    EXPECT_EQ(FolderOf(L"C:\\"), L"");
    EXPECT_EQ(JoinPath(L"C:\\", L"a"), L"C:\\a");
    EXPECT_EQ(JoinPath(L"C:\\a", L"b"), L"C:\\a\\b");
}

TEST(ItemPath, KnowsWhatCannotNameAnItem) {
    for (const wchar_t* name :
         {L"", L".", L"..", L"a\\b", L"a/b", L"a:b", L"a*", L"a?", L"\"", L"<", L">", L"|"}) {
        EXPECT_FALSE(IsItemName(name)) << testing::PrintToString(std::wstring(name));
    }
    EXPECT_TRUE(IsItemName(L"a b.txt"));
}

}  // namespace
}  // namespace ferry::fileop
