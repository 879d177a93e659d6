// What is handed over, and what cannot be.
#include "launcher/selection.h"

#include <gtest/gtest.h>

#include <functional>

#include "base/case_order.h"

namespace ferry::launcher {
namespace {

using Words = std::vector<std::wstring>;
using Refusals = std::vector<Refusal>;

/// A system with the current folder "C:\now", on which everything exists whose path does not say otherwise.
class FakeSurroundings final : public Surroundings {
public:
    std::wstring FullPath(const std::wstring& path) override {
        Resolved.push_back(path);
        if (path.find(L"impossible") != std::wstring::npos)
            return {};
        const bool isFull = path.starts_with(L"\\\\") || (path.size() > 1 && path[1] == L':');
        return isFull ? path : L"C:\\now\\" + path;
    }

    bool Exists(const std::wstring& path) override {
        Asked.push_back(path);
        return path.find(L"missing") == std::wstring::npos;
    }

    Words Asked;
    Words Resolved;
};

class SelectionTest : public testing::Test {
protected:
    Selection Items(const Words& paths) {
        for (const std::wstring& path : paths) {
            maker_.AddItem(path);
        }
        return maker_.Take();
    }

    FakeSurroundings surroundings_;
    SelectionMaker maker_{surroundings_};
};

TEST_F(SelectionTest, HasItsItemsAsFullPathsInTheirOrder) {
    const Selection selection = Items({L"b.txt", L"D:\\a", L"\\\\server\\share\\c"});
    EXPECT_EQ(selection.Items, (Words{L"C:\\now\\b.txt", L"D:\\a", L"\\\\server\\share\\c"}));
    EXPECT_TRUE(selection.Refusals.empty());
}

TEST_F(SelectionTest, LeavesTheResolvingOfPathsToTheSystem) {
    const Words open = {L"a",         L"\\a",        L"D:a",           L"D:",     L"D:/a",   L"D:\\a\\..\\b",
                        L"D:\\.\\a",  L"D:\\\\a",    L"D:\\a\\\\b",    L"D:\\a.", L"D:\\a ", L"D:\\a \\b",
                        L"D:\\a.\\b", L"D:\\a\\b/c", L"\\\\server\\a", L"D:\\..."};
    Items(open);
    EXPECT_EQ(surroundings_.Resolved, open);
    surroundings_.Resolved.clear();
    Items({L"D:\\a", L"D:\\", L"d:\\.a\\..b\\c.d e", L"D:\\a\\"});
    EXPECT_TRUE(surroundings_.Resolved.empty());
}

TEST_F(SelectionTest, HasFoldersWithoutTheSeparatorAtTheirEnd) {
    EXPECT_EQ(Items({L"D:\\a\\", L"D:\\", L"b\\"}).Items, (Words{L"D:\\a", L"D:\\", L"C:\\now\\b"}));
}

TEST_F(SelectionTest, TakesThePrefixOfLongPathsAway) {
    EXPECT_EQ(Items({L"\\\\?\\D:\\a", L"\\\\?\\UNC\\server\\share\\b"}).Items,
              (Words{L"D:\\a", L"\\\\server\\share\\b"}));
}

TEST_F(SelectionTest, MendsAPathWhoseLastBackslashTookTheQuoteIn) {
    EXPECT_EQ(Items({L"D:\\a b\"", L"E:\""}).Items, (Words{L"D:\\a b", L"E:\\"}));
    maker_.AddTab(L"E:\"");
    EXPECT_EQ(maker_.Take().Tabs, Words{L"E:\\"});
}

TEST_F(SelectionTest, TakesAnItemOnce) {
    const Selection selection = Items({L"D:\\Ä", L"D:\\ä\\", L"d:\\Ä", L"D:\\b"});
    EXPECT_EQ(selection.Items, (Words{L"D:\\Ä", L"D:\\b"}));
    EXPECT_TRUE(selection.Refusals.empty());
    EXPECT_EQ(surroundings_.Asked, (Words{L"D:\\Ä", L"D:\\b"}));
}

TEST_F(SelectionTest, RefusesWhatDoesNotExistAsItWasGiven) {
    const Selection selection = Items({L"a", L"missing", L"b"});
    EXPECT_EQ(selection.Items, (Words{L"C:\\now\\a", L"C:\\now\\b"}));
    EXPECT_EQ(selection.Refusals, (Refusals{{L"missing", Reason::Missing}}));
}

TEST_F(SelectionTest, RefusesWildcards) {
    const Selection selection = Items({L"*.txt", L"D:\\a?", L"\\\\?\\D:\\b"});
    EXPECT_EQ(selection.Items, Words{L"D:\\b"});
    EXPECT_EQ(selection.Refusals, (Refusals{{L"*.txt", Reason::Wildcard}, {L"D:\\a?", Reason::Wildcard}}));
}

TEST_F(SelectionTest, RefusesWhatNoPathCanBe) {
    const Words paths = {L"", L"a\tb", L"a\nb", L"C:\\a\" \"D:\\b", L"a<b", L"a>b", L"a|b", L"impossible"};
    const Selection selection = Items(paths);
    EXPECT_TRUE(selection.Items.empty());
    ASSERT_EQ(selection.Refusals.size(), paths.size());
    for (std::size_t index = 0; index < paths.size(); ++index) {
        EXPECT_EQ(selection.Refusals[index], (Refusal{paths[index], Reason::Malformed}));
    }
    EXPECT_TRUE(surroundings_.Asked.empty());
}

TEST_F(SelectionTest, CountsTheItemsBeyondTheLimit) {
    SelectionMaker maker(surroundings_, 3);
    for (const wchar_t* path : {L"D:\\1", L"D:\\2", L"D:\\3", L"D:\\4", L"D:\\5"}) {
        maker.AddItem(path);
    }
    const Selection selection = maker.Take();
    EXPECT_EQ(selection.Items, (Words{L"D:\\1", L"D:\\2", L"D:\\3"}));
    EXPECT_EQ(selection.TooMany, 2U);
    EXPECT_TRUE(selection.Refusals.empty());
}

TEST_F(SelectionTest, HasTheGivenFoldersBeforeTheLastOnes) {
    maker_.AddTab(L"there");
    maker_.AddTab(L"E:\\missing");
    maker_.AddLastFolders({L"D:\\last\\", L"E:\\before"});
    EXPECT_EQ(maker_.Take().Tabs, (Words{L"C:\\now\\there", L"E:\\missing", L"D:\\last\\", L"E:\\before"}));
    EXPECT_TRUE(surroundings_.Asked.empty());
}

TEST_F(SelectionTest, HasAFolderOnceHoweverItIsWritten) {
    maker_.AddTab(L"D:\\a");
    maker_.AddTab(L"D:\\A\\");
    maker_.AddLastFolders({L"d:\\a\\", L"D:\\b", L"D:\\b\\"});
    EXPECT_EQ(maker_.Take().Tabs, (Words{L"D:\\a", L"D:\\b"}));
}

TEST_F(SelectionTest, LeavesLastDestinationsOutThatAreNoFullPaths) {
    maker_.AddLastFolders({L"", L"name", L"\\name", L"D:\\a\tb", L"D:\\c"});
    const Selection selection = maker_.Take();
    EXPECT_EQ(selection.Tabs, Words{L"D:\\c"});
    EXPECT_TRUE(selection.Refusals.empty());
}

TEST_F(SelectionTest, HasTenOfTheLastDestinationsAtMost) {
    Words folders;
    for (int index = 0; index < 20; ++index) {
        folders.push_back(L"D:\\" + std::to_wstring(index));
    }
    maker_.AddTab(L"D:\\given");
    maker_.AddLastFolders(folders);
    const Words tabs = maker_.Take().Tabs;
    ASSERT_EQ(tabs.size(), 11U);
    EXPECT_EQ(tabs.back(), L"D:\\9");
}

TEST_F(SelectionTest, RefusesAFolderThatCannotBeOne) {
    maker_.AddTab(L"D:\\*");
    maker_.AddUnreadableList(L"list.txt");
    const Selection selection = maker_.Take();
    EXPECT_TRUE(selection.Tabs.empty());
    EXPECT_EQ(selection.Refusals,
              (Refusals{{L"D:\\*", Reason::Wildcard}, {L"list.txt", Reason::UnreadableList}}));
}

}  // namespace
}  // namespace ferry::launcher
